#include "model/Catalogue.h"

#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Names.h"
#include "model/VlanRow.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace olt {

namespace {

using nlohmann::json;

constexpr unsigned kSetByCreate = 1;
constexpr unsigned kRead = 2;
constexpr unsigned kWrite = 4;
constexpr unsigned kUpload = 8;

Kind kindOf(const std::string& type)
{
    constexpr std::array<std::string_view, 8> names{"u8", "u16", "u32", "u64", "s8", "s16", "octets", "table"};
    const auto found = std::find(names.begin(), names.end(), type);
    if (found == names.end())
        throw std::runtime_error("catalogue: unknown kind \"" + type + "\"");
    return static_cast<Kind>(found - names.begin());
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// The catalogue knows octets only; what they mean to a reader shows in the name and the size.
Form formOf(const Attribute& attribute)
{
    if (attribute.kind != Kind::Octets)
        return Form::Plain;
    const std::string name = foldName(attribute.name);
    const auto has = [&name](std::string_view part) { return name.find(part) != std::string::npos; };
    const bool network = has("address") || has("dns") || has("gateway") || endsWith(name, "mask");
    if (attribute.size == 6 && has("mac"))
        return Form::Mac;
    if (attribute.size == 4 && network)
        return Form::Ipv4;
    if (attribute.size == 16 && (has("ipv6") || has("dns")))
        return Form::Ipv6;
    if (attribute.size == 8 && has("serialnumber"))
        return Form::SerialNumber;
    return Form::Plain;
}

Attribute readAttribute(const json& object)
{
    Attribute attribute;
    attribute.name = object.at("name").get<std::string>();
    attribute.mask = object.at("mask").get<std::uint16_t>();
    for (unsigned number = 1; number <= 16; ++number) {
        if (attribute.mask == (0x8000U >> (number - 1)))
            attribute.number = number;
    }
    attribute.size = object.at("size").get<std::size_t>();
    attribute.kind = kindOf(object.at("type").get<std::string>());
    const auto flags = object.at("flags").get<unsigned>();
    attribute.setByCreate = (flags & kSetByCreate) != 0;
    attribute.readable = (flags & kRead) != 0;
    attribute.writable = (flags & kWrite) != 0;
    attribute.uploaded = (flags & kUpload) != 0 && !attribute.isTable();
    attribute.form = formOf(attribute);
    attribute.defaultValue = fromHex(object.at("default").get<std::string>()).value_or(Bytes{});
    attribute.defaultValue.resize(attribute.sizeInGet());
    return attribute;
}

/// Rows of bits that no name tells apart.
Form formOfVlan(std::uint16_t entityClass, const Attribute& attribute)
{
    if (entityClass == 171 && attribute.number == 6 && attribute.size == kVlanRowSize)
        return Form::VlanRow;
    return entityClass == 84 && attribute.number == 1 ? Form::VlanFilterList : attribute.form;
}

EntityClass readClass(const json& object)
{
    EntityClass entity;
    entity.id = object.at("class").get<std::uint16_t>();
    entity.shortName = object.at("short_name").get<std::string>();
    entity.title = object.at("entity").get<std::string>();
    for (const auto& attribute : object.at("attributes")) {
        entity.attributes.push_back(readAttribute(attribute));
        entity.attributes.back().form = formOfVlan(entity.id, entity.attributes.back());
        const bool defined = attribute.at("has_definition").get<bool>();
        if (defined && entity.attributes.back().readable)
            entity.readableMask = static_cast<std::uint16_t>(entity.readableMask | entity.attributes.back().mask);
    }
    return entity;
}

EntityClass unknownClass(std::uint16_t id)
{
    EntityClass entity;
    entity.id = id;
    entity.shortName = "Class" + std::to_string(id);
    entity.title = "unknown class";
    entity.readableMask = 0xFFFF;
    entity.known = false;
    for (unsigned number = 1; number <= 16; ++number) {
        Attribute attribute;
        attribute.name = "Attribute" + std::to_string(number);
        attribute.number = number;
        attribute.mask = static_cast<std::uint16_t>(0x8000U >> (number - 1));
        attribute.readable = true;
        attribute.writable = true;
        entity.attributes.push_back(std::move(attribute));
    }
    return entity;
}

}  // namespace

const Attribute& EntityClass::attribute(std::string_view nameOrNumber) const
{
    if (const auto number = parseUnsigned(nameOrNumber)) {
        for (const auto& candidate : attributes) {
            if (candidate.number == *number)
                return candidate;
        }
        throw UsageError(label() + " has no attribute " + std::string(nameOrNumber) + "; it has 1 to " +
                         std::to_string(attributes.size()));
    }
    const std::string wanted = foldName(nameOrNumber);
    std::vector<std::string> names;
    for (const auto& candidate : attributes) {
        if (foldName(candidate.name) == wanted)
            return candidate;
        names.push_back(candidate.name);
    }
    throw UsageError(label() + " has no attribute \"" + std::string(nameOrNumber) + "\"" +
                     didYouMean(nameOrNumber, names) + " (omci-olt classes " + shortName + " lists them)");
}

const Attribute* EntityClass::attributeOfMask(std::uint16_t bit) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(), [bit](const auto& a) { return a.mask == bit; });
    return found == attributes.end() ? nullptr : &*found;
}

std::vector<std::string> EntityClass::attributeNames(std::uint16_t mask) const
{
    std::vector<std::string> names;
    for (unsigned number = 1; number <= 16; ++number) {
        const auto bit = static_cast<std::uint16_t>(0x8000U >> (number - 1));
        if ((mask & bit) == 0)
            continue;
        const Attribute* const found = attributeOfMask(bit);
        names.push_back(found ? found->name : "attribute " + std::to_string(number));
    }
    return names;
}

std::vector<const Attribute*> EntityClass::readableAttributes() const
{
    std::vector<const Attribute*> readable;
    for (const auto& attribute : attributes) {
        if ((readableMask & attribute.mask) != 0)
            readable.push_back(&attribute);
    }
    return readable;
}

std::string EntityClass::label() const
{
    return known ? shortName + " (" + std::to_string(id) + ")" : "class " + std::to_string(id);
}

Catalogue::Catalogue(std::string_view text)
{
    const json catalogue = json::parse(text);
    for (const auto& object : catalogue.at("classes"))
        m_Classes.push_back(readClass(object));
    std::sort(m_Classes.begin(), m_Classes.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
}

const EntityClass* Catalogue::find(std::uint16_t id) const
{
    const auto found =
        std::lower_bound(m_Classes.begin(), m_Classes.end(), id,
                         [](const EntityClass& entity, std::uint16_t wanted) { return entity.id < wanted; });
    return found != m_Classes.end() && found->id == id ? &*found : nullptr;
}

const EntityClass& Catalogue::ofNumber(std::uint16_t id) const
{
    if (const EntityClass* const found = find(id))
        return *found;
    for (const auto& entity : m_Unknown) {
        if (entity.id == id)
            return entity;
    }
    return m_Unknown.emplace_back(unknownClass(id));
}

const EntityClass& Catalogue::lookUp(std::string_view nameOrNumber) const
{
    if (const auto number = parseUnsigned(nameOrNumber)) {
        if (*number > 0xFFFF)
            throw UsageError("class " + std::string(nameOrNumber) + " is out of range; classes are 0 to 65535");
        return ofNumber(static_cast<std::uint16_t>(*number));
    }
    const std::string wanted = foldName(nameOrNumber);
    std::vector<std::string> names;
    for (const auto& entity : m_Classes) {
        if (foldName(entity.shortName) == wanted)
            return entity;
        names.push_back(entity.shortName);
    }
    // A title may fold to the short name of another class, so that all short names go first.
    for (const auto& entity : m_Classes) {
        if (foldName(entity.title) == wanted)
            return entity;
    }
    throw UsageError("unknown class \"" + std::string(nameOrNumber) + "\"" + didYouMean(nameOrNumber, names) +
                     " (omci-olt classes lists them)");
}

}  // namespace olt
