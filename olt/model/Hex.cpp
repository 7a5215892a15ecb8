#include "model/Hex.h"

namespace olt {

namespace {

std::optional<unsigned> digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned>(c - 'a') + 10;
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned>(c - 'A') + 10;
    return std::nullopt;
}

bool isSeparator(char c)
{
    return c == ' ' || c == ':' || c == '-' || c == '\t';
}

}  // namespace

std::string toHex(const std::uint8_t* data, std::size_t size)
{
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * size);
    for (std::size_t i = 0; i < size; ++i) {
        text += kDigits[data[i] >> 4];
        text += kDigits[data[i] & 0xF];
    }
    return text;
}

std::string toHex(const std::vector<std::uint8_t>& bytes)
{
    return toHex(bytes.data(), bytes.size());
}

std::optional<std::vector<std::uint8_t>> fromHex(std::string_view text)
{
    if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X")
        text.remove_prefix(2);
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isSeparator(text[i]))
            continue;
        const auto high = digitValue(text[i]);
        const auto low = i + 1 < text.size() ? digitValue(text[i + 1]) : std::nullopt;
        if (!high || !low)
            return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
        ++i;
    }
    return bytes;
}

}  // namespace olt
