#ifndef NRVK_IMPL_EXTENDED_ETHERNET_PM_64_BIT_REFRESH_H
#define NRVK_IMPL_EXTENDED_ETHERNET_PM_64_BIT_REFRESH_H

#include "attributeDefinition.h"

class OmciMeEthernetFrameExtendedPM64BitIf;

namespace nrvk {

/// What the refresh of an extended Ethernet PM entity of 64 bits (class 425) needs beside its id.
struct ExtendedEthernetPm64BitRefresh
{
    unsigned int statsAction;
    unsigned short parentClass;   ///< 0 before the first control block
    unsigned short uniInstance;   ///< 0xFFFF while no Ethernet UNI is the parent
    unsigned short veipInstance;  ///< 0xFFFF while no virtual Ethernet interface point is the parent
};

/// For the OMCI action as the adapter received it.
ExtendedEthernetPm64BitRefresh refreshOf(const OmciMeEthernetFrameExtendedPM64BitIf& pm, EnumOmciAction action);

}  // namespace nrvk

#endif
