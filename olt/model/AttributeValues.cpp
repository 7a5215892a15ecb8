#include "model/AttributeValues.h"

namespace olt {

AttributeValues splitValues(const EntityClass& entity, std::uint16_t mask, const std::uint8_t* data, std::size_t size)
{
    AttributeValues result;
    std::size_t at = 0;
    for (unsigned shift = 0; shift < 16; ++shift) {
        const auto bit = static_cast<std::uint16_t>(0x8000U >> shift);
        if ((mask & bit) == 0)
            continue;
        const Attribute* const attribute = entity.attributeOfMask(bit);
        if (!attribute || attribute->size == 0) {
            result.undecoded = static_cast<std::uint16_t>(mask & (0xFFFFU >> shift));
            break;
        }
        const std::size_t length = attribute->sizeInGet();
        if (at + length > size) {
            result.missing = static_cast<std::uint16_t>(mask & (0xFFFFU >> shift));
            break;
        }
        result.values.push_back({attribute, Bytes(data + at, data + at + length)});
        at += length;
    }
    if (result.undecoded != 0 || result.missing != 0)
        result.rest.assign(data + at, data + size);
    return result;
}

std::vector<std::uint16_t> splitMask(const std::vector<const Attribute*>& attributes, std::size_t capacity)
{
    std::vector<std::uint16_t> masks;
    std::size_t room = 0;
    for (const Attribute* const attribute : attributes) {
        const std::size_t needed = attribute->size == 0 ? capacity : attribute->sizeInGet();
        if (masks.empty() || needed > room) {
            masks.push_back(0);
            room = capacity;
        }
        masks.back() = static_cast<std::uint16_t>(masks.back() | attribute->mask);
        room = needed >= room ? 0 : room - needed;
    }
    return masks;
}

}  // namespace olt
