#ifndef OLT_DECODE_VLAN_ROWS_H
#define OLT_DECODE_VLAN_ROWS_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/FrameCodec.h"

namespace olt {

/// Puts rows of the VLAN tagging table together that get next answers bring in pieces of other lengths.
class VlanRows
{
public:
    /// The rules, in words, that this frame completes; none for most frames.
    [[nodiscard]] std::vector<std::string> take(const omci::FrameView& frame);

private:
    std::map<std::uint16_t, std::vector<std::uint8_t>> m_Pieces;  ///< By instance: octets of a row not yet whole.
};

}  // namespace olt

#endif
