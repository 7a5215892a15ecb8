#ifndef NRVK_IMPL_EXTENDED_OMCIMESIPCALLINITIATIONPMIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMESIPCALLINITIATIONPMIMPLEXTENDED_H

#include "impl/OmciMeSIPCallInitiationPMImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// SIP call initiation performance monitoring history data (G.988 9.9.15, class 152): calls that a SIP agent could not
/// set up. A store that only a host writes.
class OmciMeSIPCallInitiationPMImplExtended : public nrvk::VoicePm<OmciMeSIPCallInitiationPMImpl>
{
public:
    using VoicePm::VoicePm;
};

#endif
