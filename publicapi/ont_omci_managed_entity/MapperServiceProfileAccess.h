#ifndef ONT_OMCI_MANAGED_ENTITY_MAPPER_SERVICE_PROFILE_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_MAPPER_SERVICE_PROFILE_ACCESS_H

#include "Export.h"

class OmciMeMapperServiceProfile802_1PIf;

/// What the hardware layer asks an IEEE 802.1p mapper service profile (G.988 9.3.10, class 130) for, besides its
/// attributes.
namespace nrvk {

/// The GEM interworking TP that the p-bit, 0 to 7, had before the Set being applied; to be called while
/// OmciHardwareIfc::provisionMapper or removeMapperInterworkingTps runs, on its thread. 65535 means no TP and is the
/// answer for a p-bit above 7 and outside of a Set; 0 stands for a p-bit that the Set did not touch.
NRVK_EXPORT unsigned short getOldInterworkingTpForPbit(const OmciMeMapperServiceProfile802_1PIf& mapper,
                                                       unsigned short pbit);

}  // namespace nrvk

#endif
