#ifndef NRVK_ADAPTER_ATTRIBUTE_ACCESS_H
#define NRVK_ADAPTER_ATTRIBUTE_ACCESS_H

#include <algorithm>
#include <cstddef>
#include <type_traits>

#include "attributeDefinition.h"
#include "impl/BigEndian.h"
#include "impl/ManagedEntityDescription.h"

namespace nrvk {

/// The virtual getter and setter of one attribute as plain functions, and how its value lies on the wire; all that a
/// Get or Set needs of the attribute stands side by side. Which member is meant, the form tells.
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
    AttributeForm form;
    /// A number of 16 bits in two bytes. With U8 most attributes there are, so that both are looked for first.
    bool isPlainU16;
    /// Bytes on the wire; of a number never fewer than in memory. 4 for a table, of which a Get yields the size.
    unsigned short size;
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

template <typename Read, typename Written>
constexpr AttributeForm formOf()
{
    if constexpr (std::is_pointer_v<Read>) {
        return AttributeForm::Octets;
    } else if constexpr (std::is_pointer_v<Written>) {
        return AttributeForm::Table;
    } else if constexpr (std::is_signed_v<Read>) {
        return sizeof(Read) == 1 ? AttributeForm::S8 : AttributeForm::S16;
    } else {
        constexpr AttributeForm forms[] = {AttributeForm::U8, AttributeForm::U16, AttributeForm::U32,
                                           AttributeForm::U64};
        return forms[sizeof(Read) == 1 ? 0 : sizeof(Read) == 2 ? 1 : sizeof(Read) == 4 ? 2 : 3];
    }
}

template <typename Read, typename Written>
constexpr unsigned short wireSize(unsigned short size)
{
    if (formOf<Read, Written>() == AttributeForm::Octets) {
        return size;
    }
    constexpr unsigned short inMemory = sizeof(Read);
    return formOf<Read, Written>() == AttributeForm::Table ? inMemory : std::max(inMemory, size);
}

/// The access of one attribute, from its getter and setter in the class's OmciMeXIf and its size on the wire.
template <auto VirtualGetter, auto VirtualSetter>
constexpr AttributeAccess attributeAccess(unsigned short size)
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
    constexpr AttributeForm form = formOf<Read, Written>();
    const unsigned short sizeOnWire = wireSize<Read, Written>(size);
    return {AttributeAccess::Getter(get), AttributeAccess::Setter(set), form,
            form == AttributeForm::U16 && sizeOnWire == 2, sizeOnWire};
}

int setAnyFromWire(const AttributeAccess& access, void* object, const unsigned char* buffer);
int getAnyToWire(const AttributeAccess& access, const void* object, unsigned char* buffer, EnumOmciAction action);

/// Takes the attribute's full size from `buffer`, network byte order, and sets it; the setter's result. Numbers wider
/// on the wire than in memory lose their leading bytes, narrower ones are read in the width of memory.
///
/// In line for the forms that most attributes have; a jump by a table costs more than a comparison that goes one way.
inline int setFromWire(const AttributeAccess& access, void* object, const unsigned char* buffer)
{
    if (access.form == AttributeForm::U8) {
        return access.set.u8(object, buffer[0]);
    }
    if (access.isPlainU16) {
        // Two loads: one that spans two stores of a caller who fills his buffer byte by byte would wait for both.
        const volatile unsigned char* bytes = buffer;
        const unsigned int high = bytes[0];
        return access.set.u16(object, static_cast<unsigned short>(high << 8 | bytes[1]));
    }
    return setAnyFromWire(access, object, buffer);
}

/// The reverse, always 0. Octets whose getter yields null read as zeros; a table yields 4 bytes.
inline int getToWire(const AttributeAccess& access, const void* object, unsigned char* buffer, EnumOmciAction action)
{
    if (access.form == AttributeForm::U8) {
        buffer[0] = access.get.u8(object, action);
        return 0;
    }
    if (access.isPlainU16) {
        writeBigEndian<2>(buffer, access.get.u16(object, action));
        return 0;
    }
    return getAnyToWire(access, object, buffer, action);
}

}  // namespace nrvk

#endif
