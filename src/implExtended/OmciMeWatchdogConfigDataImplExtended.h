#ifndef NRVK_IMPL_EXTENDED_OMCIMEWATCHDOGCONFIGDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEWATCHDOGCONFIGDATAIMPLEXTENDED_H

#include "impl/OmciMeWatchdogConfigDataImpl.h"
#include "implExtended/NoHardware.h"

/// Watchdog configuration data (class 65403): capabilities in the store.
class OmciMeWatchdogConfigDataImplExtended : public nrvk::NoHardware<OmciMeWatchdogConfigDataImpl, -1>
{
public:
    using NoHardware::NoHardware;
};

#endif
