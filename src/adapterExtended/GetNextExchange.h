#ifndef NRVK_ADAPTER_EXTENDED_GET_NEXT_EXCHANGE_H
#define NRVK_ADAPTER_EXTENDED_GET_NEXT_EXCHANGE_H

#include <cstddef>
#include <vector>

class OmciFrame;

namespace nrvk {

/// Results and reasons of a get next (G.988 A.1.1).
enum GetNextResult : int
{
    GET_NEXT_SUCCESS = 0,
    GET_NEXT_PROCESSING_ERROR = 1,
    GET_NEXT_ATTRIBUTE_NOT_SUPPORTED = 2,
    GET_NEXT_PARAMETER_ERROR = 3,
    GET_NEXT_UNKNOWN_INSTANCE = 5,
};

/// One get next: the OLT's request, and the reply in the making. Contents too short for the request's fields read as
/// zeros, so that such a request asks for no attribute.
class GetNextExchange
{
public:
    /// `rowSize`: bytes that the reply's buffer has at the least, however short the request's contents are.
    GetNextExchange(OmciFrame& frame, std::size_t rowSize);

    unsigned short instance() const { return m_Instance; }
    unsigned short attributeMask() const { return m_AttributeMask; }
    unsigned short sequenceNumber() const { return m_SequenceNumber; }

    /// All zeros at first.
    unsigned char* buffer() { return m_Buffer.data(); }
    unsigned short bufferLength() const { return static_cast<unsigned short>(m_Buffer.size()); }
    /// Bytes of the request's contents.
    unsigned short contentLength() const { return m_ContentLength; }

    /// Puts the buffer's first `length` bytes into the frame's reply.
    void reply(int result, unsigned short length);

private:
    OmciFrame& m_Frame;
    unsigned short m_Instance;
    unsigned short m_ContentLength;
    unsigned short m_AttributeMask = 0;
    unsigned short m_SequenceNumber = 0;
    std::vector<unsigned char> m_Buffer;
};

}  // namespace nrvk

#endif
