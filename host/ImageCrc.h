#ifndef HOST_IMAGE_CRC_H
#define HOST_IMAGE_CRC_H

#include <cstddef>
#include <cstdint>

namespace omci {

/// CRC-32 of a software image as the end of its download carries it (AAL5 practice), over the image without padding.
std::uint32_t imageCrc(const std::uint8_t* image, std::size_t size);

}  // namespace omci

#endif
