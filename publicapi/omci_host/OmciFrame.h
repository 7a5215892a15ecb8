#ifndef OMCI_HOST_OMCI_FRAME_H
#define OMCI_HOST_OMCI_FRAME_H

#include <array>
#include <cstddef>
#include <cstdint>

/// One received OMCI frame, and the reply that is built into it (G.988 11.2).
///
/// Numbers are in host byte order, contents in network byte order. The object owns all its bytes; nothing in it
/// allocates.
class OmciFrame
{
public:
    static constexpr unsigned char kBaselineDeviceId = 10;
    static constexpr unsigned char kExtendedDeviceId = 11;
    /// Contents of a baseline frame, and the most that an extended frame carries.
    static constexpr std::size_t kBaselineContentLength = 32;
    static constexpr std::size_t kMaximumContentLength = 1966;

    unsigned short getTransactionId() const;
    /// 1 when the acknowledge request bit is set.
    unsigned char getMessageTypeAR() const;
    /// The message type number, 4 (create) to 29 (set table).
    unsigned char getMessageType() const;
    /// 10 baseline, 11 extended.
    unsigned char getDeviceId() const;
    unsigned short getManagedEntityClass() const;
    unsigned short getManagedEntityInstance() const;
    /// The received contents; null for a frame that has none at all.
    const unsigned char* getMessageContent() const;
    unsigned short getMessageContentLength() const;

    /// Window size minus one, as the OLT proposes it.
    unsigned char getWindowSizeInStartSoftwareDownload() const;
    /// Bytes.
    unsigned int getImageSizeInStartSoftwareDownload() const;
    /// The section's number within its window. The argument is not used.
    unsigned short getDownloadSectionNumberInDownloadSection(bool received) const;
    unsigned int getCRC32FromEndSoftwareDownload() const;
    /// Bytes.
    unsigned int getImageSizeInEndSoftwareDownload() const;

    /// Builds the reply. `result` is the OMCI result and reason; `value1` is the command count of a MIB upload or get
    /// all alarms, the window size of a start download, or the section number of a download section; `value3` is the
    /// attribute mask of a get next reply. `contents` may be null with length 0; it is copied.
    void setFrameToSendBackToOLT(unsigned char result, unsigned short value1, unsigned short value2,
                                 unsigned short value3, const unsigned char* contents, unsigned short contentsLength);
};

#endif
