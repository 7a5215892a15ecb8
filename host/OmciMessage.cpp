#include "omci_host/OmciMessage.h"

OmciMessage::OmciMessage(const unsigned char* message, unsigned short length)
{
    setMessage(message, length);
}

OmciMessage::~OmciMessage() = default;

unsigned char* OmciMessage::getMessage()
{
    return m_Message.data();
}

unsigned short OmciMessage::getMessageLength()
{
    return static_cast<unsigned short>(m_Message.size());
}

void OmciMessage::setMessage(const unsigned char* message, unsigned short length)
{
    if (message == nullptr) {
        m_Message.clear();
        return;
    }
    m_Message.assign(message, message + length);
}
