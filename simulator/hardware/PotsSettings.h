#ifndef SIMULATOR_HARDWARE_POTS_SETTINGS_H
#define SIMULATOR_HARDWARE_POTS_SETTINGS_H

#include <optional>
#include <string>

#include "Json.h"

/// What the phone on a POTS port does, as the control socket says.
struct PotsSettings
{
    /// The call's progress; the numbers are those of the line state in the VoIP line status (G.988 9.9.11).
    enum class Call : unsigned char
    {
        Idle = 0,
        DialTone = 1,
        Dialling = 2,
        Ringing = 3,
        Ringback = 4,
        Connecting = 5,
        Connected = 6,
        Disconnecting = 7,
        ReceiverOffHook = 8,
        ReceiverOffHookTone = 9
    };

    Call call = Call::Idle;
    /// 0 enabled, 1 disabled; what the port reported last when not given.
    std::optional<unsigned char> operationalState;
    /// Port session type and server status of the line status; from call and line when not given.
    std::optional<unsigned char> session;
    std::optional<unsigned char> server;
    bool isEmergency = false;

    bool isOffHook() const { return call != Call::Idle && call != Call::Ringing; }
    const char* callName() const;

    /// Takes over the members of {"hook":0,"call":"connected","oper":0,"session":1,"server":1,"emergency":false}.
    /// Lifting the receiver of an idle phone gives dial tone, of a ringing one the call; hanging up ends everything.
    /// BadRequest, naming `what`, for a hook that does not fit the call.
    void apply(const Json& json, const std::string& what);

private:
    void lift();
};

#endif
