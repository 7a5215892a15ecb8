#ifndef NRVK_IMPL_EXTENDED_MULTICAST_SUBSCRIBER_CONFIG_INFO_H
#define NRVK_IMPL_EXTENDED_MULTICAST_SUBSCRIBER_CONFIG_INFO_H

#include "impl/OmciMeMulticastSubscriberConfigInfoImpl.h"
#include "implExtended/NoHardware.h"

/// Multicast subscriber config info (G.988 9.3.28, class 310): a store that the hardware layer reads.
class OmciMeMulticastSubscriberConfigInfoImplExtended
    : public nrvk::DataPathEntity<OmciMeMulticastSubscriberConfigInfoImpl>
{
public:
    using NoHardware::NoHardware;
};

#endif
