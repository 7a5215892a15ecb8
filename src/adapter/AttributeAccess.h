#ifndef NRVK_ADAPTER_ATTRIBUTE_ACCESS_H
#define NRVK_ADAPTER_ATTRIBUTE_ACCESS_H

#include <cstddef>

#include "attributeDefinition.h"
#include "impl/ManagedEntityDescription.h"

namespace nrvk {

/// The virtual getter and setter of one attribute as plain functions; which member is meant, the form tells.
///
/// Typed by the value and not by the wire, so that each is nothing but a jump to the virtual operation: a thousand
/// attributes make two thousand of them. Objects are the class's OmciMeXIf.
struct AttributeAccess
{
    union Getter
    {
        unsigned char (*u8)(const void* object, EnumOmciAction action);
        unsigned short (*u16)(const void* object, EnumOmciAction action);
        unsigned int (*u32)(const void* object, EnumOmciAction action);
        unsigned long long (*u64)(const void* object, EnumOmciAction action);
        signed char (*s8)(const void* object, EnumOmciAction action);
        short (*s16)(const void* object, EnumOmciAction action);
        const unsigned char* (*octets)(const void* object, EnumOmciAction action);

        constexpr explicit Getter(decltype(u8) function) : u8(function) {}
        constexpr explicit Getter(decltype(u16) function) : u16(function) {}
        constexpr explicit Getter(decltype(u32) function) : u32(function) {}
        constexpr explicit Getter(decltype(u64) function) : u64(function) {}
        constexpr explicit Getter(decltype(s8) function) : s8(function) {}
        constexpr explicit Getter(decltype(s16) function) : s16(function) {}
        constexpr explicit Getter(decltype(octets) function) : octets(function) {}
    };

    union Setter
    {
        int (*u8)(void* object, unsigned char value);
        int (*u16)(void* object, unsigned short value);
        int (*u32)(void* object, unsigned int value);
        int (*u64)(void* object, unsigned long long value);
        int (*s8)(void* object, signed char value);
        int (*s16)(void* object, short value);
        int (*octets)(void* object, const unsigned char* value);

        constexpr explicit Setter(decltype(u8) function) : u8(function) {}
        constexpr explicit Setter(decltype(u16) function) : u16(function) {}
        constexpr explicit Setter(decltype(u32) function) : u32(function) {}
        constexpr explicit Setter(decltype(u64) function) : u64(function) {}
        constexpr explicit Setter(decltype(s8) function) : s8(function) {}
        constexpr explicit Setter(decltype(s16) function) : s16(function) {}
        constexpr explicit Setter(decltype(octets) function) : octets(function) {}
    };

    Getter get;
    Setter set;
};

template <typename Function>
struct GetterTraits;

template <typename If, typename Result>
struct GetterTraits<Result (If::*)(EnumOmciAction) const>
{
    using Interface = If;
    using Value = Result;
};

template <typename Function>
struct SetterTraits;

template <typename If, typename Argument>
struct SetterTraits<int (If::*)(Argument)>
{
    using Value = Argument;
};

/// The access of one attribute, from its getter and setter in the class's OmciMeXIf.
template <auto VirtualGetter, auto VirtualSetter>
constexpr AttributeAccess attributeAccess()
{
    using If = typename GetterTraits<decltype(VirtualGetter)>::Interface;
    using Read = typename GetterTraits<decltype(VirtualGetter)>::Value;
    using Written = typename SetterTraits<decltype(VirtualSetter)>::Value;
    Read (*get)(const void*, EnumOmciAction) = [](const void* object, EnumOmciAction action) {
        return (static_cast<const If*>(object)->*VirtualGetter)(action);
    };
    int (*set)(void*, Written) = [](void* object, Written value) {
        return (static_cast<If*>(object)->*VirtualSetter)(value);
    };
    return {AttributeAccess::Getter(get), AttributeAccess::Setter(set)};
}

/// Takes the full size of the class's attribute, by index, from `buffer`, network byte order, and sets it; the setter's
/// result. Numbers wider on the wire than in memory lose their leading bytes, narrower ones are read in the width of
/// memory.
int setFromWire(const AttributeAccess& access, const ManagedEntityDescription& entity, int attribute, void* object,
                const unsigned char* buffer);
/// The reverse, always 0. Octets whose getter yields null read as zeros; a table yields 4 bytes.
int getToWire(const AttributeAccess& access, const ManagedEntityDescription& entity, int attribute, const void* object,
              unsigned char* buffer, EnumOmciAction action);

}  // namespace nrvk

#endif
