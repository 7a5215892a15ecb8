#ifndef NRVK_ADAPTER_EXTENDED_MULTICAST_OPERATIONS_PROFILE_H
#define NRVK_ADAPTER_EXTENDED_MULTICAST_OPERATIONS_PROFILE_H

#include "adapter/OmciMeMulticastOperationsProfileAdapter.h"

/// Multicast operations profile (G.988 9.3.27, class 309): it serves no action beyond those of every adapter.
class OmciMeMulticastOperationsProfileAdapterExtended : public OmciMeMulticastOperationsProfileAdapter
{};

#endif
