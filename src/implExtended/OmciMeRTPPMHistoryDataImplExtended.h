#ifndef NRVK_IMPL_EXTENDED_OMCIMERTPPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMERTPPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeRTPPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// RTP performance monitoring history data (G.988 9.9.13, class 144): media streams of a POTS port. A store that only a
/// host writes.
class OmciMeRTPPMHistoryDataImplExtended : public nrvk::VoicePm<OmciMeRTPPMHistoryDataImpl>
{
public:
    using VoicePm::VoicePm;
};

#endif
