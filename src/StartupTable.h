#ifndef NRVK_STARTUP_TABLE_H
#define NRVK_STARTUP_TABLE_H

#include <cstdio>

#include "OmciManagedEntitiesCore.h"

namespace nrvk {

/// The text of an attribute in a row of the start-up table; `attributeMask` has one bit.
inline unsigned char (&startupText(DefaultConfigManagedEntity::AttributeValues& values,
                                   unsigned short attributeMask))[26]
{
    return values[15 - __builtin_ctz(attributeMask)];
}

/// Replaces a text, cut to the field and terminated.
inline void writeStartupText(DefaultConfigManagedEntity::AttributeValues& values, unsigned short attributeMask,
                             const char* value)
{
    auto& text = startupText(values, attributeMask);
    std::snprintf(reinterpret_cast<char*>(text), sizeof text, "%s", value);
}

/// Replaces a text by a decimal number.
inline void writeStartupNumber(DefaultConfigManagedEntity::AttributeValues& values, unsigned short attributeMask,
                               int value)
{
    auto& text = startupText(values, attributeMask);
    std::snprintf(reinterpret_cast<char*>(text), sizeof text, "%d", value);
}

/// Writes the instance count of every row of the class.
inline void writeInstanceCount(unsigned short classId, unsigned char count)
{
    for (DefaultConfigManagedEntity& row : OmciManagedEntitiesCore::defaultConfigManagedEntity) {
        if (row.classId == classId) {
            row.instanceCount = count;
        }
    }
}

}  // namespace nrvk

#endif
