#ifndef NRVK_IMPL_HEX_TEXT_H
#define NRVK_IMPL_HEX_TEXT_H

#include <algorithm>
#include <array>
#include <cstddef>

namespace nrvk {

/// Bytes as hexadecimal text for a log line, without the heap. What is longer than an OMCI message is cut.
class HexText
{
public:
    HexText(const unsigned char* bytes, std::size_t length)
    {
        constexpr const char* digits = "0123456789abcdef";
        char* out = m_Text.data();
        for (std::size_t i = 0; i < std::min(length, kLongest); ++i) {
            *out++ = digits[bytes[i] >> 4];
            *out++ = digits[bytes[i] & 0xF];
        }
        *out = '\0';
    }

    const char* get() const { return m_Text.data(); }

private:
    static constexpr std::size_t kLongest = 1980;

    std::array<char, 2 * kLongest + 1> m_Text;
};

}  // namespace nrvk

#endif
