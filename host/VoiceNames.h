#ifndef HOST_VOICE_NAMES_H
#define HOST_VOICE_NAMES_H

#include <cstdint>

/// What the numbers in the voice entities mean, in words for people, as G.988 9.9 has them: shared by ONU and OLT.
/// Static texts; "unknown" for a number that G.988 does not give.
namespace omci {

/// Codec selection of the VoIP media profile (9.9.5) and codec used of the VoIP line status (9.9.11).
const char* codecName(std::uint8_t codec);
/// Fax mode of the VoIP media profile.
const char* faxModeName(std::uint8_t mode);
/// Signalling code of the VoIP voice CTP (9.9.4).
const char* signallingCodeName(std::uint8_t code);
/// Dial plan format of the network dial plan table (9.9.10).
const char* dialPlanFormatName(std::uint8_t format);
/// Signalling protocol of the VoIP config data (9.9.18).
const char* signallingProtocolName(std::uint8_t protocol);

/// @name VoIP line status (9.9.11)
/// @{

/// Server status: what registration at the voice server has come to.
const char* voiceServerStatusName(std::uint8_t status);
/// Port session type: what the call on the line is.
const char* portSessionName(std::uint8_t session);
/// Line state: what is to be heard on the line.
const char* lineStateName(std::uint8_t state);
/// @}

/// Transport of the TCP/UDP config data (9.4.3): the protocol number of IP.
const char* transportName(std::uint8_t protocol);

}  // namespace omci

#endif
