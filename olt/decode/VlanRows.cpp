#include "decode/VlanRows.h"

#include <algorithm>

#include "host/MessageLayout.h"
#include "model/VlanRow.h"

namespace olt {

namespace {
constexpr std::uint16_t kVlanTagging = 171;
constexpr std::uint16_t kTableMask = 0x0400;
}  // namespace

std::vector<std::string> VlanRows::take(const omci::FrameView& frame)
{
    const auto& header = frame.header;
    if (header.entityClass != kVlanTagging || header.type != omci::MessageType::GetNext)
        return {};
    auto& pieces = m_Pieces[header.entityInstance];
    if (!header.acknowledgement) {
        const auto request = omci::parseGetNextRequest(frame);
        if (request && request->sequence == 0)
            pieces.clear();
        return {};
    }
    const auto response = omci::parseGetNextResponse(frame);
    if (!response || response->result != omci::Result::Success || response->mask != kTableMask)
        return {};
    pieces.insert(pieces.end(), response->data.data, response->data.data + response->data.size);
    std::vector<std::string> rules;
    while (pieces.size() >= kVlanRowSize) {
        const auto end = pieces.begin() + kVlanRowSize;
        const std::vector<std::uint8_t> octets(pieces.begin(), end);
        pieces.erase(pieces.begin(), end);
        // The last answer of a table is filled up with zeros.
        if (std::any_of(octets.begin(), octets.end(), [](auto octet) { return octet != 0; }))
            rules.push_back(vlanRowText(VlanRow::fromOctets(octets)));
    }
    return rules;
}

}  // namespace olt
