#include "Frames.h"

namespace bench {

std::vector<unsigned char> baselineRequest(omci::MessageType type, unsigned short classId, unsigned short instance,
                                           const std::vector<unsigned char>& contents)
{
    omci::FrameHeader header;
    header.type = type;
    header.acknowledgeRequest = true;
    header.entityClass = classId;
    header.entityInstance = instance;
    std::vector<unsigned char> frame(omci::kMaximumFrameLength);
    frame.resize(omci::encode(header, contents.data(), contents.size(), frame.data()));
    return frame;
}

void setTransactionId(std::vector<unsigned char>& frame, unsigned short transaction)
{
    frame[0] = static_cast<unsigned char>((transaction >> 8) & 0x7F);
    frame[1] = static_cast<unsigned char>(transaction);
}

}  // namespace bench
