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
    // Nearly all are as wide on the wire as in memory: their width is a constant then, and the loop one load.
    const std::size_t width = wireSize<T>(size);
    return set(object,
               static_cast<T>(width == sizeof(T) ? readBigEndian(buffer, sizeof(T)) : readBigEndian(buffer, width)));
}

template <typename T>
void getNumber(T value, std::size_t size, unsigned char* buffer)
{
    const auto number = static_cast<std::make_unsigned_t<T>>(value);
    if (size <= sizeof(T)) {
        writeBigEndian(buffer, sizeof(T), number);
    } else {
        writeBigEndian(buffer, size, number);
    }
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

int setFromWire(const AttributeAccess& access, const ManagedEntityDescription& entity, int attribute, void* object,
                const unsigned char* buffer)
{
    const std::size_t size = entity.attributes[attribute].definition.attributeSize;
    switch (entity.forms[attribute]) {
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

int getToWire(const AttributeAccess& access, const ManagedEntityDescription& entity, int attribute, const void* object,
              unsigned char* buffer, EnumOmciAction action)
{
    const std::size_t size = entity.attributes[attribute].definition.attributeSize;
    switch (entity.forms[attribute]) {
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
    return 0;
}

}  // namespace nrvk
