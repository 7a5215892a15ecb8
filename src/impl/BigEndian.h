#ifndef NRVK_IMPL_BIG_ENDIAN_H
#define NRVK_IMPL_BIG_ENDIAN_H

#include <cstddef>

namespace nrvk {

/// A number of `size` bytes, most significant first; of more than eight bytes the last eight count.
inline unsigned long long readBigEndian(const unsigned char* buffer, std::size_t size)
{
    unsigned long long value = 0;
    for (std::size_t i = 0; i < size; ++i) {
        value = (value << 8) | buffer[i];
    }
    return value;
}

/// Writes `size` bytes, most significant first, with leading zeros beyond eight.
inline void writeBigEndian(unsigned char* buffer, std::size_t size, unsigned long long value)
{
    for (std::size_t i = size; i-- > 0; value >>= 8) {
        buffer[i] = static_cast<unsigned char>(value);
    }
}

}  // namespace nrvk

#endif
