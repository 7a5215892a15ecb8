#include "Json.h"

#include <cctype>

namespace {
int digitValue(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const int lower = std::tolower(static_cast<unsigned char>(digit));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string plainName(const std::string& name)
{
    std::string plain;
    for (const char character : name) {
        if (character != '_') {
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        }
    }
    return plain;
}
}  // namespace

std::string toHex(const unsigned char* bytes, std::size_t size)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(size * 2);
    for (std::size_t i = 0; i < size; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
    }
    return text;
}

std::string toHex(const std::vector<unsigned char>& bytes)
{
    return toHex(bytes.data(), bytes.size());
}

std::vector<unsigned char> fromHex(const std::string& digits)
{
    if (digits.size() % 2 != 0) {
        throw BadRequest("\"" + digits + "\" has an odd number of hexadecimal digits");
    }
    std::vector<unsigned char> bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = digitValue(digits[i]);
        const int low = digitValue(digits[i + 1]);
        if (high < 0 || low < 0) {
            throw BadRequest("\"" + digits + "\" is not hexadecimal");
        }
        bytes.push_back(static_cast<unsigned char>(high * 16 + low));
    }
    return bytes;
}

std::string toLine(const Json& json)
{
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string toText(const std::string& bytes)
{
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0 | (code >> 6));
            text += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return text;
}

bool isSameName(const std::string& left, const std::string& right)
{
    return plainName(left) == plainName(right);
}
