#include "FrameCodec.h"

#include <cstring>

#include "ByteOrder.h"

namespace omci {

namespace {

constexpr std::uint8_t kAcknowledgeRequestBit = 0x40;
constexpr std::uint8_t kAcknowledgementBit = 0x20;
constexpr std::uint8_t kReservedBit = 0x80;
constexpr std::uint8_t kTypeBits = 0x1F;

constexpr std::size_t headerLength(Format format)
{
    return format == Format::Baseline ? kBaselineHeaderLength : kExtendedHeaderLength;
}

DecodeError decodeBaselineContents(const std::uint8_t* bytes, std::size_t length, FrameView& frame)
{
    if (length < kBaselineHeaderLength + kBaselineContentLength) {
        return DecodeError::Truncated;
    }
    if (length > kBaselineFrameLength) {
        return DecodeError::Oversized;
    }
    frame.contents = bytes + kBaselineHeaderLength;
    frame.contentsLength = kBaselineContentLength;
    frame.hasMic = length == kBaselineFrameLength;
    return DecodeError::None;
}

DecodeError decodeExtendedContents(const std::uint8_t* bytes, std::size_t length, FrameView& frame)
{
    const std::size_t contentsLength = read16(bytes + kBaselineHeaderLength);
    if (contentsLength > kMaximumContentLength) {
        return DecodeError::Oversized;
    }
    if (length < kExtendedHeaderLength + contentsLength) {
        return DecodeError::Truncated;
    }
    if (length > kExtendedHeaderLength + contentsLength + kMicLength) {
        return DecodeError::Oversized;
    }
    frame.contents = bytes + kExtendedHeaderLength;
    frame.contentsLength = contentsLength;
    frame.hasMic = length == kExtendedHeaderLength + contentsLength + kMicLength;
    return DecodeError::None;
}

}  // namespace

const char* messageTypeName(MessageType type)
{
    switch (type) {
    case MessageType::Create:
        return "create";
    case MessageType::Delete:
        return "delete";
    case MessageType::Set:
        return "set";
    case MessageType::Get:
        return "get";
    case MessageType::GetAllAlarms:
        return "get all alarms";
    case MessageType::GetAllAlarmsNext:
        return "get all alarms next";
    case MessageType::MibUpload:
        return "MIB upload";
    case MessageType::MibUploadNext:
        return "MIB upload next";
    case MessageType::MibReset:
        return "MIB reset";
    case MessageType::Alarm:
        return "alarm";
    case MessageType::AttributeValueChange:
        return "attribute value change";
    case MessageType::Test:
        return "test";
    case MessageType::StartSoftwareDownload:
        return "start software download";
    case MessageType::DownloadSection:
        return "download section";
    case MessageType::EndSoftwareDownload:
        return "end software download";
    case MessageType::ActivateImage:
        return "activate image";
    case MessageType::CommitImage:
        return "commit image";
    case MessageType::SynchronizeTime:
        return "synchronize time";
    case MessageType::Reboot:
        return "reboot";
    case MessageType::GetNext:
        return "get next";
    case MessageType::TestResult:
        return "test result";
    case MessageType::GetCurrentData:
        return "get current data";
    case MessageType::SetTable:
        return "set table";
    }
    return "unknown message type";
}

const char* resultName(Result result)
{
    switch (result) {
    case Result::Success:
        return "success";
    case Result::ProcessingError:
        return "command processing error";
    case Result::NotSupported:
        return "command not supported";
    case Result::ParameterError:
        return "parameter error";
    case Result::UnknownManagedEntity:
        return "unknown managed entity";
    case Result::UnknownInstance:
        return "unknown managed entity instance";
    case Result::DeviceBusy:
        return "device busy";
    case Result::InstanceExists:
        return "instance exists";
    case Result::AttributesFailed:
        return "attribute(s) failed or unknown";
    }
    return "unknown result";
}

const char* formatName(Format format)
{
    return format == Format::Baseline ? "baseline" : "extended";
}

const char* decodeErrorName(DecodeError error)
{
    switch (error) {
    case DecodeError::None:
        return "no error";
    case DecodeError::TooShort:
        return "too short for a header";
    case DecodeError::UnknownDeviceId:
        return "unknown device identifier";
    case DecodeError::InvalidMessageType:
        return "reserved bit of the message type set";
    case DecodeError::Truncated:
        return "contents truncated";
    case DecodeError::Oversized:
        return "contents oversized";
    }
    return "unknown error";
}

bool isKnown(MessageType type)
{
    constexpr std::uint32_t known = 0x3FFFFB50;  // bit n for type n, as the enumeration has them
    return ((known >> static_cast<unsigned>(type)) & 1U) != 0;
}

bool isAutonomous(MessageType type)
{
    return type == MessageType::Alarm || type == MessageType::AttributeValueChange || type == MessageType::TestResult;
}

FrameHeader responseTo(const FrameHeader& request)
{
    FrameHeader response = request;
    response.acknowledgeRequest = false;
    response.acknowledgement = true;
    return response;
}

Decoded decode(const std::uint8_t* bytes, std::size_t length)
{
    Decoded decoded;
    if (bytes == nullptr || length < kBaselineHeaderLength) {
        decoded.error = DecodeError::TooShort;
        return decoded;
    }
    if (bytes[3] != static_cast<std::uint8_t>(Format::Baseline) &&
        bytes[3] != static_cast<std::uint8_t>(Format::Extended)) {
        decoded.error = DecodeError::UnknownDeviceId;
        return decoded;
    }
    FrameHeader& header = decoded.frame.header;
    header.format = static_cast<Format>(bytes[3]);
    if (length < headerLength(header.format)) {
        decoded.error = DecodeError::TooShort;
        return decoded;
    }
    header.transactionId = read16(bytes);
    header.type = static_cast<MessageType>(bytes[2] & kTypeBits);
    header.acknowledgeRequest = (bytes[2] & kAcknowledgeRequestBit) != 0;
    header.acknowledgement = (bytes[2] & kAcknowledgementBit) != 0;
    header.entityClass = read16(bytes + 4);
    header.entityInstance = read16(bytes + 6);
    if ((bytes[2] & kReservedBit) != 0) {
        decoded.error = DecodeError::InvalidMessageType;
        return decoded;
    }
    decoded.error = header.format == Format::Baseline ? decodeBaselineContents(bytes, length, decoded.frame)
                                                      : decodeExtendedContents(bytes, length, decoded.frame);
    return decoded;
}

std::size_t encodedLength(Format format, std::size_t contentsLength)
{
    return format == Format::Baseline ? kBaselineFrameLength : kExtendedHeaderLength + contentsLength + kMicLength;
}

std::size_t encode(const FrameHeader& header, const std::uint8_t* contents, std::size_t contentsLength,
                   std::uint8_t* out)
{
    const bool baseline = header.format == Format::Baseline;
    if (contentsLength > (baseline ? kBaselineContentLength : kMaximumContentLength)) {
        return 0;
    }
    std::uint8_t* const place = out + headerLength(header.format);
    if (contentsLength != 0 && contents != place) {
        std::memmove(place, contents, contentsLength);
    }
    write16(out, header.transactionId);
    out[2] = static_cast<std::uint8_t>(static_cast<std::uint8_t>(header.type) |
                                       (header.acknowledgeRequest ? kAcknowledgeRequestBit : 0) |
                                       (header.acknowledgement ? kAcknowledgementBit : 0));
    out[3] = static_cast<std::uint8_t>(header.format);
    write16(out + 4, header.entityClass);
    write16(out + 6, header.entityInstance);
    if (!baseline) {
        write16(out + kBaselineHeaderLength, static_cast<std::uint16_t>(contentsLength));
        write32(place + contentsLength, 0);
        return kExtendedHeaderLength + contentsLength + kMicLength;
    }
    std::memset(place + contentsLength, 0, kBaselineContentLength - contentsLength);
    write32(place + kBaselineContentLength, kBaselineTrailer);
    write32(place + kBaselineContentLength + 4, 0);
    return kBaselineFrameLength;
}

}  // namespace omci
