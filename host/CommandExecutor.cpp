#include "CommandExecutor.h"

#include "CommandReply.h"
#include "Notifier.h"
#include "omci_host/OmciFrame.h"
#include "omci_host/OmciMe.h"
#include "omci_host/OmciMeFactory.h"

namespace omci {

namespace {

constexpr std::uint16_t kSoftwareImage = 7;
constexpr std::uint16_t kOnuG = 256;

MessageType typeOf(const OmciFrame& frame)
{
    return static_cast<MessageType>(frame.getMessageType());
}

bool isExtended(const OmciFrame& frame)
{
    return frame.getDeviceId() == OmciFrame::kExtendedDeviceId;
}

/// Whether the message type is one for the class at all. Get, set and the like are for every class.
bool isServedBy(MessageType type, std::uint16_t classId)
{
    switch (type) {
    case MessageType::GetAllAlarms:
    case MessageType::GetAllAlarmsNext:
    case MessageType::MibUpload:
    case MessageType::MibUploadNext:
    case MessageType::MibReset:
        return classId == kOnuDataClass;
    case MessageType::StartSoftwareDownload:
    case MessageType::DownloadSection:
    case MessageType::EndSoftwareDownload:
    case MessageType::ActivateImage:
    case MessageType::CommitImage:
        return classId == kSoftwareImage;
    case MessageType::SynchronizeTime:
    case MessageType::Reboot:
        return classId == kOnuG;
    default:
        return true;
    }
}

/// Contents of an extended request that are neither truncated nor oversized. Baseline contents are always 32 octets.
/// Create and set have their own rule, from the attributes' sizes; zero modes and flags may be left out.
bool hasRightLength(MessageType type, std::size_t length)
{
    switch (type) {
    case MessageType::Delete:
    case MessageType::MibUpload:
    case MessageType::MibReset:
    case MessageType::CommitImage:
        return length == 0;
    case MessageType::GetAllAlarms:
    case MessageType::ActivateImage:
    case MessageType::Reboot:
        return length <= 1;
    case MessageType::Get:
    case MessageType::GetCurrentData:
    case MessageType::MibUploadNext:
    case MessageType::GetAllAlarmsNext:
        return length == 2;
    case MessageType::GetNext:
        return length == 4;
    case MessageType::SynchronizeTime:
        return length == 7;
    case MessageType::StartSoftwareDownload:
        return length >= 6;
    case MessageType::EndSoftwareDownload:
        return length >= 9;
    case MessageType::Set:
    case MessageType::SetTable:
        return length >= 2;
    default:
        return true;
    }
}

bool instanceExists(const OmciMe& me, const OmciFrame& frame)
{
    return me.findManagedEntityInstance(frame.getManagedEntityInstance()) == 0;
}

/// The reply to a command that the class ran without setting one.
void settle(const OmciMe& me, OmciFrame& frame, int result)
{
    if (frame.hasReply()) {
        return;
    }
    if (result == 0) {
        reply(frame, Result::Success);
    } else {
        reply(frame, instanceExists(me, frame) ? Result::ProcessingError : Result::UnknownInstance);
    }
}

}  // namespace

void CommandExecutor::execute(OmciFrame& frame) const
{
    const MessageType type = typeOf(frame);
    OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(frame.getManagedEntityClass());
    if (!isKnown(type) || (type == MessageType::SetTable && !isExtended(frame))) {
        reply(frame, Result::NotSupported);
    } else if (me == nullptr) {
        reply(frame, Result::UnknownManagedEntity);
    } else if (!isServedBy(type, frame.getManagedEntityClass())) {
        reply(frame, Result::NotSupported);
    } else if (isExtended(frame) && !hasRightLength(type, frame.getMessageContentLength())) {
        reply(frame, Result::ParameterError);
    } else {
        run(*me, frame);
    }
}

void CommandExecutor::run(OmciMe& me, OmciFrame& frame) const
{
    switch (typeOf(frame)) {
    case MessageType::Create:
        create(me, frame);
        return;
    case MessageType::Delete:
        remove(me, frame);
        return;
    case MessageType::Set:
        set(me, frame);
        return;
    case MessageType::SetTable:
        setTable(me, frame);
        return;
    case MessageType::Test:
        test(me, frame);
        return;
    case MessageType::DownloadSection: {
        constexpr int taken = 1;
        const int result = me.downloadSection(&frame);
        if (frame.getMessageTypeAR() != 0) {
            settle(me, frame, result == taken ? 0 : result);
        }
        return;
    }
    default:
        settle(me, frame, runOnClass(me, frame));
        return;
    }
}

int CommandExecutor::runOnClass(OmciMe& me, OmciFrame& frame) const
{
    switch (typeOf(frame)) {
    case MessageType::Get:
        return me.getAttribute(&frame);
    case MessageType::GetCurrentData:
        return me.getCurrentData(&frame);
    case MessageType::GetNext:
        return me.getNext(&frame);
    case MessageType::GetAllAlarms:
        return runGetAllAlarms(me, frame);
    case MessageType::GetAllAlarmsNext:
        return me.getAllAlarmsNext(&frame);
    case MessageType::MibUpload:
        return runMibUpload(me, frame);
    case MessageType::MibUploadNext:
        return me.mibUploadNext(&frame);
    case MessageType::MibReset:
        return runMibReset(me, frame);
    case MessageType::StartSoftwareDownload:
        return me.startSoftwareDownload(&frame);
    case MessageType::EndSoftwareDownload:
        return me.endSoftwareDownload(&frame);
    case MessageType::ActivateImage:
        return me.activateSoftwareImage(&frame);
    case MessageType::CommitImage:
        return me.commitSoftware(&frame);
    case MessageType::SynchronizeTime:
        return me.synchronizeTime(&frame);
    case MessageType::Reboot:
        return me.reboot(&frame);
    default:
        return -1;
    }
}

int CommandExecutor::runMibReset(OmciMe& me, OmciFrame& frame) const
{
    // What the rebuilding writes is no news to an OLT that asked for it.
    const Notifier::Pause pause(m_Notifier);
    const int result = me.mibReset(&frame);
    if (result == 0 && m_Notifier != nullptr) {
        m_Notifier->setMibKnown(true);
        m_Notifier->restartAlarmSequence();
    }
    return result;
}

int CommandExecutor::runMibUpload(OmciMe& me, OmciFrame& frame) const
{
    const int result = me.mibUpload(&frame);
    if (result == 0 && m_Notifier != nullptr) {
        // From here on, not from the last upload next: the snapshot is taken, and later changes are not in it.
        m_Notifier->setMibKnown(true);
    }
    return result;
}

int CommandExecutor::runGetAllAlarms(OmciMe& me, OmciFrame& frame) const
{
    const int result = me.getAllAlarms(&frame);
    if (result == 0 && m_Notifier != nullptr) {
        m_Notifier->restartAlarmSequence();
    }
    return result;
}

void CommandExecutor::test(OmciMe& me, OmciFrame& frame) const
{
    if (!instanceExists(me, frame)) {
        reply(frame, Result::UnknownInstance);
        return;
    }
    const int result = me.test(&frame);
    if (!frame.hasReply()) {
        reply(frame, result < 0 ? Result::ProcessingError : static_cast<Result>(result));
    }
}

}  // namespace omci
