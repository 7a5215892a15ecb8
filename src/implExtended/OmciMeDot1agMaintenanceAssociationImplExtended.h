#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMAINTENANCEASSOCIATIONIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMAINTENANCEASSOCIATIONIMPLEXTENDED_H

#include "impl/OmciMeDot1agMaintenanceAssociationImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag maintenance association (G.988 9.3.20, class 300): its values stay in the store.
class OmciMeDot1agMaintenanceAssociationImplExtended
    : public nrvk::DataPathEntity<OmciMeDot1agMaintenanceAssociationImpl>
{
public:
    using NoHardware::NoHardware;
};

#endif
