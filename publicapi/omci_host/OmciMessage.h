#ifndef OMCI_HOST_OMCI_MESSAGE_H
#define OMCI_HOST_OMCI_MESSAGE_H

#include <vector>

/// A heap-held block of message bytes.
class OmciMessage
{
public:
    OmciMessage() = default;
    /// Copies `length` bytes.
    OmciMessage(const unsigned char* message, unsigned short length);
    virtual ~OmciMessage();

    /// The bytes, owned by the object and good until the next setMessage; null for a message that holds nothing.
    unsigned char* getMessage();
    /// 0 for a message that holds nothing.
    unsigned short getMessageLength();
    /// Replaces the bytes by a copy of `length` bytes.
    void setMessage(const unsigned char* message, unsigned short length);

private:
    std::vector<unsigned char> m_Message;
};

#endif
