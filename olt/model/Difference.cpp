#include "model/Difference.h"

#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

/// Each part of an entity in words: attributes by name, and what the catalogue can't take apart by mask.
std::vector<std::pair<std::string, std::string>> partsOf(const MibEntity& entity)
{
    std::vector<std::pair<std::string, std::string>> parts;
    for (const auto& [number, value] : entity.values) {
        const auto* const attribute =
            entity.entityClass->attributeOfMask(static_cast<std::uint16_t>(0x8000U >> (number - 1)));
        parts.emplace_back(attribute->name, formatValue(*attribute, value));
    }
    for (const auto& [mask, octets] : entity.undecoded)
        parts.emplace_back("mask 0x" + toHex(bigEndianBytes(mask, 2)), "0x" + toHex(octets));
    return parts;
}

std::optional<std::string> findPart(const std::vector<std::pair<std::string, std::string>>& parts,
                                    const std::string& name)
{
    for (const auto& [candidate, text] : parts) {
        if (candidate == name)
            return text;
    }
    return std::nullopt;
}

void diffEntities(const MibEntity& before, const MibEntity& after, const Ignored& ignored,
                  std::vector<Difference>& differences)
{
    const Mib::Key key{before.entityClass->id, before.instance};
    const auto old = partsOf(before);
    const auto now = partsOf(after);
    const auto note = [&](const std::string& name) {
        const auto was = findPart(old, name);
        const auto is = findPart(now, name);
        if (was != is && !ignored.covers(key.first, name))
            differences.push_back({key, name, was, is});
    };
    for (const auto& [name, text] : old)
        note(name);
    for (const auto& [name, text] : now) {
        if (!findPart(old, name))
            note(name);
    }
}

}  // namespace

void Ignored::add(const Catalogue& catalogue, const std::string& text)
{
    const auto dot = text.find('.');
    const EntityClass& entity = catalogue.lookUp(text.substr(0, dot));
    const bool whole = dot == std::string::npos;
    m_Names.insert({entity.id, whole ? "" : entity.attribute(text.substr(dot + 1)).name});
}

bool Ignored::covers(std::uint16_t entityClass, const std::string& attribute) const
{
    return m_Names.count({entityClass, ""}) != 0 ||
           (!attribute.empty() && m_Names.count({entityClass, attribute}) != 0);
}

std::vector<Difference> diffMibs(const Mib& before, const Mib& after, const Ignored& ignored)
{
    std::vector<Difference> differences;
    std::set<Mib::Key> keys;
    for (const auto& [key, entity] : before.entities())
        keys.insert(key);
    for (const auto& [key, entity] : after.entities())
        keys.insert(key);
    for (const auto& key : keys) {
        const auto old = before.entities().find(key);
        const auto now = after.entities().find(key);
        const bool had = old != before.entities().end();
        const bool has = now != after.entities().end();
        if (had && has)
            diffEntities(old->second, now->second, ignored, differences);
        else if (!ignored.covers(key.first, ""))
            differences.push_back({key, "", had ? std::optional<std::string>("present") : std::nullopt,
                                   has ? std::optional<std::string>("present") : std::nullopt});
    }
    return differences;
}

}  // namespace olt
