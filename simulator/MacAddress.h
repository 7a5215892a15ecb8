#ifndef SIMULATOR_MAC_ADDRESS_H
#define SIMULATOR_MAC_ADDRESS_H

#include <array>
#include <optional>
#include <string>

using MacAddress = std::array<unsigned char, 6>;

/// Reads "00:11:22:33:44:55", with dashes instead of colons, or 12 hexadecimal digits.
std::optional<MacAddress> parseMacAddress(const std::string& text);
/// "00:11:22:33:44:55".
std::string toString(const MacAddress& address);

#endif
