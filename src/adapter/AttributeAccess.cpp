#include "adapter/AttributeAccess.h"

#include <cstring>
#include <type_traits>

#include "impl/BigEndian.h"

namespace nrvk {

namespace {

template <typename T>
int setNumber(int (*set)(void*, T), std::size_t size, void* object, const unsigned char* buffer)
{
    // Nearly all are as wide on the wire as in memory: their width is a constant then, and the loop one load.
    return set(object,
               static_cast<T>(size == sizeof(T) ? readBigEndian<sizeof(T)>(buffer) : readBigEndian(buffer, size)));
}

template <typename T>
int getNumber(T value, std::size_t size, unsigned char* buffer)
{
    const auto number = static_cast<std::make_unsigned_t<T>>(value);
    if (size == sizeof(T)) {
        writeBigEndian<sizeof(T)>(buffer, number);
    } else {
        writeBigEndian(buffer, size, number);
    }
    return 0;
}

int getOctets(const unsigned char* value, std::size_t size, unsigned char* buffer)
{
    if (value != nullptr) {
        std::memcpy(buffer, value, size);
    } else {
        std::memset(buffer, 0, size);
    }
    return 0;
}

}  // namespace

int setAnyFromWire(const AttributeAccess& access, void* object, const unsigned char* buffer)
{
    switch (access.form) {
    case AttributeForm::U8:
        return access.set.u8(object, buffer[0]);
    case AttributeForm::U16:
        return setNumber(access.set.u16, access.size, object, buffer);
    case AttributeForm::U32:
        return setNumber(access.set.u32, access.size, object, buffer);
    case AttributeForm::U64:
        return setNumber(access.set.u64, access.size, object, buffer);
    case AttributeForm::S8:
        return setNumber(access.set.s8, access.size, object, buffer);
    case AttributeForm::S16:
        return setNumber(access.set.s16, access.size, object, buffer);
    case AttributeForm::Octets:
    case AttributeForm::Table:
        break;
    }
    return access.set.octets(object, buffer);
}

int getAnyToWire(const AttributeAccess& access, const void* object, unsigned char* buffer, EnumOmciAction action)
{
    switch (access.form) {
    case AttributeForm::U8:
        buffer[0] = access.get.u8(object, action);
        return 0;
    case AttributeForm::U16:
        return getNumber(access.get.u16(object, action), access.size, buffer);
    case AttributeForm::U64:
        return getNumber(access.get.u64(object, action), access.size, buffer);
    case AttributeForm::S8:
        return getNumber(access.get.s8(object, action), access.size, buffer);
    case AttributeForm::S16:
        return getNumber(access.get.s16(object, action), access.size, buffer);
    case AttributeForm::Octets:
        return getOctets(access.get.octets(object, action), access.size, buffer);
    case AttributeForm::U32:
    case AttributeForm::Table:
        break;
    }
    return getNumber(access.get.u32(object, action), access.size, buffer);
}

}  // namespace nrvk
