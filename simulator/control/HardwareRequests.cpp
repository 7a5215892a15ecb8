// Requests about the simulated hardware and the machine below the library: settings, failures, shell commands.
#include <cerrno>

#include "Onu.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"
#include "sandbox/Sandbox.h"

namespace {
Json changeHardware(Onu& onu, const Json& request)
{
    Json settings = request.at("hardware");
    if (settings.is_object() && settings.contains("interface")) {
        bool isConnected = true;
        values::from(settings["interface"], isConnected, "interface");
        settings.erase("interface");
        onu.hardware().change(settings);
        onu.connectHardware(isConnected);
    } else {
        onu.hardware().change(settings);
    }
    return {{"result", 0}};
}

Json failCalls(const Json& request)
{
    const RequestFields fields(request, "fail", {"call", "errno", "times"});
    const auto call = fields.get<std::string>("call");
    const auto number = fields.get<int>("errno", EIO);
    if (!Sandbox::fail(call, number, fields.get<unsigned int>("times", 1))) {
        std::string known;
        for (const std::string& name : Sandbox::failurePoints()) {
            known += (known.empty() ? "" : ", ") + name;
        }
        throw BadRequest("fail.call: \"" + call + "\" is not one of " + known);
    }
    return {{"result", 0}};
}
}  // namespace

void ControlRequests::addHardwareRequests()
{
    m_Requests["hardware"] = [this](const Json& request) { return changeHardware(m_Onu, request); };
    m_Requests["fail"] = failCalls;
    m_Requests["system"] = [](const Json& request) -> Json {
        requireTrue(request, "system");
        return {{"result", Sandbox::commands()}};
    };
}
