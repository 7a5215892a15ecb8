#ifndef SIMULATOR_HARDWARE_PHONE_LINE_H
#define SIMULATOR_HARDWARE_PHONE_LINE_H

#include "Json.h"

class OmciMeSipAgentConfigDataIf;
class OmciMeVoipVoiceCTPIf;

/// Where a pointer leads to nothing.
inline constexpr unsigned short kNoEntity = 0xFFFF;

/// What a VoIP voice CTP (G.988 9.9.4) leads to, as it stands in the MIB when it is read: the SIP user, its agent, the
/// texts behind their pointers, dial plan and media profile.
struct PhoneLine
{
    unsigned short voiceCtp = kNoEntity;
    unsigned short potsPort = kNoEntity;
    unsigned short user = kNoEntity;
    unsigned short agent = kNoEntity;
    unsigned short mediaProfile = kNoEntity;
    /// First choice of the media profile.
    unsigned char codec = 0;
    /// All of it in words. Passwords are not among them, only whether there is one. "dangling" lists the pointers to
    /// entities that do not exist.
    Json description;

    /// Whether the phone can register: port, user, agent and media profile exist.
    bool isComplete() const
    {
        return potsPort != kNoEntity && user != kNoEntity && agent != kNoEntity && mediaProfile != kNoEntity;
    }
};

/// Follows every pointer, and none into the void: 65535 is no pointer, nor is 0 where no instance 0 exists; what else
/// leads nowhere is listed. On the OMCI thread. Asks no hardware.
PhoneLine readPhoneLine(const OmciMeVoipVoiceCTPIf& voiceCtp);

/// The agent alone, as it stands under "agent" in a line's description.
Json describeSipAgent(const OmciMeSipAgentConfigDataIf& agent);

#endif
