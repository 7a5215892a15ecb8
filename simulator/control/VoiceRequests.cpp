// Questions about the voice service: phone lines, IP hosts.
#include "Onu.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"

void ControlRequests::addVoiceRequests()
{
    m_Requests["lines"] = [this](const Json& request) -> Json {
        requireTrue(request, "lines");
        return {{"result", m_Onu.hardware().describeLines()}};
    };
    m_Requests["ip_hosts"] = [this](const Json& request) -> Json {
        requireTrue(request, "ip_hosts");
        return {{"result", m_Onu.hardware().describeIpHosts()}};
    };
}
