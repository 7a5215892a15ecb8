#include "adapterExtended/TableReplay.h"

#include <algorithm>
#include <list>

#include "OmciFrame.h"
#include "OmciMe.h"
#include "adapterExtended/GetNextExchange.h"
#include "attributeDefinition.h"
#include "impl/HexText.h"
#include "impl/Log.h"

namespace {

bool isServedByGetNext(const OmciMe& adapter, unsigned short attributeMask)
{
    std::list<attributeDefinition> attributes;
    adapter.getAttributesListForGetNext(&attributes);
    return std::any_of(attributes.begin(), attributes.end(), [attributeMask](const attributeDefinition& definition) {
        return definition.attributeMask == attributeMask && (definition.attributeFlags & ATTRIBUTE_FLAG_GET_NEXT) != 0;
    });
}

int copyRow(const nrvk::ServedTable* rows, unsigned short sequenceNumber, unsigned char* buffer, unsigned short* length)
{
    if (rows == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return nrvk::GET_NEXT_PROCESSING_ERROR;
    }
    if (sequenceNumber > rows->servedRows()) {
        return nrvk::GET_NEXT_PARAMETER_ERROR;
    }
    const nrvk::ServedTable::Row row = rows->servedRow(sequenceNumber);
    std::copy(row.begin(), row.end(), buffer);
    *length = nrvk::ServedTable::kRowSize;
    return nrvk::GET_NEXT_SUCCESS;
}

}  // namespace

int nrvk::replayTable(const OmciMe& adapter, const RowSequence& sequence, const ReplayedTable& table, OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    GetNextExchange exchange(*frame, ServedTable::kRowSize);
    unsigned short length = exchange.contentLength();
    if (exchange.attributeMask() == table.attributeMask) {
        length = ServedTable::kRowSize;
    }
    int result = GET_NEXT_UNKNOWN_INSTANCE;
    if (adapter.findManagedEntityInstance(exchange.instance()) != 0) {
        NRVK_LOG(3, "Instance(%hu) doesn't exists", exchange.instance());
    } else {
        result = replayRow(adapter, sequence, table, exchange.instance(), exchange.attributeMask(),
                           exchange.sequenceNumber(), exchange.buffer(), &length);
        if (result != GET_NEXT_SUCCESS) {
            NRVK_LOG(3, "Failed to retrieve the next(%hu) message", exchange.sequenceNumber());
        }
    }
    exchange.reply(result, length);
    // Deliberate: a refused request moves the sequence too.
    sequence.advance();
    return 0;
}

int nrvk::replayRow(const OmciMe& adapter, const RowSequence& sequence, const ReplayedTable& table,
                    unsigned short instance, unsigned short attributeMask, unsigned short sequenceNumber,
                    unsigned char* buffer, unsigned short* length)
{
    NRVK_LOG(6, "Attribute mask(0x%X); Sequence number(%u)", attributeMask, sequenceNumber);
    if (buffer == nullptr || length == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return GET_NEXT_PROCESSING_ERROR;
    }
    if (!isServedByGetNext(adapter, attributeMask)) {
        NRVK_LOG(3, "Attribute mask(0x%X) not found or not enabled for GetNext action", attributeMask);
        return GET_NEXT_ATTRIBUTE_NOT_SUPPORTED;
    }
    if (sequenceNumber != sequence.nextSequenceNumber()) {
        NRVK_LOG(3, "Command sequence number(%hu) out of order, expected(%hu)", sequenceNumber,
                 sequence.nextSequenceNumber());
        return GET_NEXT_PARAMETER_ERROR;
    }
    if (attributeMask == table.attributeMask) {
        const int result = copyRow(table.find(instance), sequenceNumber, buffer, length);
        if (result != GET_NEXT_SUCCESS) {
            return result;
        }
    }
    if (table.logsBuffer) {
        NRVK_LOG_RENDERED(6, "Buffer(%u; %s)", *length, HexText(buffer, *length).get());
    }
    return GET_NEXT_SUCCESS;
}
