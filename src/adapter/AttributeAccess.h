#ifndef NRVK_ADAPTER_ATTRIBUTE_ACCESS_H
#define NRVK_ADAPTER_ATTRIBUTE_ACCESS_H

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "attributeDefinition.h"

namespace nrvk {

/// How one attribute gets from the wire to its virtual setter, and from its virtual getter to the wire.
/// Objects are the class's OmciMeXIf; buffers hold the attribute's full size.
struct AttributeAccess
{
    int (*set)(void* object, const unsigned char* buffer);
    void (*get)(const void* object, unsigned char* buffer, EnumOmciAction action);
};

/// A number of `Bytes` bytes, most significant first. Bytes beyond the type's width are skipped.
template <typename T, std::size_t Bytes>
T readBigEndian(const unsigned char* buffer)
{
    using Unsigned = std::make_unsigned_t<T>;
    unsigned long long value = 0;
    for (std::size_t i = 0; i < Bytes; ++i) {
        value = (value << 8) | buffer[i];
    }
    return static_cast<T>(static_cast<Unsigned>(value));
}

/// Writes `Bytes` bytes, most significant first, with leading zeros beyond the type's width.
template <std::size_t Bytes, typename T>
void writeBigEndian(unsigned char* buffer, T number)
{
    auto value = static_cast<unsigned long long>(static_cast<std::make_unsigned_t<T>>(number));
    for (std::size_t i = Bytes; i-- > 0;) {
        buffer[i] = static_cast<unsigned char>(value);
        value >>= 8;
    }
}

template <typename Function>
struct GetterTraits;

template <typename If, typename Result>
struct GetterTraits<Result (If::*)(EnumOmciAction) const>
{
    using Interface = If;
    using Value = Result;
};

/// An integer attribute. `Bytes` differs from the type's width for the five-byte counters.
template <auto Getter, auto Setter, std::size_t Bytes = sizeof(typename GetterTraits<decltype(Getter)>::Value)>
constexpr AttributeAccess numberAccess()
{
    using If = typename GetterTraits<decltype(Getter)>::Interface;
    using Value = typename GetterTraits<decltype(Getter)>::Value;
    return {[](void* object, const unsigned char* buffer) {
                return (static_cast<If*>(object)->*Setter)(readBigEndian<Value, Bytes>(buffer));
            },
            [](const void* object, unsigned char* buffer, EnumOmciAction action) {
                writeBigEndian<Bytes>(buffer, (static_cast<const If*>(object)->*Getter)(action));
            }};
}

/// An octet attribute. A getter that yields null reads as zeros.
template <auto Getter, auto Setter, std::size_t Bytes>
constexpr AttributeAccess octetAccess()
{
    using If = typename GetterTraits<decltype(Getter)>::Interface;
    return {[](void* object, const unsigned char* buffer) { return (static_cast<If*>(object)->*Setter)(buffer); },
            [](const void* object, unsigned char* buffer, EnumOmciAction action) {
                const unsigned char* value = (static_cast<const If*>(object)->*Getter)(action);
                if (value != nullptr) {
                    std::memcpy(buffer, value, Bytes);
                } else {
                    std::memset(buffer, 0, Bytes);
                }
            }};
}

/// A table attribute: set appends a row, get yields the size in 4 bytes.
template <auto Getter, auto Setter>
constexpr AttributeAccess tableAccess()
{
    using If = typename GetterTraits<decltype(Getter)>::Interface;
    return {[](void* object, const unsigned char* buffer) { return (static_cast<If*>(object)->*Setter)(buffer); },
            [](const void* object, unsigned char* buffer, EnumOmciAction action) {
                writeBigEndian<4>(buffer, (static_cast<const If*>(object)->*Getter)(action));
            }};
}

}  // namespace nrvk

#endif
