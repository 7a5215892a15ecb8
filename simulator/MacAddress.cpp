#include "MacAddress.h"

#include <algorithm>
#include <cctype>

std::optional<MacAddress> parseMacAddress(const std::string& text)
{
    constexpr std::size_t digitCount = 12;
    constexpr std::size_t separatedLength = 17;
    std::string digits = text;
    if (text.size() == separatedLength) {
        digits.clear();
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isSeparatorPlace = i % 3 == 2;
            if (isSeparatorPlace && text[i] != ':' && text[i] != '-') {
                return std::nullopt;
            }
            digits += isSeparatorPlace ? "" : text.substr(i, 1);
        }
    }
    const auto isHexDigit = [](char digit) { return std::isxdigit(static_cast<unsigned char>(digit)) != 0; };
    if (digits.size() != digitCount || !std::all_of(digits.begin(), digits.end(), isHexDigit)) {
        return std::nullopt;
    }
    MacAddress address{};
    for (std::size_t i = 0; i < address.size(); ++i) {
        address[i] = static_cast<unsigned char>(std::stoul(digits.substr(i * 2, 2), nullptr, 16));
    }
    return address;
}

std::string toString(const MacAddress& address)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : address) {
        text += text.empty() ? "" : ":";
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}
