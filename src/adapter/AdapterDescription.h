#ifndef NRVK_ADAPTER_ADAPTER_DESCRIPTION_H
#define NRVK_ADAPTER_ADAPTER_DESCRIPTION_H

#include <bitset>

#include "adapter/AttributeAccess.h"
#include "impl/InstanceStore.h"

namespace nrvk {

/// How the adapter calls an object of its class. Pointers are to the class's OmciMeXIf.
struct ObjectOperations
{
    /// Null for a class with no binding to the hardware.
    int (*applyConfigurationToHardwareForSet)(void* object);
    void (*getAlarmsBitmap)(const void* object, std::bitset<223>& bitmap);
    void (*updateAlarmsBitmap)(void* object, unsigned char alarmNumber, bool state);
};

/// All that makes one class's adapter differ from another's.
struct AdapterDescription
{
    const ManagedEntityDescription& entity;
    InstanceStore& store;
    const ObjectOperations& object;
    const char* name;  ///< "ANIG"
    /// One per attribute with a definition: the first `definitionCount` attributes of the class.
    const AttributeAccess* access;
    unsigned char definitionCount;
    bool partOfMibUpload;
    bool partOfAlarmsUpload;
    bool creatableByOlt;
    unsigned short getMask;
    unsigned short setMask;
    unsigned short createMask;
    unsigned short getNextMask;
    /// The adapter's source file and the line of its description, for log lines of shared code.
    LogName file;
    unsigned int line;

    /// How the attribute of exactly this mask is reached, or null.
    const AttributeAccess* find(unsigned short attributeMask) const
    {
        // Bits above the mask's: of none at all the count is 16 then, and no attribute has such a place.
        const unsigned int place = 15U - static_cast<unsigned int>(__builtin_ctz(attributeMask | 0x10000U));
        const bool singleBit = (attributeMask & (attributeMask - 1)) == 0;
        return singleBit && place < definitionCount ? access + place : nullptr;
    }
};

template <typename If, bool BoundToHardware>
constexpr ObjectOperations objectOperations()
{
    ObjectOperations operations{};
    if constexpr (BoundToHardware) {
        operations.applyConfigurationToHardwareForSet = [](void* object) {
            return static_cast<If*>(object)->applyConfigurationToHardwareForSet();
        };
    }
    operations.getAlarmsBitmap = [](const void* object, std::bitset<223>& bitmap) {
        static_cast<const If*>(object)->getAlarmsBitmap(bitmap);
    };
    operations.updateAlarmsBitmap = [](void* object, unsigned char alarmNumber, bool state) {
        static_cast<If*>(object)->updateAlarmsBitmap(alarmNumber, state);
    };
    return operations;
}

}  // namespace nrvk

#endif
