#ifndef NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA1IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA1IMPLEXTENDED_H

#include "impl/OmciMeThresholdData1Impl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Threshold data 1 (G.988 9.12.6, class 273): a store that the host compares its counters with.
class OmciMeThresholdData1ImplExtended : public nrvk::PmHistory<OmciMeThresholdData1Impl>
{
public:
    using LoggedHooks::LoggedHooks;
};

#endif
