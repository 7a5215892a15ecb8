#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPMADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPMADAPTEREXTENDED_H

#include "adapter/OmciMeEthernetFrameExtendedPMAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// Ethernet frame extended PM (G.988 9.3.32, class 334): the hardware layer is asked twice at each attribute of a live
/// instance, and a third time by a counter itself.
class OmciMeEthernetFrameExtendedPMAdapterExtended
    : public nrvk::AnnouncedPmAdapter<OmciMeEthernetFrameExtendedPMAdapter>
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override;
};

#endif
