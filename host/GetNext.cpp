// Get next of the tables that no class serves by itself.
#include <algorithm>
#include <cstddef>

#include "AttributeLists.h"
#include "ByteOrder.h"
#include "MessageLayout.h"
#include "TableRows.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMe.h"

using omci::Format;
using omci::Result;

namespace {

omci::TableRowSource g_Source = nullptr;

/// The octets of a table that one message asks for.
struct Piece
{
    Result result = Result::ParameterError;
    omci::Octets octets;
};

std::size_t roomOf(Format format)
{
    constexpr std::size_t head = 3;
    return format == Format::Baseline ? omci::kBaselineGetNextRoom : omci::kMaximumContentLength - head;
}

/// Each sequence number is a row. A row that exceeds a message takes as many numbers as it needs messages.
Piece pieceOf(const OmciMe& me, const OmciFrame& frame, unsigned short mask, unsigned short sequence)
{
    const std::size_t size = omci::AttributeListCache::instance().of(me)->size(mask);
    const std::size_t room = roomOf(static_cast<Format>(frame.getDeviceId()));
    const std::size_t piecesPerRow = std::max<std::size_t>((size + room - 1) / room, 1);
    const unsigned char* const row =
        g_Source(me.getManagedEntityClassId(), frame.getManagedEntityInstance(), mask, sequence / piecesPerRow);
    if (row == nullptr) {
        return {};
    }
    const std::size_t offset = sequence % piecesPerRow * room;
    return {Result::Success, {row + offset, std::min(room, size - offset)}};
}

bool isOneBitOf(unsigned short mask, unsigned short all)
{
    return mask != 0 && (mask & (mask - 1)) == 0 && (mask & all) != 0;
}

}  // namespace

void omci::setTableRowSource(TableRowSource source)
{
    g_Source = source;
}

int OmciMe::getNext(OmciFrame* frame) const
{
    if (frame == nullptr) {
        return -1;
    }
    constexpr std::size_t requestLength = 4;
    const bool isWhole = frame->getMessageContentLength() >= requestLength;
    const unsigned short mask = isWhole ? omci::read16(frame->getMessageContent()) : 0;
    Piece piece;
    if (getGetNextAttributesMask() == 0) {
        piece.result = Result::NotSupported;
    } else if (!isWhole) {
        piece.result = Result::ParameterError;
    } else if (findManagedEntityInstance(frame->getManagedEntityInstance()) != 0) {
        piece.result = Result::UnknownInstance;
    } else if (!isOneBitOf(mask, getGetNextAttributesMask())) {
        piece.result = Result::NotSupported;
    } else if (g_Source == nullptr) {
        piece.result = Result::ProcessingError;
    } else {
        piece = pieceOf(*this, *frame, mask, omci::read16(frame->getMessageContent() + 2));
    }
    frame->setFrameToSendBackToOLT(static_cast<unsigned char>(piece.result), 0, 0, mask, piece.octets.data,
                                   static_cast<unsigned short>(piece.octets.size));
    return piece.result == Result::Success ? 0 : -1;
}
