#ifndef NRVK_IMPL_OCTETS_H
#define NRVK_IMPL_OCTETS_H

#include <cstddef>

namespace nrvk {

constexpr std::size_t kLongestOctets = 64;
extern const unsigned char zeroOctetStorage[kLongestOctets];

/// The default of nearly every octet attribute.
template <std::size_t Size>
constexpr const unsigned char* zeroOctets()
{
    static_assert(Size <= kLongestOctets);
    return zeroOctetStorage;
}

}  // namespace nrvk

#endif
