#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPM64BITADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEEXTENDEDPM64BITADAPTEREXTENDED_H

#include "adapter/OmciMeEthernetFrameExtendedPM64BitAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// Ethernet frame extended PM 64-bit (G.988 9.3.34, class 425): the hardware layer is asked at each attribute for both
/// kinds of parent, and once more by a counter itself.
class OmciMeEthernetFrameExtendedPM64BitAdapterExtended
    : public nrvk::AnnouncedPmAdapter<OmciMeEthernetFrameExtendedPM64BitAdapter>
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override;
};

#endif
