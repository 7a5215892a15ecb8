#ifndef NRVK_IMPL_EXTENDED_OMCIMEFECPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEFECPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeFecPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// FEC performance monitoring history data (G.988 9.2.9, class 312): code words of the downstream, corrected or lost.
class OmciMeFecPMHistoryDataImplExtended : public nrvk::RegisteredPm<OmciMeFecPMHistoryDataImpl>
{
public:
    using RegisteredPm::RegisteredPm;

    /// The only PM entity whose deletion, and MIB reset, reaches the hardware layer's counters.
    int eraseConfigurationFromHardware() override;
};

#endif
