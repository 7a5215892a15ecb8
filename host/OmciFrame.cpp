#include "omci_host/OmciFrame.h"

#include <algorithm>
#include <cstring>

#include "FrameCodec.h"
#include "MessageLayout.h"

static_assert(OmciFrame::kBaselineContentLength == omci::kBaselineContentLength);
static_assert(OmciFrame::kMaximumContentLength == omci::kMaximumContentLength);
static_assert(OmciFrame::kBaselineDeviceId == static_cast<unsigned char>(omci::Format::Baseline));
static_assert(OmciFrame::kExtendedDeviceId == static_cast<unsigned char>(omci::Format::Extended));

using omci::Format;
using omci::MessageType;
using omci::Octets;
using omci::Result;

namespace {

/// What of `contents` still fits behind `offset` octets.
Octets clipped(const unsigned char* contents, std::size_t length, std::size_t room)
{
    return {contents, contents == nullptr ? 0 : std::min(length, room)};
}

std::size_t contentsRoom(Format format)
{
    return format == Format::Baseline ? omci::kBaselineContentLength : omci::kMaximumContentLength;
}

}  // namespace

// The octets stay as they are: clearing 4 KB per frame would cost more than the rest of the decoding.
OmciFrame::OmciFrame() = default;

void OmciFrame::setRequest(const omci::FrameView& frame)
{
    m_TransactionId = frame.header.transactionId;
    m_Class = frame.header.entityClass;
    m_Instance = frame.header.entityInstance;
    m_MessageType = static_cast<unsigned char>(frame.header.type);
    m_AcknowledgeRequest = frame.header.acknowledgeRequest ? 1 : 0;
    m_DeviceId = static_cast<unsigned char>(frame.header.format);
    m_ContentLength = static_cast<unsigned short>(std::min(frame.contentsLength, kMaximumContentLength));
    if (m_ContentLength != 0) {
        std::memcpy(m_Content.data(), frame.contents, m_ContentLength);
    }
    std::memset(m_Content.data() + m_ContentLength, 0, kSpareLength);
    m_HasReply = false;
    m_ReplyResult = 0;
    m_ReplyLength = 0;
}

unsigned short OmciFrame::getTransactionId() const
{
    return m_TransactionId;
}

unsigned char OmciFrame::getMessageTypeAR() const
{
    return m_AcknowledgeRequest;
}

unsigned char OmciFrame::getMessageType() const
{
    return m_MessageType;
}

unsigned char OmciFrame::getDeviceId() const
{
    return m_DeviceId;
}

unsigned short OmciFrame::getManagedEntityClass() const
{
    return m_Class;
}

unsigned short OmciFrame::getManagedEntityInstance() const
{
    return m_Instance;
}

const unsigned char* OmciFrame::getMessageContent() const
{
    return m_ContentLength == 0 ? nullptr : m_Content.data();
}

unsigned short OmciFrame::getMessageContentLength() const
{
    return m_ContentLength;
}

namespace {

omci::FrameView viewOf(const OmciFrame& frame)
{
    omci::FrameView view;
    view.contents = frame.getMessageContent();
    view.contentsLength = frame.getMessageContentLength();
    return view;
}

}  // namespace

unsigned char OmciFrame::getWindowSizeInStartSoftwareDownload() const
{
    const auto request = omci::parseStartDownloadRequest(viewOf(*this));
    return request ? request->windowSizeMinusOne : std::uint8_t{0};
}

unsigned int OmciFrame::getImageSizeInStartSoftwareDownload() const
{
    const auto request = omci::parseStartDownloadRequest(viewOf(*this));
    return request ? request->imageSize : 0;
}

unsigned short OmciFrame::getDownloadSectionNumberInDownloadSection(bool /*received*/) const
{
    // Asked for with every section of an image; parsing the whole would cost as much as taking it.
    return m_ContentLength == 0 ? std::uint8_t{0} : m_Content[0];
}

unsigned int OmciFrame::getCRC32FromEndSoftwareDownload() const
{
    const auto request = omci::parseEndDownloadRequest(viewOf(*this));
    return request ? request->crc : 0;
}

unsigned int OmciFrame::getImageSizeInEndSoftwareDownload() const
{
    const auto request = omci::parseEndDownloadRequest(viewOf(*this));
    return request ? request->imageSize : 0;
}

void OmciFrame::setReply(unsigned char result, unsigned short contentsLength)
{
    m_ReplyResult = result;
    m_ReplyLength = contentsLength;
    m_HasReply = true;
}

void OmciFrame::setFrameToSendBackToOLT(unsigned char result, unsigned short value1, unsigned short value2,
                                        unsigned short value3, const unsigned char* contents,
                                        unsigned short contentsLength)
{
    const auto format = static_cast<Format>(m_DeviceId);
    const auto reason = static_cast<Result>(result);
    const bool success = reason == Result::Success;
    const std::size_t room = contentsRoom(format);
    const auto octet1 = static_cast<std::uint8_t>(value1);
    unsigned char* const reply = m_Reply.data();
    std::size_t length = 0;
    switch (static_cast<MessageType>(m_MessageType)) {
    case MessageType::MibUpload:
    case MessageType::GetAllAlarms:
        length = omci::CountResponse{success ? value1 : std::uint16_t{0}}.write(reply);
        break;
    case MessageType::MibUploadNext:
    case MessageType::GetAllAlarmsNext: {
        const Octets snapshot = clipped(contents, success ? contentsLength : 0, room);
        if (snapshot.size != 0) {
            std::memmove(reply, snapshot.data, snapshot.size);
        }
        length = snapshot.size;
        break;
    }
    case MessageType::Get:
    case MessageType::GetCurrentData: {
        const Octets values = clipped(contents, contentsLength, omci::GetResponse::room(format));
        length = omci::GetResponse{reason, value3, value2, 0, values}.write(format, reply);
        break;
    }
    case MessageType::GetNext: {
        const Octets data = clipped(contents, success ? contentsLength : 0, room - 3);
        length = omci::GetNextResponse{reason, value3, data}.write(format, reply);
        break;
    }
    case MessageType::Create:
        length = omci::CreateResponse{reason, value3}.write(reply);
        break;
    case MessageType::Set:
    case MessageType::SetTable:
        length = omci::SetResponse{reason, value2, value3}.write(format, reply);
        break;
    case MessageType::StartSoftwareDownload:
        length = omci::StartDownloadResponse{reason, octet1, clipped(contents, contentsLength, room - 3)}.write(format,
                                                                                                                reply);
        break;
    case MessageType::DownloadSection:
        length = omci::SectionResponse{reason, octet1}.write(reply);
        break;
    case MessageType::EndSoftwareDownload:
        length = omci::EndDownloadResponse{reason, clipped(contents, contentsLength, room - 2)}.write(format, reply);
        break;
    default:
        length = omci::ResultResponse{reason}.write(reply);
        break;
    }
    setReply(result, static_cast<unsigned short>(length));
}
