#ifndef NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA2IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA2IMPLEXTENDED_H

#include "impl/OmciMeThresholdData2Impl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Threshold data 2 (G.988 9.12.7, class 274): a store that the host compares its counters with.
class OmciMeThresholdData2ImplExtended : public nrvk::PmHistory<OmciMeThresholdData2Impl>
{
public:
    using LoggedHooks::LoggedHooks;
};

#endif
