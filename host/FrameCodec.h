#ifndef HOST_FRAME_CODEC_H
#define HOST_FRAME_CODEC_H

#include <cstddef>
#include <cstdint>

/// OMCI frames as G.988 11.2 and annex A have them. Nothing in here allocates, throws or knows a managed entity, so
/// that ONU and OLT share it.
namespace omci {

/// @name Octets of a frame and its pieces
/// @{
constexpr std::size_t kBaselineHeaderLength = 8;    ///< in front of baseline contents
constexpr std::size_t kBaselineContentLength = 32;  ///< contents of every baseline frame
/// Octets 40 to 43 of a baseline frame.
constexpr std::uint32_t kBaselineTrailer = 0x28;
constexpr std::size_t kBaselineFrameLength = 48;     ///< a baseline frame with trailer and MIC
constexpr std::size_t kExtendedHeaderLength = 10;    ///< in front of extended contents, their length included
constexpr std::size_t kMicLength = 4;                ///< the integrity check that ends a frame
constexpr std::size_t kMaximumContentLength = 1966;  ///< contents of the longest extended frame
/// The longest frame, MIC included.
constexpr std::size_t kMaximumFrameLength = kExtendedHeaderLength + kMaximumContentLength + kMicLength;
/// @}

/// The device identifier octet.
enum class Format : std::uint8_t
{
    Baseline = 0x0A,
    Extended = 0x0B
};

/// The low five bits of the message type octet.
enum class MessageType : std::uint8_t
{
    Create = 4,
    Delete = 6,
    Set = 8,
    Get = 9,
    GetAllAlarms = 11,
    GetAllAlarmsNext = 12,
    MibUpload = 13,
    MibUploadNext = 14,
    MibReset = 15,
    Alarm = 16,
    AttributeValueChange = 17,
    Test = 18,
    StartSoftwareDownload = 19,
    DownloadSection = 20,
    EndSoftwareDownload = 21,
    ActivateImage = 22,
    CommitImage = 23,
    SynchronizeTime = 24,
    Reboot = 25,
    GetNext = 26,
    TestResult = 27,
    GetCurrentData = 28,
    SetTable = 29
};

/// Result and reason of a response.
enum class Result : std::uint8_t
{
    Success = 0,
    ProcessingError = 1,
    NotSupported = 2,
    ParameterError = 3,
    UnknownManagedEntity = 4,
    UnknownInstance = 5,
    DeviceBusy = 6,
    InstanceExists = 7,
    AttributesFailed = 9
};

/// "get next", "mib upload" ... for people; "unknown message type" for a number that G.988 does not give. Static texts.
const char* messageTypeName(MessageType type);
/// "success", "parameter error" ... for people; static texts.
const char* resultName(Result result);
/// "baseline" or "extended"; static texts.
const char* formatName(Format format);
/// Whether G.988 has a message type of that number.
bool isKnown(MessageType type);
/// Alarm, attribute value change, test result: sent by the ONU unasked.
bool isAutonomous(MessageType type);

/// What stands before the contents. Numbers in host byte order.
struct FrameHeader
{
    std::uint16_t transactionId = 0;      ///< 0 for what the ONU sends unasked
    MessageType type = MessageType::Get;  ///< the low five bits of the type octet
    bool acknowledgeRequest = false;      ///< AR: a request that wants a response
    bool acknowledgement = false;         ///< AK: a response
    Format format = Format::Baseline;     ///< device identifier octet
    std::uint16_t entityClass = 0;        ///< G.988 class number
    std::uint16_t entityInstance = 0;     ///< instance id
};

/// The header of the response to `request`.
FrameHeader responseTo(const FrameHeader& request);

/// A decoded frame. The contents point into the decoded bytes.
struct FrameView
{
    FrameHeader header;                      ///< what stands before the contents
    const std::uint8_t* contents = nullptr;  ///< null without contents
    /// 32 for baseline, the length field for extended.
    std::size_t contentsLength = 0;
    /// Whether the frame carries its four MIC octets, the last ones.
    bool hasMic = false;
};

/// Why octets are not a frame.
enum class DecodeError : std::uint8_t
{
    None,
    TooShort,            ///< no room for a header
    UnknownDeviceId,     ///< neither 0x0A nor 0x0B
    InvalidMessageType,  ///< top bit of the message type octet set
    Truncated,           ///< contents cut off: baseline under 40 octets, extended under its length field
    Oversized            ///< baseline over 48 octets, extended with octets behind the MIC or a length field over 1966
};

/// The error in words for people; static texts.
const char* decodeErrorName(DecodeError error);

/// What `decode` made of received octets.
struct Decoded
{
    DecodeError error = DecodeError::None;  ///< None: the whole frame is valid
    /// The header is valid with Truncated and Oversized too, the contents only without an error.
    FrameView frame;

    /// Whether the whole frame is valid.
    explicit operator bool() const { return error == DecodeError::None; }
    /// Whether at least the header is.
    bool hasHeader() const { return error == DecodeError::None || error >= DecodeError::Truncated; }
};

/// Reads one frame. Baseline frames may lack the MIC or trailer and MIC (40 octets), extended ones the MIC; the
/// trailer's value is not looked at. The MIC itself is checked by Mic.
Decoded decode(const std::uint8_t* bytes, std::size_t length);

/// The length of the frame that `encode` makes, MIC included.
std::size_t encodedLength(Format format, std::size_t contentsLength);

/// Writes a whole frame with a zero MIC into `out`, which holds kMaximumFrameLength octets. Baseline contents are
/// padded with zeros. `contents` may already stand at their place in `out`. Yields the frame's length; 0 when the
/// contents exceed the format.
std::size_t encode(const FrameHeader& header, const std::uint8_t* contents, std::size_t contentsLength,
                   std::uint8_t* out);

}  // namespace omci

#endif
