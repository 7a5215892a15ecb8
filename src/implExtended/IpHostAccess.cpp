#include "IpHostAccess.h"

#include "implExtended/OmciMeIpHostConfigDataImplExtended.h"

namespace nrvk {

void layer2Provisioning(OmciMeIpHostConfigDataIf& ipHost)
{
    // The store makes no other kind of object for the class.
    static_cast<OmciMeIpHostConfigDataImplExtended&>(ipHost).layer2Provisioning();
}

}  // namespace nrvk
