#ifndef ONT_OMCI_MANAGED_ENTITY_IP_HOST_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_IP_HOST_ACCESS_H

#include "Export.h"

class OmciMeIpHostConfigDataIf;

/// What the host asks an IP host config data entity (G.988 9.4.1, class 134) for, besides its attributes.
namespace nrvk {

/// Provisions the bridge port that points at the IP host again, without a look at its addresses. On the OMCI thread.
NRVK_EXPORT void layer2Provisioning(OmciMeIpHostConfigDataIf& ipHost);

}  // namespace nrvk

#endif
