#include "adapter/AttributeAccess.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "impl/BigEndian.h"

namespace nrvk {

namespace {

/// Bytes that a number takes on the wire: never fewer than in memory.
template <typename T>
std::size_t wireSize(std::size_t size)
{
    return std::max(sizeof(T), size);
}

template <typename T>
int setNumber(int (*set)(void*, T), std::size_t size, void* object, const unsigned char* buffer)
{
    return set(object, static_cast<T>(readBigEndian(buffer, wireSize<T>(size))));
}

template <typename T>
void getNumber(T value, std::size_t size, unsigned char* buffer)
{
    writeBigEndian(buffer, wireSize<T>(size), static_cast<std::make_unsigned_t<T>>(value));
}

void getOctets(const unsigned char* value, std::size_t size, unsigned char* buffer)
{
    if (value != nullptr) {
        std::memcpy(buffer, value, size);
    } else {
        std::memset(buffer, 0, size);
    }
}

}  // namespace

int setFromWire(const AttributeAccess& access, AttributeForm form, std::size_t size, void* object,
                const unsigned char* buffer)
{
    switch (form) {
    case AttributeForm::U8:
        return access.set.u8(object, buffer[0]);
    case AttributeForm::U16:
        return setNumber(access.set.u16, size, object, buffer);
    case AttributeForm::U32:
        return setNumber(access.set.u32, size, object, buffer);
    case AttributeForm::U64:
        return setNumber(access.set.u64, size, object, buffer);
    case AttributeForm::S8:
        return setNumber(access.set.s8, size, object, buffer);
    case AttributeForm::S16:
        return setNumber(access.set.s16, size, object, buffer);
    case AttributeForm::Octets:
    case AttributeForm::Table:
        break;
    }
    return access.set.octets(object, buffer);
}

void getToWire(const AttributeAccess& access, AttributeForm form, std::size_t size, const void* object,
               unsigned char* buffer, EnumOmciAction action)
{
    switch (form) {
    case AttributeForm::U8:
        buffer[0] = access.get.u8(object, action);
        break;
    case AttributeForm::U16:
        getNumber(access.get.u16(object, action), size, buffer);
        break;
    case AttributeForm::U32:
        getNumber(access.get.u32(object, action), size, buffer);
        break;
    case AttributeForm::U64:
        getNumber(access.get.u64(object, action), size, buffer);
        break;
    case AttributeForm::S8:
        getNumber(access.get.s8(object, action), size, buffer);
        break;
    case AttributeForm::S16:
        getNumber(access.get.s16(object, action), size, buffer);
        break;
    case AttributeForm::Octets:
        getOctets(access.get.octets(object, action), size, buffer);
        break;
    case AttributeForm::Table:
        writeBigEndian(buffer, 4, access.get.u32(object, action));
        break;
    }
}

}  // namespace nrvk
