#ifndef OLT_MODEL_PARTED_TEXT_H
#define OLT_MODEL_PARTED_TEXT_H

// Text that is spread over parts of 25 octets: large string (G.988 9.12.5, class 157) and octet string (9.12.11, 307).

#include <optional>
#include <string>
#include <string_view>

#include "model/AttributeValues.h"

namespace olt {

/// The name under which commands take and show the parts in one.
constexpr std::string_view kWholeText = "Text";
constexpr std::size_t kLongestText = 375;

/// Whether the class is one of the two.
[[nodiscard]] bool holdsText(const EntityClass& entity);
/// Whether the name, in any case, is that of all parts in one.
[[nodiscard]] bool isWholeText(const EntityClass& entity, std::string_view name);

/// The attributes that make the text, as parseFreeOctets reads it: number of parts or length, and as many parts as it
/// needs, the last filled with zeros. Throws UsageError when it is too long.
[[nodiscard]] std::vector<AttributeValue> splitText(const EntityClass& entity, std::string_view text);

/// The octets of the text: of a large string each part up to its first zero, of an octet string as many as it has.
/// None when a part that belongs to it is not among the values.
[[nodiscard]] std::optional<Bytes> joinText(const EntityClass& entity, const std::vector<AttributeValue>& values);

/// The parts that belong to a text whose first attribute (number of parts, length) has that value.
[[nodiscard]] std::vector<const Attribute*> partsOfText(const EntityClass& entity, const Bytes& first);

/// As a program wants it: the text where all of it is printable, else 0x and digits.
[[nodiscard]] std::string plainText(const Bytes& octets);

}  // namespace olt

#endif
