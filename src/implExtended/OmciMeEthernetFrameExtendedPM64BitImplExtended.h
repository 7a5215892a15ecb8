#ifndef NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPM64BITIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPM64BITIMPLEXTENDED_H

#include "impl/ExtendedEthernetPm64BitRefresh.h"
#include "impl/OmciMeEthernetFrameExtendedPM64BitRefreshedCounters.h"
#include "implExtended/ExtendedEthernetPm.h"

/// Ethernet frame extended PM 64-bit (G.988 9.3.34, class 425): frames of one direction of an Ethernet UNI or of a
/// virtual Ethernet interface point.
class OmciMeEthernetFrameExtendedPM64BitImplExtended
    : public OmciMeEthernetFrameExtendedPM64BitRefreshedCounters<
          nrvk::ExtendedEthernetPm<OmciMeEthernetFrameExtendedPM64BitImpl>>
{
public:
    using OmciMeEthernetFrameExtendedPM64BitRefreshedCounters::OmciMeEthernetFrameExtendedPM64BitRefreshedCounters;

    nrvk::ExtendedEthernetPm64BitRefresh refreshOf(EnumOmciAction action) const;

protected:
    /// Deliberate: a virtual Ethernet interface point need not exist yet, an Ethernet UNI must.
    void takeParent(const nrvk::PmControlBlock& controlBlock) override;

private:
    unsigned short m_ParentClass = 0;
    unsigned short m_VeipInstance = nrvk::kNoInstance;
    unsigned short m_UniInstance = nrvk::kNoInstance;
};

#endif
