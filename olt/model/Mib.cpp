#include "model/Mib.h"

#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Names.h"
#include "model/Value.h"

namespace olt {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "omci-mib";
constexpr int kVersion = 1;

std::string maskText(std::uint16_t mask)
{
    return "0x" + toHex(bigEndianBytes(mask, 2));
}

Json entityToJson(const MibEntity& entity)
{
    Json attributes = Json::object();
    for (const auto& [number, value] : entity.values) {
        const Attribute* const attribute =
            entity.entityClass->attributeOfMask(static_cast<std::uint16_t>(0x8000U >> (number - 1)));
        if (attribute)
            attributes[attribute->name] = jsonValue(*attribute, value);
    }
    Json json{{"class", entity.entityClass->id},
              {"name", entity.entityClass->shortName},
              {"instance", entity.instance},
              {"attributes", std::move(attributes)}};
    for (const auto& [mask, bytes] : entity.undecoded)
        json["undecoded"][maskText(mask)] = "0x" + toHex(bytes);
    return json;
}

void readUndecoded(const Json& json, std::map<std::uint16_t, Bytes>& undecoded)
{
    for (const auto& [mask, bytes] : json.items()) {
        const auto number = parseUnsigned(mask);
        const auto octets = fromHex(bytes.get<std::string>());
        if (!number || *number > 0xFFFF || !octets)
            throw UsageError("\"undecoded\" holds " + mask + ": " + bytes.dump() + "; a mask and octets are expected");
        undecoded[static_cast<std::uint16_t>(*number)] = *octets;
    }
}

}  // namespace

MibEntity& Mib::entityAt(const EntityClass& entity, std::uint16_t instance)
{
    MibEntity& found = m_Entities[{entity.id, instance}];
    found.entityClass = &entity;
    found.instance = instance;
    return found;
}

void Mib::add(const EntityClass& entity, std::uint16_t instance, std::uint16_t mask, const std::uint8_t* data,
              std::size_t size)
{
    MibEntity& target = entityAt(entity, instance);
    auto split = splitValues(entity, mask, data, size);
    for (auto& value : split.values)
        target.values[value.attribute->number] = std::move(value.value);
    const auto open = static_cast<std::uint16_t>(split.undecoded | split.missing);
    if (open != 0)
        target.undecoded[open] = std::move(split.rest);
}

Json Mib::toJson() const
{
    Json entities = Json::array();
    for (const auto& [key, entity] : m_Entities)
        entities.push_back(entityToJson(entity));
    return Json{{"format", kFormat}, {"version", kVersion}, {"entities", std::move(entities)}};
}

Mib Mib::fromJson(const Catalogue& catalogue, const Json& json)
{
    if (!json.is_object() || json.value("format", "") != kFormat)
        throw UsageError("isn't a saved MIB (\"format\": \"omci-mib\" is missing)");
    if (json.value("version", 0) != kVersion)
        throw UsageError("is a saved MIB of another version than " + std::to_string(kVersion));
    Mib mib;
    std::size_t index = 0;
    const Json entities = json.value("entities", Json::array());
    for (const auto& object : entities) {
        const std::string where = "entity " + std::to_string(++index) + ": ";
        try {
            const auto& entity = catalogue.ofNumber(object.at("class").get<std::uint16_t>());
            MibEntity& target = mib.entityAt(entity, object.at("instance").get<std::uint16_t>());
            for (const auto& [name, value] : object.at("attributes").items()) {
                const Attribute& attribute = entity.attribute(name);
                target.values[attribute.number] = valueFromJson(attribute, value);
            }
            const Json undecoded = object.value("undecoded", Json::object());
            readUndecoded(undecoded, target.undecoded);
        } catch (const std::exception& error) {
            throw UsageError(where + error.what());
        }
    }
    return mib;
}

}  // namespace olt
