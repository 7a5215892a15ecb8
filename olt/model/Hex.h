#ifndef OLT_MODEL_HEX_H
#define OLT_MODEL_HEX_H

// Octets as hexadecimal text.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace olt {

/// Lower-case hexadecimal digits, two an octet, nothing between.
[[nodiscard]] std::string toHex(const std::uint8_t* data, std::size_t size);
[[nodiscard]] std::string toHex(const std::vector<std::uint8_t>& bytes);

/// The octets of a text of hexadecimal digits, with or without 0x in front; blanks, colons and dashes between octets
/// are skipped. None when there is anything else in it or half an octet.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> fromHex(std::string_view text);

}  // namespace olt

#endif
