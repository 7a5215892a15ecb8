#ifndef OLT_MODEL_VALUE_H
#define OLT_MODEL_VALUE_H

// Attribute values between text, JSON and the wire.

#include "model/Catalogue.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace olt {

/// Big-endian number of up to 8 octets.
[[nodiscard]] std::uint64_t bigEndian(const std::uint8_t* data, std::size_t size);
/// `size` octets, most significant first.
[[nodiscard]] Bytes bigEndianBytes(std::uint64_t value, std::size_t size);

/// The octets of a value as a user types it, exactly as long as the attribute, network order. Numbers: decimal, 0x, a
/// state by its word, dotted IPv4 for 4 octets. Octets and table rows: 0x and hexadecimal digits, or text (text:...
/// forces text), both filled with zeros at the end; IPv4, IPv6, MAC and serial number forms where the attribute is one.
/// Throws UsageError when the value doesn't fit, naming the attribute and what would fit.
[[nodiscard]] Bytes parseValue(const Attribute& attribute, std::string_view text);

/// The octets of 0x and hexadecimal digits, or of a text (text:... forces text), as many as there are. Throws
/// UsageError that begins with `name` for broken digits.
[[nodiscard]] Bytes parseFreeOctets(std::string_view name, std::string_view text);

/// For people: numbers in decimal, states with their word, octets in their form, as quoted text or as 0x digits.
[[nodiscard]] std::string formatValue(const Attribute& attribute, const Bytes& value);

/// Quoted text when all octets are printable (apart from padding at the end), else 0x digits.
[[nodiscard]] std::string formatOctets(const Bytes& value);

/// For programs: numbers as numbers, octets and rows as "0x..." of the full size.
[[nodiscard]] nlohmann::ordered_json jsonValue(const Attribute& attribute, const Bytes& value);

/// The inverse of jsonValue. Throws UsageError when the JSON isn't a value of this attribute.
[[nodiscard]] Bytes valueFromJson(const Attribute& attribute, const nlohmann::ordered_json& value);

}  // namespace olt

#endif
