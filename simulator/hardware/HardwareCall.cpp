#include "hardware/HardwareCall.h"

#include <utility>

HardwareCall::HardwareCall(HardwareRecorder& recorder, const char* operation, std::initializer_list<Json> arguments)
    : m_Recorder(recorder), m_Operation(operation), m_Number(recorder.number.next()), m_Arguments(Json::array())
{
    for (const Json& argument : arguments) {
        m_Arguments.push_back(argument);
    }
}

HardwareCall::~HardwareCall()
{
    if (!m_Recorder.log.isOpen()) {
        return;
    }
    Json line = {{"n", m_Number}, {"call", m_Operation}, {"args", std::move(m_Arguments)}};
    if (!m_Read.is_null()) {
        line["read"] = std::move(m_Read);
    }
    m_Recorder.log.write(line);
}
