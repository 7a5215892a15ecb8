#ifndef NRVK_ADAPTER_EXTENDED_MULTICAST_SUBSCRIBER_CONFIG_INFO_H
#define NRVK_ADAPTER_EXTENDED_MULTICAST_SUBSCRIBER_CONFIG_INFO_H

#include "adapter/OmciMeMulticastSubscriberConfigInfoAdapter.h"

/// Multicast subscriber config info (G.988 9.3.28, class 310): it serves no action beyond those of every adapter.
class OmciMeMulticastSubscriberConfigInfoAdapterExtended : public OmciMeMulticastSubscriberConfigInfoAdapter
{};

#endif
