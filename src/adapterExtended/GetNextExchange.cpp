#include "adapterExtended/GetNextExchange.h"

#include <algorithm>

#include "OmciFrame.h"
#include "impl/BigEndian.h"

namespace nrvk {

GetNextExchange::GetNextExchange(OmciFrame& frame, std::size_t rowSize)
    : m_Frame(frame), m_Instance(frame.getManagedEntityInstance()), m_ContentLength(frame.getMessageContentLength()),
      m_Buffer(std::max<std::size_t>(m_ContentLength, rowSize))
{
    const unsigned char* contents = frame.getMessageContent();
    if (contents != nullptr && m_ContentLength >= 2) {
        m_AttributeMask = static_cast<unsigned short>(readBigEndian(contents, 2));
    }
    if (contents != nullptr && m_ContentLength >= 4) {
        m_SequenceNumber = static_cast<unsigned short>(readBigEndian(contents + 2, 2));
    }
}

void GetNextExchange::reply(int result, unsigned short length)
{
    m_Frame.setFrameToSendBackToOLT(static_cast<unsigned char>(result), 0, 0, m_AttributeMask, m_Buffer.data(), length);
}

}  // namespace nrvk
