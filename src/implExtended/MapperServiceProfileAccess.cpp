#include "MapperServiceProfileAccess.h"

#include "implExtended/OmciMeMapperServiceProfile802_1PImplExtended.h"

namespace nrvk {

unsigned short getOldInterworkingTpForPbit(const OmciMeMapperServiceProfile802_1PIf& mapper, unsigned short pbit)
{
    // The store makes no other kind of object for the class.
    return static_cast<const OmciMeMapperServiceProfile802_1PImplExtended&>(mapper).getOldInterworkingTpForPbit(pbit);
}

}  // namespace nrvk
