#ifndef NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA64BITIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETHRESHOLDDATA64BITIMPLEXTENDED_H

#include "impl/OmciMeThresholdData64BitImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Threshold data 64-bit (class 426): a store that the host compares its counters with.
class OmciMeThresholdData64BitImplExtended : public nrvk::PmHistory<OmciMeThresholdData64BitImpl>
{
public:
    using LoggedHooks::LoggedHooks;
};

#endif
