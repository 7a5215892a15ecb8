#ifndef NRVK_IMPL_EXTENDED_VLAN_TAGGING_FILTER_DATA_H
#define NRVK_IMPL_EXTENDED_VLAN_TAGGING_FILTER_DATA_H

#include "impl/OmciMeVlanTaggingFilterDataImpl.h"
#include "implExtended/NoHardware.h"

/// VLAN tagging filter data (G.988 9.3.11, class 84), of the bridge port of the same id.
class OmciMeVlanTaggingFilterDataImplExtended : public nrvk::DataPathEntity<OmciMeVlanTaggingFilterDataImpl>
{
public:
    using NoHardware::NoHardware;

    /// The last attribute of the entity, and the only one that provisions the bridge port. -1 when the hardware layer
    /// knows no port; the value is kept.
    int setNumberOfEntries(unsigned char value) override;
    int eraseConfigurationFromHardware() override;
};

#endif
