#ifndef NRVK_IMPL_EXTENDED_MULTICAST_OPERATIONS_PROFILE_H
#define NRVK_IMPL_EXTENDED_MULTICAST_OPERATIONS_PROFILE_H

#include "impl/OmciMeMulticastOperationsProfileImpl.h"
#include "implExtended/NoHardware.h"

/// Multicast operations profile (G.988 9.3.27, class 309): a store that the hardware layer reads.
class OmciMeMulticastOperationsProfileImplExtended : public nrvk::DataPathEntity<OmciMeMulticastOperationsProfileImpl>
{
public:
    using NoHardware::NoHardware;
};

#endif
