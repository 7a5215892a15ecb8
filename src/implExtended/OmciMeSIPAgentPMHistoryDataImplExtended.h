#ifndef NRVK_IMPL_EXTENDED_OMCIMESIPAGENTPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMESIPAGENTPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeSIPAgentPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// SIP agent performance monitoring history data (G.988 9.9.14, class 151): messages of a SIP agent. A store that only
/// a host writes.
class OmciMeSIPAgentPMHistoryDataImplExtended : public nrvk::VoicePm<OmciMeSIPAgentPMHistoryDataImpl>
{
public:
    using VoicePm::VoicePm;
};

#endif
