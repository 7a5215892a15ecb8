#ifndef FUZZ_FUZZED_ONU_H
#define FUZZ_FUZZED_ONU_H

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <vector>

#include "Check.h"
#include "JsonLog.h"
#include "Onu.h"
#include "attributeDefinition.h"
#include "control/ControlRequests.h"
#include "host/FrameCodec.h"

namespace fuzz {

using Bytes = std::vector<std::uint8_t>;

/// One ONU with simulated hardware for the whole life of the fuzzer, quiet, with a board of the default size. Each
/// input begins with `begin`, so that what it finds can be found again.
class FuzzedOnu
{
public:
    static FuzzedOnu& instance();

    /// Hardware present and well; a MIB reset before every so many inputs, as it takes as long as a hundred frames; now
    /// and then a restart.
    void begin(unsigned inputsPerReset = 1);
    /// One frame through the dispatcher; the reply is taken apart and must fit the request.
    void handle(const Bytes& frame);
    Onu& onu() { return m_Onu; }
    ControlRequests& requests() { return m_Requests; }

private:
    FuzzedOnu();

    RunningNumber m_Number;
    JsonLog m_Log;
    HardwareRecorder m_Recorder{m_Log, m_Number};
    Onu m_Onu;
    ControlRequests m_Requests;
    unsigned m_Inputs = 0;
};

/// A well-formed request: class, instance, mask and values from the live MIB half of the time, drawn freely otherwise.
Bytes drawFrame(FuzzedDataProvider& data);
/// A frame of that kind with contents, as an OLT makes it.
Bytes frameOf(omci::FrameHeader header, const Bytes& contents);

}  // namespace fuzz

#endif
