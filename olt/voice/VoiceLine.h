#ifndef OLT_VOICE_VOICE_LINE_H
#define OLT_VOICE_VOICE_LINE_H

#include <nlohmann/json.hpp>

#include "terminal/Table.h"
#include "voice/EntityReader.h"

namespace olt {

/// Whether passwords are part of what is shown.
enum class Secrets
{
    Hidden,
    Shown
};

constexpr std::uint16_t kClassPotsUni = 53;
constexpr std::uint16_t kClassVoiceCtp = 139;

/// A line as its VoIP voice CTP has it: what each pointer leads to stands in its place, null where it leads to nothing,
/// and "dangling" has the pointers to entities that do not exist.
[[nodiscard]] nlohmann::ordered_json describeLine(EntityReader& reader, const ReadEntity& voiceCtp, Secrets secrets);

/// The same for people: a label and a text a row.
[[nodiscard]] Table lineTable(const nlohmann::ordered_json& line);

}  // namespace olt

#endif
