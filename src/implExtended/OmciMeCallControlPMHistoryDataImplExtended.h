#ifndef NRVK_IMPL_EXTENDED_OMCIMECALLCONTROLPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMECALLCONTROLPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeCallControlPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Call control performance monitoring history data (G.988 9.9.12, class 140): calls of a POTS port. A store that only
/// a host writes.
class OmciMeCallControlPMHistoryDataImplExtended : public nrvk::VoicePm<OmciMeCallControlPMHistoryDataImpl>
{
public:
    using VoicePm::VoicePm;
};

#endif
