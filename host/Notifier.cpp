#include "Notifier.h"

#include <bitset>
#include <utility>

#include "ByteOrder.h"
#include "MessageLayout.h"
#include "omci_host/OmciMe.h"
#include "omci_host/OmciMeFactory.h"
#include "omci_host/OmciMessage.h"

namespace omci {

namespace {

/// Class and instance in front of an attribute value change's contents.
constexpr std::size_t kMessageHead = 4;
constexpr unsigned kAlarms = 223;

}  // namespace

Notifier::Notifier(Sink sink, Mic mic)  // NOLINT(cppcoreguidelines-pro-type-member-init)
    : m_Sink(std::move(sink)), m_Mic(std::move(mic))
{}

bool Notifier::maySend()
{
    if (m_MibKnown && m_Pauses == 0) {
        return true;
    }
    ++m_Counters.suppressed;
    return false;
}

void Notifier::send(const FrameHeader& header, const std::uint8_t* contents, std::size_t length)
{
    const std::size_t frameLength = encode(header, contents, length, m_Frame.data());
    if (frameLength != 0) {
        m_Mic.seal(m_Frame.data(), frameLength, Direction::Upstream);
        m_Sink(m_Frame.data(), frameLength);
    }
}

void Notifier::sendAttributeValueChange(OmciMessage* message)
{
    if (message == nullptr || message->getMessageLength() < kMessageHead + 2) {
        return;
    }
    const std::uint8_t* const octets = message->getMessage();
    const std::lock_guard lock(m_Mutex);
    if (!maySend()) {
        return;
    }
    FrameHeader header;
    header.type = MessageType::AttributeValueChange;
    header.format = m_Format;
    header.entityClass = read16(octets);
    header.entityInstance = read16(octets + 2);
    ++m_Counters.attributeValueChanges;
    send(header, octets + kMessageHead, message->getMessageLength() - kMessageHead);
}

bool Notifier::raiseAlarm(std::uint16_t classId, std::uint16_t instance, unsigned alarm, bool state)
{
    const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    std::bitset<kAlarms> before;
    if (me == nullptr || alarm >= kAlarms || !me->getAlarmsBitmap(instance, before) ||
        me->updateAlarmsBitmap(instance, static_cast<unsigned char>(alarm), state) != 0) {
        return false;
    }
    std::bitset<kAlarms> after;
    if (!me->isPartOfAlarmsUpload() || !me->getAlarmsBitmap(instance, after) || after == before) {
        return true;
    }
    const std::lock_guard lock(m_Mutex);
    if (!maySend()) {
        return true;
    }
    m_AlarmSequence = m_AlarmSequence == 255 ? std::uint8_t{1} : static_cast<std::uint8_t>(m_AlarmSequence + 1);
    AlarmNotification notification;
    packAlarms(after, notification.bitmap);
    notification.sequence = m_AlarmSequence;
    FrameHeader header;
    header.type = MessageType::Alarm;
    header.format = m_Format;
    header.entityClass = classId;
    header.entityInstance = instance;
    std::array<std::uint8_t, kBaselineContentLength> contents;
    const std::size_t length = notification.write(m_Format, contents.data());
    ++m_Counters.alarms;
    send(header, contents.data(), length);
    return true;
}

void Notifier::sendTestResult(std::uint16_t transactionId, std::uint16_t classId, std::uint16_t instance,
                              const std::uint8_t* contents, std::size_t length)
{
    const std::lock_guard lock(m_Mutex);
    FrameHeader header;
    header.transactionId = transactionId;
    header.type = MessageType::TestResult;
    header.format = m_Format;
    header.entityClass = classId;
    header.entityInstance = instance;
    ++m_Counters.testResults;
    send(header, contents, length);
}

void Notifier::setFormat(Format format)
{
    const std::lock_guard lock(m_Mutex);
    m_Format = format;
}

void Notifier::setMibKnown(bool known)
{
    const std::lock_guard lock(m_Mutex);
    m_MibKnown = known;
}

void Notifier::restartAlarmSequence()
{
    const std::lock_guard lock(m_Mutex);
    m_AlarmSequence = 0;
}

Notifier::Counters Notifier::counters() const
{
    const std::lock_guard lock(m_Mutex);
    return m_Counters;
}

Notifier::Pause::Pause(Notifier* notifier) : m_Notifier(notifier)
{
    if (m_Notifier != nullptr) {
        const std::lock_guard lock(m_Notifier->m_Mutex);
        ++m_Notifier->m_Pauses;
    }
}

Notifier::Pause::~Pause()
{
    if (m_Notifier != nullptr) {
        const std::lock_guard lock(m_Notifier->m_Mutex);
        --m_Notifier->m_Pauses;
    }
}

}  // namespace omci
