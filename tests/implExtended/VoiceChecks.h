#ifndef NRVK_TESTS_IMPL_EXTENDED_VOICE_CHECKS_H
#define NRVK_TESTS_IMPL_EXTENDED_VOICE_CHECKS_H

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// A one-byte attribute of a voice entity that is checked on its set: what it takes, and what it says when it refuses.
struct VoiceCheck
{
    const char* attribute;
    unsigned short classId;
    unsigned short mask;
    std::vector<std::pair<int, int>> accepted;
    /// With the value's place marked by '#'.
    std::string refusal;
    unsigned char level = 3;

    bool accepts(int value) const
    {
        return std::any_of(accepted.begin(), accepted.end(),
                           [value](const auto& range) { return value >= range.first && value <= range.second; });
    }

    std::string refusalOf(int value) const
    {
        std::string text = refusal;
        return text.replace(text.find('#'), 1, std::to_string(value));
    }
};

inline void PrintTo(const VoiceCheck& check, std::ostream* stream)
{
    *stream << check.attribute;
}

inline const VoiceCheck voiceChecks[] = {
    {"PotsAdministrativeState", 53, 0x8000, {{0, 2}}, "Invalid administrative state(#)"},
    {"PotsImpedence", 53, 0x0800, {{0, 4}}, "Invalid impedance (#)"},
    {"SignallingProtocolUsed", 138, 0x4000, {{0, 3}, {255, 255}}, "Invalid signalling protocol(#)"},
    {"VoipConfigurationMethodUsed", 138, 0x1000, {{0, 4}}, "Unsupported Voip Configuration Method (#)"},
    {"SignallingCode", 139, 0x1000, {{1, 6}}, "Invalid SIGNALLING CODE (#)", 6},
    {"FaxMode", 142, 0x8000, {{0, 1}}, "Invalid Fax Mode(#)"},
    {"CodecSelectionFirstOrder", 142, 0x2000, {{0, 18}}, "Invalid 1st order Codec selection(#)"},
    {"PacketPeriodSelectionFirstOrder", 142, 0x1000, {{10, 30}}, "Invalid 1st order Packet Period selection (#)"},
    {"SilenceSuppressionFirstOrder", 142, 0x0800, {{0, 1}}, "Invalid Silence Suppression 1st order(#)"},
    {"CodecSelectionSecondOrder", 142, 0x0400, {{0, 18}}, "Invalid 2nd order Codec selection(#)"},
    {"PacketPeriodSelectionSecondOrder", 142, 0x0200, {{10, 30}}, "Invalid 2nd order Packet Period selection (#)"},
    {"SilenceSuppressionSecondOrder", 142, 0x0100, {{0, 1}}, "Invalid Silence Suppression 2nd order(#)"},
    {"CodecSelectionThirdOrder", 142, 0x0080, {{0, 18}}, "Invalid 3rd order Codec selection(#)"},
    {"PacketPeriodSelectionThirdOrder", 142, 0x0040, {{10, 30}}, "Invalid 3rd order Packet Period selection (#)"},
    {"SilenceSuppressionThirdOrder", 142, 0x0020, {{0, 1}}, "Invalid Silence Suppression 3rd order(#)"},
    {"CodecSelectionFourthOrder", 142, 0x0010, {{0, 18}}, "Invalid 4th order Codec selection(#)"},
    {"PacketPeriodSelectionFourthOrder", 142, 0x0008, {{10, 30}}, "Invalid 4th order Packet Period selection (#)"},
    {"SilenceSuppressionFourthOrder", 142, 0x0004, {{0, 1}}, "Invalid Silence Suppression 4th order(#)"},
    {"OobDtmf", 142, 0x0002, {{0, 1}}, "Invalid oob Dtmf(#)"},
    {"AnnouncementType", 58, 0x8000, {{1, 4}, {255, 255}}, "Invalid Announcement Type config(#)"},
    {"EchoCancelInd", 58, 0x1000, {{0, 1}}, "Invalid Echo Cancel Ind Type (#)"},
    {"PiggybackEvents", 143, 0x1000, {{0, 1}}, "Invalid piggybackEvents state(#)"},
    {"ToneEvents", 143, 0x0800, {{0, 1}}, "Invalid Tone Events state(#)"},
    {"DtmfEvents", 143, 0x0400, {{0, 1}}, "Invalid DTMF Events state(#)"},
    {"CasEvents", 143, 0x0200, {{0, 1}}, "Invalid CAS Events state(#)"},
};

#endif
