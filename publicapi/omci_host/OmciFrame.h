#ifndef OMCI_HOST_OMCI_FRAME_H
#define OMCI_HOST_OMCI_FRAME_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace omci {
struct FrameView;
}

/// One received OMCI frame, and the reply that is built into it (G.988 11.2).
///
/// Numbers are in host byte order, contents in network byte order. The object owns all its bytes; nothing in it
/// allocates.
class OmciFrame
{
public:
    OmciFrame();

    static constexpr unsigned char kBaselineDeviceId = 10;     ///< device identifier of baseline frames
    static constexpr unsigned char kExtendedDeviceId = 11;     ///< device identifier of extended frames
    static constexpr std::size_t kBaselineContentLength = 32;  ///< octets of contents of a baseline frame
    static constexpr std::size_t kMaximumContentLength =
        1966;  ///< octets of contents that an extended frame carries at most

    /// Transaction correlation identifier; its top bit is the priority of a baseline request.
    unsigned short getTransactionId() const;
    /// 1 when the acknowledge request bit is set.
    unsigned char getMessageTypeAR() const;
    /// The message type number, 4 (create) to 29 (set table).
    unsigned char getMessageType() const;
    /// 10 baseline, 11 extended.
    unsigned char getDeviceId() const;
    /// G.988 class number of the addressed entity.
    unsigned short getManagedEntityClass() const;
    /// Instance id of the addressed entity.
    unsigned short getManagedEntityInstance() const;
    /// The received contents; null for a frame that has none at all.
    const unsigned char* getMessageContent() const;
    /// Octets of the received contents: 32 for baseline, the length field for extended.
    unsigned short getMessageContentLength() const;

    /// Window size minus one, as the OLT proposes it.
    unsigned char getWindowSizeInStartSoftwareDownload() const;
    /// Bytes.
    unsigned int getImageSizeInStartSoftwareDownload() const;
    /// The section's number within its window. The argument is not used.
    unsigned short getDownloadSectionNumberInDownloadSection(bool received) const;
    /// CRC-32 of the whole image, as the OLT computed it; see CRC32.
    unsigned int getCRC32FromEndSoftwareDownload() const;
    /// Bytes.
    unsigned int getImageSizeInEndSoftwareDownload() const;

    /// Builds the reply by the request's type and format. `result` is the OMCI result and reason; `value1` is the
    /// command count of a MIB upload or get all alarms, the window size of a start download, or the section number of a
    /// download section; `value2` the optional-attribute mask and `value3` the attribute execution mask of a create or
    /// set, or the attribute mask of a get or get next reply. `contents` may be null with length 0; it is copied, and
    /// what exceeds the format is cut off. Counts and snapshots have no result on the wire: a failed one counts 0 or is
    /// empty.
    void setFrameToSendBackToOLT(unsigned char result, unsigned short value1, unsigned short value2,
                                 unsigned short value3, const unsigned char* contents, unsigned short contentsLength);

    /// @name The host's side
    /// @{

    /// Octets behind the longest contents that a careless reader or writer of an attribute may touch.
    static constexpr std::size_t kSpareLength = 64;

    /// Takes a decoded request in; forgets the reply.
    void setRequest(const omci::FrameView& frame);
    /// Whether a reply has been built since setRequest.
    bool hasReply() const { return m_HasReply; }
    /// Result of the reply, also where the wire has no place for it.
    unsigned char getReplyResult() const { return m_ReplyResult; }
    /// Contents of the reply, without baseline padding.
    const unsigned char* getReplyContent() const { return m_Reply.data(); }
    /// Octets of getReplyContent.
    unsigned short getReplyContentLength() const { return m_ReplyLength; }
    /// The reply's contents to be written in place: kMaximumContentLength octets and the spare.
    unsigned char* getReplyBuffer() { return m_Reply.data(); }
    /// Declares what was written in place to be the reply.
    void setReply(unsigned char result, unsigned short contentsLength);
    /// @}

private:
    unsigned short m_TransactionId = 0;
    unsigned short m_Class = 0;
    unsigned short m_Instance = 0;
    unsigned short m_ContentLength = 0;
    unsigned short m_ReplyLength = 0;
    unsigned char m_MessageType = 0;
    unsigned char m_AcknowledgeRequest = 0;
    unsigned char m_DeviceId = kBaselineDeviceId;
    unsigned char m_ReplyResult = 0;
    bool m_HasReply = false;
    std::array<unsigned char, kMaximumContentLength + kSpareLength> m_Content;
    std::array<unsigned char, kMaximumContentLength + kSpareLength> m_Reply;
};

#endif
