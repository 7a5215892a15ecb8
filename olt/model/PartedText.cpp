#include "model/PartedText.h"

#include <algorithm>

#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Names.h"
#include "model/Value.h"

namespace olt {

namespace {

constexpr std::uint16_t kLargeString = 157;
constexpr std::uint16_t kOctetString = 307;
constexpr std::size_t kPartSize = 25;
constexpr std::size_t kParts = kLongestText / kPartSize;

/// What the first attribute says: parts of a large string, octets of an octet string.
std::size_t partsFor(std::size_t octets)
{
    return (octets + kPartSize - 1) / kPartSize;
}

/// How many parts a first attribute of that value claims; no more than there are.
std::size_t claimedParts(const EntityClass& entity, const Bytes& first)
{
    const auto number = static_cast<std::size_t>(bigEndian(first.data(), first.size()));
    return std::min(entity.id == kLargeString ? number : partsFor(number), kParts);
}

const AttributeValue* find(const std::vector<AttributeValue>& values, const Attribute& attribute)
{
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const AttributeValue& value) { return value.attribute == &attribute; });
    return found == values.end() ? nullptr : &*found;
}

}  // namespace

bool holdsText(const EntityClass& entity)
{
    return entity.id == kLargeString || entity.id == kOctetString;
}

bool isWholeText(const EntityClass& entity, std::string_view name)
{
    return holdsText(entity) && foldName(name) == foldName(kWholeText);
}

std::vector<AttributeValue> splitText(const EntityClass& entity, std::string_view text)
{
    const Bytes octets = parseFreeOctets(kWholeText, text);
    if (octets.size() > kLongestText)
        throw UsageError(std::string(kWholeText) + " of " + entity.label() + " has " + std::to_string(octets.size()) +
                         " octets; " + std::to_string(kLongestText) + " fit");
    const std::size_t parts = partsFor(octets.size());
    const Attribute& first = entity.attributes.front();
    std::vector<AttributeValue> values{
        {&first, bigEndianBytes(entity.id == kLargeString ? parts : octets.size(), first.size)}};
    for (std::size_t part = 0; part < parts; ++part) {
        const std::size_t at = part * kPartSize;
        const std::size_t end = std::min(at + kPartSize, octets.size());
        Bytes value(octets.begin() + static_cast<std::ptrdiff_t>(at),
                    octets.begin() + static_cast<std::ptrdiff_t>(end));
        value.resize(kPartSize);
        values.push_back({&entity.attributes.at(part + 1), std::move(value)});
    }
    return values;
}

std::vector<const Attribute*> partsOfText(const EntityClass& entity, const Bytes& first)
{
    std::vector<const Attribute*> parts;
    for (std::size_t part = 0; part < claimedParts(entity, first); ++part)
        parts.push_back(&entity.attributes.at(part + 1));
    return parts;
}

std::optional<Bytes> joinText(const EntityClass& entity, const std::vector<AttributeValue>& values)
{
    const AttributeValue* const first = holdsText(entity) ? find(values, entity.attributes.front()) : nullptr;
    if (!first)
        return std::nullopt;
    Bytes octets;
    for (const Attribute* const part : partsOfText(entity, first->value)) {
        const AttributeValue* const value = find(values, *part);
        if (!value)
            return std::nullopt;
        const auto begin = value->value.begin();
        const auto end = entity.id == kLargeString ? std::find(begin, value->value.end(), 0) : value->value.end();
        octets.insert(octets.end(), begin, end);
    }
    if (entity.id == kOctetString)
        octets.resize(std::min<std::size_t>(octets.size(), bigEndian(first->value.data(), first->value.size())));
    return octets;
}

std::string plainText(const Bytes& octets)
{
    const bool isPrintable =
        std::all_of(octets.begin(), octets.end(), [](auto octet) { return octet >= 0x20 && octet < 0x7F; });
    return isPrintable ? std::string(octets.begin(), octets.end()) : "0x" + toHex(octets);
}

}  // namespace olt
