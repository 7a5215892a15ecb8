#ifndef NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPMIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPMIMPLEXTENDED_H

#include "impl/OmciMeEthernetFrameExtendedPMRefreshedCounters.h"
#include "implExtended/ExtendedEthernetPm.h"

/// Ethernet frame extended PM (G.988 9.3.32, class 334): frames of one direction of an Ethernet UNI, in 32 bits.
class OmciMeEthernetFrameExtendedPMImplExtended
    : public OmciMeEthernetFrameExtendedPMRefreshedCounters<nrvk::ExtendedEthernetPm<OmciMeEthernetFrameExtendedPMImpl>>
{
public:
    using OmciMeEthernetFrameExtendedPMRefreshedCounters::OmciMeEthernetFrameExtendedPMRefreshedCounters;

protected:
    void takeParent(const nrvk::PmControlBlock& controlBlock) override;

private:
    unsigned short m_ParentInstance = nrvk::kNoInstance;
};

#endif
