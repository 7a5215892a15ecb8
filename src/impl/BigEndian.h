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

/// The same of a size that is known: one load, or one store, where the compiler sees it.
template <std::size_t Size>
inline unsigned long long readBigEndian(const unsigned char* buffer)
{
    static_assert(Size == 1 || Size == 2 || Size == 4 || Size == 8);
    if constexpr (Size == 1) {
        return buffer[0];
    } else {
        return readBigEndian<Size / 2>(buffer) << (4 * Size) | readBigEndian<Size / 2>(buffer + Size / 2);
    }
}

template <std::size_t Size>
inline void writeBigEndian(unsigned char* buffer, unsigned long long value)
{
    static_assert(Size == 1 || Size == 2 || Size == 4 || Size == 8);
    if constexpr (Size == 1) {
        buffer[0] = static_cast<unsigned char>(value);
    } else {
        writeBigEndian<Size / 2>(buffer, value >> (4 * Size));
        writeBigEndian<Size / 2>(buffer + Size / 2, value);
    }
}

}  // namespace nrvk

#endif
