#ifndef TESTS_HOST_HEX_H
#define TESTS_HOST_HEX_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// Bytes of a hexadecimal text; blanks are allowed between octets.
inline Bytes fromHex(const std::string& text)
{
    Bytes bytes;
    std::string digits;
    for (const char c : text) {
        if (c == ' ') {
            continue;
        }
        digits += c;
        if (digits.size() == 2) {
            bytes.push_back(static_cast<std::uint8_t>(std::stoul(digits, nullptr, 16)));
            digits.clear();
        }
    }
    return bytes;
}

inline std::string toHex(const std::uint8_t* bytes, std::size_t length)
{
    static const char digits[] = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text;
}

inline std::string toHex(const Bytes& bytes)
{
    return toHex(bytes.data(), bytes.size());
}

#endif
