#include "impl/Octets.h"

namespace nrvk {

const unsigned char zeroOctetStorage[kLongestOctets] = {};

}  // namespace nrvk
