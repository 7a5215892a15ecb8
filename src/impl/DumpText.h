#ifndef NRVK_IMPL_DUMP_TEXT_H
#define NRVK_IMPL_DUMP_TEXT_H

#include <bitset>
#include <string>

#include "impl/ManagedEntityDescription.h"

namespace nrvk {

/// The value of one attribute for a dump; which member is meant, the attribute's form tells.
union DumpValue
{
    unsigned long long number;  ///< Signed ones sign-extended; the row count of a table.
    const unsigned char* octets;

    constexpr explicit DumpValue(unsigned long long value) : number(value) {}
    constexpr explicit DumpValue(const unsigned char* value) : octets(value) {}
};

/// The text of one instance: header, the attributes of the mask, the active alarms. `values` has one for each attribute
/// of the class; bit n of `alarms` is alarm n, shown as the character of that code.
///
/// After an octet attribute integers come out in hexadecimal: operators' scripts know the text so.
std::string dumpText(const ManagedEntityDescription& description, unsigned short instance, unsigned short attributeMask,
                     const DumpValue* values, const std::bitset<223>& alarms);

}  // namespace nrvk

#endif
