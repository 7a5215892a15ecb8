#ifndef OLT_DECODE_DESCRIPTION_H
#define OLT_DECODE_DESCRIPTION_H

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/FrameCodec.h"
#include "model/AttributeValues.h"

namespace olt {

/// Values of one entity inside a message.
struct EntityValues
{
    const EntityClass* entityClass = nullptr;  ///< Owned by the catalogue.
    std::uint16_t instance = 0;
    AttributeValues values;
    std::vector<unsigned> alarms;  ///< Raised ones, in alarm messages.
};

/// What a frame says, in the catalogue's words. Reading is lenient: contents that are too short or unknown are left
/// out and said to be so.
struct Description
{
    omci::FrameHeader header;
    EntityValues entity;                 ///< Whom the message is about, and the values it carries.
    std::optional<omci::Result> result;  ///< Responses that have one.
    std::uint16_t asked = 0;             ///< Attributes that a request names.
    std::uint16_t unsupported = 0;
    std::uint16_t failed = 0;
    nlohmann::ordered_json details = nlohmann::ordered_json::object();  ///< Fields of this message type alone.
    std::vector<EntityValues> listed;  ///< Entities in an answer to MIB upload next or get all alarms next.
    bool cutOff = false;               ///< The contents end too early.
};

[[nodiscard]] Description describe(const Catalogue& catalogue, const omci::FrameView& frame);

/// "get request", "set response", "alarm".
[[nodiscard]] std::string messageName(const omci::FrameHeader& header);

/// One object for programs: names, numbers, and values as jsonValue has them.
[[nodiscard]] nlohmann::ordered_json toJson(const Description& description);

/// One line for people, without transaction id and direction.
[[nodiscard]] std::string toText(const Description& description);

/// One field of Description::details for people, as label and value: "received power", "10 dBu".
struct DetailWords
{
    std::string label;
    std::string value;
};
[[nodiscard]] DetailWords detailWords(const std::string& key, const nlohmann::ordered_json& value);

/// Attribute names with values for programs.
[[nodiscard]] nlohmann::ordered_json valuesToJson(const EntityClass& entity, const AttributeValues& values);

/// "low received optical power (0)", or "alarm 17".
[[nodiscard]] std::string alarmText(std::uint16_t entityClass, unsigned number);

/// Numbers and, where known, names.
[[nodiscard]] nlohmann::ordered_json alarmsToJson(std::uint16_t entityClass, const std::vector<unsigned>& numbers);

}  // namespace olt

#endif
