#ifndef NRVK_IMPL_EXTENDED_HEX_TEXT_H
#define NRVK_IMPL_EXTENDED_HEX_TEXT_H

#include <cstddef>

namespace nrvk {

/// Octets as hexadecimal text for a log line, two digits each, without a heap allocation.
template <std::size_t Size>
class HexText
{
public:
    explicit HexText(const unsigned char* octets)
    {
        constexpr char digits[] = "0123456789abcdef";
        for (std::size_t i = 0; i < Size; ++i) {
            m_Text[2 * i] = digits[octets[i] >> 4];
            m_Text[2 * i + 1] = digits[octets[i] & 0x0F];
        }
    }

    const char* text() const { return m_Text; }

private:
    char m_Text[2 * Size + 1] = {};
};

}  // namespace nrvk

#endif
