#include "VoiceNames.h"

#include <cstddef>

namespace omci {

namespace {

constexpr const char* kUnknown = "unknown";

template <std::size_t Size>
const char* nameIn(const char* const (&names)[Size], std::uint8_t number)
{
    return number < Size ? names[number] : kUnknown;
}

}  // namespace

const char* codecName(std::uint8_t codec)
{
    static constexpr const char* names[] = {"PCMU",       "reserved (1)", "reserved (2)", "GSM",  "G723",
                                            "DVI4 8 kHz", "DVI4 16 kHz",  "LPC",          "PCMA", "G722",
                                            "L16 stereo", "L16 mono",     "QCELP",        "CN",   "MPA",
                                            "G728",       "DVI4 11 kHz",  "DVI4 22 kHz",  "G729"};
    return nameIn(names, codec);
}

const char* faxModeName(std::uint8_t mode)
{
    static constexpr const char* names[] = {"pass-through", "T.38"};
    return nameIn(names, mode);
}

const char* signallingCodeName(std::uint8_t code)
{
    static constexpr const char* names[] = {"none",       "loop start",      "ground start", "loop reverse battery",
                                            "coin first", "dial tone first", "multi-party"};
    return nameIn(names, code);
}

const char* dialPlanFormatName(std::uint8_t format)
{
    static constexpr const char* names[] = {"not defined", "H.248", "NCS", "vendor specific"};
    return nameIn(names, format);
}

const char* signallingProtocolName(std::uint8_t protocol)
{
    constexpr std::uint8_t elsewhere = 255;
    static constexpr const char* names[] = {"none", "SIP", "H.248", "MGCP"};
    return protocol == elsewhere ? "selected outside of OMCI" : nameIn(names, protocol);
}

const char* voiceServerStatusName(std::uint8_t status)
{
    static constexpr const char* names[] = {"none",
                                            "registered",
                                            "in session",
                                            "registration failed: ICMP error",
                                            "registration failed: TCP",
                                            "registration failed: authentication",
                                            "registration failed: time-out",
                                            "registration failed: server",
                                            "invite failed: ICMP error",
                                            "invite failed: TCP",
                                            "invite failed: authentication",
                                            "invite failed: time-out",
                                            "invite failed: server",
                                            "port not configured",
                                            "configured",
                                            "disabled by switch"};
    return nameIn(names, status);
}

const char* portSessionName(std::uint8_t session)
{
    static constexpr const char* names[] = {"none", "two-way", "three-way", "fax or modem", "telemetry", "conference"};
    return nameIn(names, session);
}

const char* lineStateName(std::uint8_t state)
{
    static constexpr const char* names[] = {"idle, on hook",     "dial tone",     "dialling",
                                            "ringing",           "ringback",      "connecting",
                                            "connected",         "disconnecting", "off hook without tone",
                                            "off hook with tone"};
    return nameIn(names, state);
}

const char* transportName(std::uint8_t protocol)
{
    constexpr std::uint8_t tcp = 6;
    constexpr std::uint8_t udp = 17;
    switch (protocol) {
    case tcp:
        return "TCP";
    case udp:
        return "UDP";
    default:
        return kUnknown;
    }
}

}  // namespace omci
