#ifndef OLT_MODEL_ATTRIBUTE_VALUES_H
#define OLT_MODEL_ATTRIBUTE_VALUES_H

// Several attribute values after one another, as Get, MIB upload and attribute value change carry them.

#include "model/Catalogue.h"

namespace olt {

struct AttributeValue
{
    const Attribute* attribute = nullptr;  ///< Owned by the catalogue.
    Bytes value;                           ///< Network order; for a table that was got, the four octets of its size.
};

/// What a mask and the octets behind it hold.
struct AttributeValues
{
    std::vector<AttributeValue> values;  ///< In attribute order.
    std::uint16_t undecoded = 0;         ///< Attributes that the catalogue can't tell apart.
    Bytes rest;                          ///< Their octets, and whatever else follows.
    std::uint16_t missing = 0;           ///< Attributes in the mask whose octets are cut off.
};

/// Take the values of a mask apart. Reading is lenient: what the catalogue doesn't know ends the walk and is kept as it
/// is.
[[nodiscard]] AttributeValues splitValues(const EntityClass& entity, std::uint16_t mask, const std::uint8_t* data,
                                          std::size_t size);

/// The masks that cover `attributes` in order so that the values of each take at most `capacity` octets. An attribute
/// that exceeds the capacity alone, or whose size isn't known, has a mask of its own.
[[nodiscard]] std::vector<std::uint16_t> splitMask(const std::vector<const Attribute*>& attributes,
                                                   std::size_t capacity);

}  // namespace olt

#endif
