#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMAINTENANCEDOMAINIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMAINTENANCEDOMAINIMPLEXTENDED_H

#include "impl/OmciMeDot1agMaintenanceDomainImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag maintenance domain (G.988 9.3.19, class 299): its values stay in the store.
class OmciMeDot1agMaintenanceDomainImplExtended : public nrvk::DataPathEntity<OmciMeDot1agMaintenanceDomainImpl>
{
public:
    using NoHardware::NoHardware;
};

#endif
