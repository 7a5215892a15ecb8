#include "adapterExtended/OmciMeDot1agCFMStackAdapterExtended.h"

#include "OmciMeDot1agCFMStackIf.h"
#include "adapterExtended/GetNextExchange.h"
#include "impl/BigEndian.h"
#include "impl/Log.h"
#include "impl/MpStatusTable.h"

namespace {

constexpr unsigned short kMpStatusTableMask = 0x4000;

/// Port, level, direction, VLAN, maintenance domain, association, MEP id, MAC address.
void logRow(const unsigned char* row, unsigned short length)
{
    const auto word = [row](std::size_t at) { return static_cast<unsigned short>(nrvk::readBigEndian(row + at, 2)); };
    const unsigned char* mac = row + 12;
    NRVK_LOG(6,
             "CfmStackAdapterExt transfer buffer (Len= %d): %04x %2x %2x %04x %04x %04x %04x %2x %2x %2x %2x %2x %2x",
             length, word(0), row[2], row[3], word(4), word(6), word(8), word(10), mac[0], mac[1], mac[2], mac[3],
             mac[4], mac[5]);
}

}  // namespace

int OmciMeDot1agCFMStackAdapterExtended::getNext(OmciFrame* frame) const
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    nrvk::GetNextExchange exchange(*frame, nrvk::MpStatusTable::kRowSize);
    unsigned short length = exchange.bufferLength();
    int result = nrvk::GET_NEXT_ATTRIBUTE_NOT_SUPPORTED;
    if (exchange.attributeMask() != kMpStatusTableMask) {
        // Deliberate: the conversion has no end, and the line reads so.
        NRVK_LOG(3, "Unsupported CfmStack GetNext on Attr %04", exchange.attributeMask());
    } else {
        result = readRow(exchange.instance(), exchange.sequenceNumber(), exchange.buffer(), &length);
    }
    exchange.reply(result, length);
    return 0;
}

int OmciMeDot1agCFMStackAdapterExtended::readRow(unsigned short instance, unsigned short sequenceNumber,
                                                 unsigned char* buffer, unsigned short* length) const
{
    if (findManagedEntityInstance(instance) != 0) {
        NRVK_LOG(3, "Instance(%hu) doesn't exists", instance);
        return nrvk::GET_NEXT_UNKNOWN_INSTANCE;
    }
    const int result = getNextMpStatusTableMessage(instance, sequenceNumber, buffer, length);
    if (result == nrvk::GET_NEXT_SUCCESS) {
        logRow(buffer, *length);
    } else {
        NRVK_LOG(3, "Failed to retrieve the next(%hu) message", sequenceNumber);
    }
    return result;
}

int OmciMeDot1agCFMStackAdapterExtended::getNextMpStatusTableMessage(unsigned short instance,
                                                                     unsigned short sequenceNumber,
                                                                     unsigned char* buffer,
                                                                     unsigned short* /*length*/) const
{
    NRVK_LOG(6, "MpStatusTableGetNext Inst %04x Sequence number(%u)", instance, sequenceNumber);
    auto* table = dynamic_cast<nrvk::MpStatusTable*>(OmciMeDot1agCFMStackIf::getManagedEntityInstance(instance));
    if (table == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return nrvk::GET_NEXT_PROCESSING_ERROR;
    }
    if (sequenceNumber > table->highestSequenceNumber()) {
        NRVK_LOG(3, "Command sequence number(%hu) out of order, expected(%hu)", sequenceNumber,
                 table->highestSequenceNumber());
        return nrvk::GET_NEXT_PARAMETER_ERROR;
    }
    if (table->getNextMpStatusTableEntry(sequenceNumber, buffer) != 0) {
        NRVK_LOG(3, "Error reading MpStatus from ImplExt");
        return nrvk::GET_NEXT_PARAMETER_ERROR;
    }
    NRVK_LOG(6, "MpStatusTableGetNext entry delivered");
    return nrvk::GET_NEXT_SUCCESS;
}
