#include <algorithm>
#include <cstring>

#include "ByteOrder.h"
#include "MessageLayout.h"

namespace omci {

std::size_t UploadedEntity::writeHead(Format format, std::uint8_t* place) const
{
    if (format == Format::Extended) {
        write16(place, static_cast<std::uint16_t>(values.size));
        place += 2;
    }
    write16(place, entityClass);
    write16(place + 2, entityInstance);
    write16(place + 4, mask);
    return headLength(format) + values.size;
}

UploadedEntities::UploadedEntities(Format format, Octets contents) : m_Format(format), m_Left(contents)
{}

UploadedEntities::UploadedEntities(const FrameView& frame)
    : UploadedEntities(frame.header.format, Octets{frame.contents, frame.contentsLength})
{}

bool UploadedEntities::nextBaseline(UploadedEntity& entity)
{
    const Octets contents = m_Left;
    m_Left.size = 0;
    const bool empty =
        std::all_of(contents.data, contents.data + contents.size, [](std::uint8_t octet) { return octet == 0; });
    if (empty) {
        return false;
    }
    const std::size_t head = UploadedEntity::headLength(Format::Baseline);
    if (contents.size < head) {
        m_Broken = true;
        return false;
    }
    entity.entityClass = read16(contents.data);
    entity.entityInstance = read16(contents.data + 2);
    entity.mask = read16(contents.data + 4);
    entity.values = {contents.data + head, contents.size - head};
    return true;
}

bool UploadedEntities::next(UploadedEntity& entity)
{
    if (m_Left.size == 0) {
        return false;
    }
    if (m_Format == Format::Baseline) {
        return nextBaseline(entity);
    }
    const std::size_t head = UploadedEntity::headLength(Format::Extended);
    const bool hasHead = m_Left.size >= head;
    const std::size_t length = hasHead ? read16(m_Left.data) : 0;
    if (!hasHead || m_Left.size < head + length) {
        m_Broken = true;
        m_Left.size = 0;
        return false;
    }
    entity.entityClass = read16(m_Left.data + 2);
    entity.entityInstance = read16(m_Left.data + 4);
    entity.mask = read16(m_Left.data + 6);
    entity.values = {m_Left.data + head, length};
    m_Left.data += head + length;
    m_Left.size -= head + length;
    // An answer out of range is all zero.
    return entity.entityClass != 0 || entity.mask != 0;
}

bool AlarmedEntity::isRaised(unsigned number) const
{
    return number / 8 < bitmap.size() && ((bitmap[number / 8] >> (7 - number % 8)) & 1) != 0;
}

std::size_t AlarmedEntity::write(std::uint8_t* contents) const
{
    write16(contents, entityClass);
    write16(contents + 2, entityInstance);
    std::memcpy(contents + 4, bitmap.data(), bitmap.size());
    return kLength;
}

std::optional<AlarmedEntity> parseAlarmedEntity(const FrameView& frame, std::size_t index)
{
    if (frame.contentsLength < (index + 1) * AlarmedEntity::kLength) {
        return std::nullopt;
    }
    const std::uint8_t* block = frame.contents + index * AlarmedEntity::kLength;
    AlarmedEntity entity;
    entity.entityClass = read16(block);
    entity.entityInstance = read16(block + 2);
    std::memcpy(entity.bitmap.data(), block + 4, entity.bitmap.size());
    return entity;
}

namespace {

std::size_t alarmSequenceOffset(Format format)
{
    return format == Format::Baseline ? kBaselineContentLength - 1 : kAlarmBitmapLength;
}

}  // namespace

std::size_t AlarmNotification::write(Format format, std::uint8_t* contents) const
{
    const std::size_t offset = alarmSequenceOffset(format);
    std::memcpy(contents, bitmap.data(), bitmap.size());
    std::memset(contents + bitmap.size(), 0, offset - bitmap.size());
    contents[offset] = sequence;
    return offset + 1;
}

std::optional<AlarmNotification> parseAlarmNotification(const FrameView& frame)
{
    const std::size_t offset = alarmSequenceOffset(frame.header.format);
    if (frame.contentsLength <= offset) {
        return std::nullopt;
    }
    AlarmNotification alarm;
    std::memcpy(alarm.bitmap.data(), frame.contents, alarm.bitmap.size());
    alarm.sequence = frame.contents[offset];
    return alarm;
}

namespace {

constexpr std::size_t kMeasurementLength = 3;

}  // namespace

std::size_t writeTestResult(const std::array<TestMeasurement, kTestMeasurements>& measurements, std::uint8_t* contents)
{
    std::size_t length = 0;
    for (const TestMeasurement& measurement : measurements) {
        contents[length] = measurement.type;
        write16(contents + length + 1, measurement.value);
        length += kMeasurementLength;
    }
    return length;
}

std::optional<std::array<TestMeasurement, kTestMeasurements>> parseTestResult(const FrameView& frame)
{
    if (frame.contentsLength < kTestMeasurements * kMeasurementLength) {
        return std::nullopt;
    }
    std::array<TestMeasurement, kTestMeasurements> measurements;
    const std::uint8_t* octets = frame.contents;
    for (TestMeasurement& measurement : measurements) {
        measurement = {octets[0], read16(octets + 1)};
        octets += kMeasurementLength;
    }
    return measurements;
}

std::size_t writeSelfTestResult(SelfTestOutcome outcome, std::uint8_t* contents)
{
    contents[0] = 0;
    contents[1] = static_cast<std::uint8_t>(outcome);
    return 2;
}

std::optional<SelfTestOutcome> parseSelfTestResult(const FrameView& frame)
{
    if (frame.contentsLength < 2 || frame.contents[1] > static_cast<std::uint8_t>(SelfTestOutcome::NotCompleted)) {
        return std::nullopt;
    }
    return static_cast<SelfTestOutcome>(frame.contents[1]);
}

}  // namespace omci
