#include "adapterExtended/MessageSnapshot.h"

#include <cstring>

#include "impl/HexText.h"
#include "impl/Log.h"

namespace nrvk {

int MessageSnapshot::setMessage(unsigned short sequenceNumber, const unsigned char* buffer, unsigned short length)
{
    if (buffer == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    NRVK_LOG_RENDERED(6, "Sequence number(%hu); buffer(%hu; %s)", sequenceNumber, length,
                      HexText(buffer, length).get());
    if (m_Messages.count(sequenceNumber) != 0) {
        NRVK_LOG(4, "Sequence number(%hu) already recorded", sequenceNumber);
        return -1;
    }
    m_Messages.emplace(sequenceNumber, std::make_unique<OmciMessage>(buffer, length));
    return 0;
}

int MessageSnapshot::getMessage(unsigned short sequenceNumber, unsigned char* buffer, unsigned short* length) const
{
    if (buffer == nullptr || length == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    NRVK_LOG(6, "Sequence number(%hu)", sequenceNumber);
    const auto found = m_Messages.find(sequenceNumber);
    if (found == m_Messages.end()) {
        NRVK_LOG(4, "Sequence number(%hu) not found", sequenceNumber);
        return -1;
    }
    OmciMessage& message = *found->second;
    if (message.getMessageLength() <= *length) {
        *length = message.getMessageLength();
        std::memcpy(buffer, message.getMessage(), *length);
    }
    NRVK_LOG_RENDERED(6, "Sequence number(%hu); Buffer(%hu; %s)", sequenceNumber, *length,
                      HexText(buffer, *length).get());
    return 0;
}

}  // namespace nrvk
