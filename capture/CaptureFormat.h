#ifndef CAPTURE_CAPTURE_FORMAT_H
#define CAPTURE_CAPTURE_FORMAT_H

#include <array>
#include <cstdint>

/// How OMCI frames stand in a capture: link type Ethernet, an Ethertype for experiments, the direction in the
/// addresses.
namespace omci {

constexpr std::array<std::uint8_t, 6> kOltAddress = {0x02, 0, 0, 0, 0, 0x01};
constexpr std::array<std::uint8_t, 6> kOnuAddress = {0x02, 0, 0, 0, 0, 0x02};
constexpr std::uint16_t kOmciEthertype = 0x88B5;

}  // namespace omci

#endif
