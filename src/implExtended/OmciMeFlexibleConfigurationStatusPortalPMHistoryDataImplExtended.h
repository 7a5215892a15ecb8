#ifndef NRVK_IMPL_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeFlexibleConfigurationStatusPortalPMHistoryDataImpl.h"
#include "implExtended/NoHardware.h"

/// PM history data of the flexible configuration status portal (class 65421): counters in the store.
class OmciMeFlexibleConfigurationStatusPortalPMHistoryDataImplExtended
    : public nrvk::NoHardware<OmciMeFlexibleConfigurationStatusPortalPMHistoryDataImpl, -1>
{
public:
    using NoHardware::NoHardware;
};

#endif
