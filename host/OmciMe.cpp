#include "omci_host/OmciMe.h"

#include <array>
#include <cstddef>

#include "AttributeLists.h"
#include "ByteOrder.h"
#include "MessageLayout.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMessage.h"

using omci::AttributeLists;
using omci::Format;
using omci::Result;

namespace {

constexpr auto kProcessingError = static_cast<unsigned char>(Result::ProcessingError);

/// What a MIB-wide or image operation answers on a class that does not serve it.
int refuse(OmciFrame* frame)
{
    if (frame != nullptr) {
        frame->setFrameToSendBackToOLT(kProcessingError, 0, 0, 0, nullptr, 0);
    }
    return -1;
}

}  // namespace

OmciMe::OmciMe() = default;
OmciMe::~OmciMe() = default;

int OmciMe::activateSoftwareImage(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::commitSoftware(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::downloadSection(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::endSoftwareDownload(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::getAllAlarms(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::getAllAlarmsNext(OmciFrame* frame) const
{
    return refuse(frame);
}

int OmciMe::getCurrentData(OmciFrame* frame) const
{
    return getAttribute(frame);
}

int OmciMe::getMibUploadMessage(unsigned short /*sequenceNumber*/, unsigned char* /*buffer*/,
                                unsigned short* /*length*/) const
{
    return -1;
}

int OmciMe::mibReset() const
{
    return -1;
}

int OmciMe::mibReset(OmciFrame* frame) const
{
    return refuse(frame);
}

int OmciMe::mibUpload(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::incrementMibDataSyncAttribute()
{
    return -1;
}

int OmciMe::mibUploadNext(OmciFrame* frame) const
{
    return refuse(frame);
}

int OmciMe::reboot(OmciFrame* frame) const
{
    return refuse(frame);
}

int OmciMe::setGetAllAlarmsMessage(unsigned short /*sequenceNumber*/, const unsigned char* /*buffer*/,
                                   unsigned short /*length*/)
{
    return -1;
}

int OmciMe::setMibUploadMessage(unsigned short /*sequenceNumber*/, const unsigned char* /*buffer*/,
                                unsigned short /*length*/)
{
    return -1;
}

void OmciMe::showSoftwareDownloadStatus(FILE* /*file*/)
{}

int OmciMe::startSoftwareDownload(OmciFrame* frame)
{
    return refuse(frame);
}

int OmciMe::synchronizeTime(OmciFrame* frame) const
{
    return refuse(frame);
}

void OmciMe::updateRxOmciFifoDepthInBytes(unsigned int /*depth*/)
{}

int OmciMe::test(OmciFrame* frame) const
{
    return frame == nullptr ? -1 : static_cast<int>(Result::NotSupported);
}

namespace {

/// Reads the requested attributes, as many as there is room for, in place into the reply.
omci::GetResponse readAttributes(const OmciMe& me, const AttributeLists& lists, std::uint16_t requested,
                                 OmciFrame& frame)
{
    const auto format = static_cast<Format>(frame.getDeviceId());
    const auto action = static_cast<EnumOmciAction>(frame.getMessageType());
    unsigned char* const values = frame.getReplyBuffer() + omci::GetResponse::valuesOffset(format);
    const std::size_t room = omci::GetResponse::room(format);
    omci::GetResponse response;
    std::uint16_t failed = static_cast<std::uint16_t>(requested & lists.knownMask & ~lists.getMask);
    std::size_t length = 0;
    for (const attributeDefinition& definition : lists.get) {
        const std::uint16_t mask = definition.attributeMask;
        if ((requested & mask) == 0) {
            continue;
        }
        const std::size_t size = AttributeLists::readLength(definition);
        const bool fits = length + size <= room;
        if (!fits || me.getAttribute(frame.getManagedEntityInstance(), &definition, values + length, action) != 0) {
            failed = static_cast<std::uint16_t>(failed | mask);
            continue;
        }
        response.mask = static_cast<std::uint16_t>(response.mask | mask);
        length += size;
    }
    response.optionalMask = static_cast<std::uint16_t>(requested & ~lists.knownMask);
    response.executionMask = failed;
    response.result = (response.optionalMask | failed) == 0 ? Result::Success : Result::AttributesFailed;
    response.values = {values, length};
    return response;
}

}  // namespace

int OmciMe::getAttribute(OmciFrame* frame) const
{
    if (frame == nullptr) {
        return -1;
    }
    if (frame->getMessageContentLength() < 2) {
        frame->setFrameToSendBackToOLT(static_cast<unsigned char>(Result::ParameterError), 0, 0, 0, nullptr, 0);
        return -1;
    }
    if (findManagedEntityInstance(frame->getManagedEntityInstance()) != 0) {
        frame->setFrameToSendBackToOLT(static_cast<unsigned char>(Result::UnknownInstance), 0, 0, 0, nullptr, 0);
        return -1;
    }
    const auto lists = omci::AttributeListCache::instance().of(*this);
    const omci::GetResponse response = readAttributes(*this, *lists, omci::read16(frame->getMessageContent()), *frame);
    const std::size_t length = response.write(static_cast<Format>(frame->getDeviceId()), frame->getReplyBuffer());
    frame->setReply(static_cast<unsigned char>(response.result), static_cast<unsigned short>(length));
    return 0;
}

void OmciMe::buildAttributeValueChangeMessage(unsigned short instance, unsigned short attributeMask,
                                              OmciMessage* message) const
{
    constexpr std::size_t head = 6;
    if (message == nullptr) {
        return;
    }
    message->setMessage(nullptr, 0);
    const auto lists = omci::AttributeListCache::instance().of(*this);
    for (const attributeDefinition& definition : lists->avc) {
        if (definition.attributeMask != attributeMask) {
            continue;
        }
        std::array<unsigned char, head + omci::kMaximumContentLength + OmciFrame::kSpareLength> octets;
        if (definition.attributeSize > omci::kMaximumContentLength ||
            getAttribute(instance, &definition, octets.data() + head, OMCI_ACTION_GET) != 0) {
            return;
        }
        omci::write16(octets.data(), getManagedEntityClassId());
        omci::write16(octets.data() + 2, instance);
        omci::write16(octets.data() + 4, attributeMask);
        const std::size_t size = definition.isTableAttribute != 0 ? 0 : definition.attributeSize;
        message->setMessage(octets.data(), static_cast<unsigned short>(head + size));
        return;
    }
}
