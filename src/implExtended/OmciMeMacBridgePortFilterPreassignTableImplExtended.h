#ifndef NRVK_IMPL_EXTENDED_MAC_BRIDGE_PORT_FILTER_PREASSIGN_TABLE_H
#define NRVK_IMPL_EXTENDED_MAC_BRIDGE_PORT_FILTER_PREASSIGN_TABLE_H

#include "impl/OmciMeMacBridgePortFilterPreassignTableImpl.h"
#include "implExtended/NoHardware.h"

/// MAC bridge port filter preassign table (G.988 9.3.7, class 79), companion of the bridge port of the same id.
///
/// Bridge management filtering alone reaches the hardware layer; the others it reads with the next provisioning.
class OmciMeMacBridgePortFilterPreassignTableImplExtended
    : public nrvk::DataPathEntity<OmciMeMacBridgePortFilterPreassignTableImpl>
{
public:
    using NoHardware::NoHardware;

    /// Provisions the bridge port. -1 when there is none; the value is kept.
    int setBridgeMgmtInfoFiltering(unsigned char value) override;
};

#endif
