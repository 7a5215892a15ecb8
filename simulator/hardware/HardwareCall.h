#ifndef SIMULATOR_HARDWARE_HARDWARE_CALL_H
#define SIMULATOR_HARDWARE_HARDWARE_CALL_H

#include <cstdint>
#include <string>

#include "Json.h"
#include "JsonLog.h"

/// Where the calls on the hardware are written down.
struct HardwareRecorder
{
    JsonLog& log;
    RunningNumber& number;
};

/// One call on the hardware: numbered when it begins, one line of the log when it ends, however it ends.
class HardwareCall
{
public:
    HardwareCall(HardwareRecorder& recorder, const char* operation, std::initializer_list<Json> arguments);
    ~HardwareCall();
    HardwareCall(const HardwareCall&) = delete;
    HardwareCall& operator=(const HardwareCall&) = delete;

    const char* operation() const { return m_Operation; }
    std::uint64_t number() const { return m_Number; }
    /// Sets what an out pointer points at, once it is known.
    void setArgument(std::size_t index, Json value) { m_Arguments.at(index) = std::move(value); }
    /// Notes what the hardware layer read of the MIB during the call.
    void setRead(const char* what, Json value) { m_Read[what] = std::move(value); }

private:
    HardwareRecorder& m_Recorder;
    const char* m_Operation;
    std::uint64_t m_Number;
    Json m_Arguments;
    Json m_Read;
};

#endif
