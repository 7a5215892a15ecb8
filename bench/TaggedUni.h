#ifndef NRVK_BENCH_TAGGED_UNI_H
#define NRVK_BENCH_TAGGED_UNI_H

#include <algorithm>
#include <array>

#include "ExtendedVlanTaggingAccess.h"
#include "Mib.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "host/QuietHardware.h"

namespace bench {

using Tagging = OmciMeExtendedVlanTaggingOperationConfigurationDataIf;
using VlanRow = std::array<unsigned char, 16>;

constexpr unsigned short kTagging = 1;
constexpr unsigned short kUni = 0x101;
constexpr unsigned short kTable = 0x400;

/// Hardware that takes everything and does nothing, connected while it lives: what is measured is the library's own
/// work. Finds bridge ports by VLAN filter, which has their number.
class DataPathHardware : public omci::QuietHardware
{
public:
    DataPathHardware() { OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(this); }
    ~DataPathHardware() override { OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(nullptr); }
    DataPathHardware(const DataPathHardware&) = delete;
    DataPathHardware& operator=(const DataPathHardware&) = delete;

    int findMacBridgePortByTp(unsigned char kind, unsigned short instance,
                              OmciMeMacBridgePortConfigurationDataIf** port) override
    {
        constexpr unsigned char byVlanFilter = 5;
        if (kind == byVlanFilter) {
            *port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
        }
        return 0;
    }
};

/// Single-tagged frames of the VID leave with the VID above it.
inline VlanRow translation(unsigned short vid)
{
    const std::array<unsigned int, 4> words = {15U << 28 | 4096U << 15, 8U << 28 | static_cast<unsigned int>(vid) << 15,
                                               1U << 30 | 15U << 16, 8U << 16 | (vid + 1U) << 3};
    VlanRow row{};
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = static_cast<unsigned char>(words[i / 4] >> (24 - 8 * (i % 4)));
    }
    return row;
}

inline VlanRow unsetOf(VlanRow row)
{
    std::fill(row.begin() + 8, row.end(), static_cast<unsigned char>(0xFF));
    return row;
}

/// An extended VLAN tagging entity on an Ethernet UNI, for as long as it lives.
class TaggedUni
{
public:
    TaggedUni()
    {
        OmciMePptpEthernetUniIf::createManagedEntityInstance(kUni, false);
        Tagging* tagging = Tagging::createManagedEntityInstance(kTagging, true);
        tagging->setAssociationType(2);
        tagging->setAssociatedMePointer(kUni);
    }
    ~TaggedUni()
    {
        Tagging::deleteManagedEntityInstance(kTagging, true);
        OmciMePptpEthernetUniIf::deleteManagedEntityInstance(kUni, false);
    }
    TaggedUni(const TaggedUni&) = delete;
    TaggedUni& operator=(const TaggedUni&) = delete;

    int set(const VlanRow& row) const { return m_Adapter.setAttribute(kTagging, &m_Definition, row.data()); }
    static void clear()
    {
        nrvk::deleteAllEntriesFromTableOfReceivedFrames(*Tagging::getManagedEntityInstance(kTagging));
    }

private:
    DataPathHardware m_Hardware;
    const OmciMe& m_Adapter = bench::adapter(171);
    attributeDefinition m_Definition = bench::definition(171, kTable);
};

}  // namespace bench

#endif
