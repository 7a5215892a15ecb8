#ifndef NRVK_IMPL_EXTENDED_EVC_MAPPING_H
#define NRVK_IMPL_EXTENDED_EVC_MAPPING_H

#include <optional>
#include <string>

#include "VlanRecords.h"

namespace nrvk {

/// An EVC and its map as a VLAN tagging rule asks for them; VLANs are 0xFFFF for none.
struct EvcAndEvcMap
{
    std::string evcName;  ///< "OMCI_" and the VID that the frame leaves with
    unsigned short evcVlan;
    std::string evcMapName;  ///< "OMCI_", the filter's inner VID, "_" and its inner priority
    unsigned short matchVlan;
    unsigned char priority;
    bool noTagRemoved;
};

/// Nothing for a rule that takes tagged frames and adds no inner tag.
std::optional<EvcAndEvcMap> evcAndEvcMapOf(const RecVlanTagFilData& rule);

}  // namespace nrvk

#endif
