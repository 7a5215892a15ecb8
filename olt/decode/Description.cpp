#include "decode/Description.h"

#include <array>
#include <cstdio>

#include "host/MessageLayout.h"
#include "model/Alarms.h"
#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

using omci::MessageType;

template <typename T, typename Use>
void withParsed(Description& description, const std::optional<T>& parsed, Use use)
{
    if (parsed)
        use(*parsed);
    else
        description.cutOff = true;
}

std::string hexOf(const omci::Octets& octets)
{
    return "0x" + toHex(octets.data, octets.size);
}

void readValues(Description& description, std::uint16_t mask, const omci::Octets& octets)
{
    description.entity.values = splitValues(*description.entity.entityClass, mask, octets.data, octets.size);
}

/// A value that is set is a row where the attribute is a table, not the four octets of its size.
AttributeValues splitRows(const EntityClass& entity, std::uint16_t mask, const omci::Octets& octets)
{
    AttributeValues result;
    std::size_t at = 0;
    for (const auto& attribute : entity.attributes) {
        if ((mask & attribute.mask) == 0 || attribute.size == 0 || at + attribute.size > octets.size)
            continue;
        result.values.push_back({&attribute, Bytes(octets.data + at, octets.data + at + attribute.size)});
        at += attribute.size;
    }
    return result;
}

void readTableRows(Description& description, std::uint16_t mask, const omci::Octets& octets)
{
    description.details["rows"] = hexOf(octets);
    const Attribute* const attribute = description.entity.entityClass->attributeOfMask(mask);
    if (!attribute || attribute->form != Form::VlanRow)
        return;
    for (std::size_t at = 0; at + attribute->size <= octets.size; at += attribute->size)
        description.details["rules"].push_back(
            formatValue(*attribute, Bytes(octets.data + at, octets.data + at + attribute->size)));
}

void readSet(Description& description, const omci::FrameView& frame)
{
    withParsed(description, omci::parseSetRequest(frame), [&](const auto& set) {
        description.asked = set.mask;
        if (frame.header.type == MessageType::SetTable)
            readTableRows(description, set.mask, set.values);
        else
            description.entity.values = splitRows(*description.entity.entityClass, set.mask, set.values);
    });
}

void readCreate(Description& description, const omci::FrameView& frame)
{
    std::uint16_t mask = 0;
    for (const auto& attribute : description.entity.entityClass->attributes)
        mask = static_cast<std::uint16_t>(mask | (attribute.setByCreate ? attribute.mask : 0));
    description.entity.values =
        splitRows(*description.entity.entityClass, mask, {frame.contents, frame.contentsLength});
}

void readTime(Description& description, const omci::FrameView& frame)
{
    withParsed(description, omci::parseTimeRequest(frame), [&](const auto& time) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%04u-%02u-%02u %02u:%02u:%02u", time.year, time.month, time.day,
                      time.hour, time.minute, time.second);
        description.details["time"] = text.data();
    });
}

void readDownloadRequest(Description& description, const omci::FrameView& frame)
{
    auto& details = description.details;
    if (frame.header.type == MessageType::StartSoftwareDownload) {
        withParsed(description, omci::parseStartDownloadRequest(frame), [&](const auto& start) {
            details["window"] = start.windowSizeMinusOne + 1;
            details["image_size"] = start.imageSize;
        });
    } else if (frame.header.type == MessageType::DownloadSection) {
        withParsed(description, omci::parseSectionRequest(frame), [&](const auto& section) {
            details["section"] = section.section;
            details["octets"] = section.data.size;
        });
    } else {
        withParsed(description, omci::parseEndDownloadRequest(frame), [&](const auto& end) {
            details["crc"] = end.crc;
            details["image_size"] = end.imageSize;
        });
    }
}

void readRequest(Description& description, const omci::FrameView& frame)
{
    switch (frame.header.type) {
    case MessageType::Create:
        return readCreate(description, frame);
    case MessageType::Set:
    case MessageType::SetTable:
        return readSet(description, frame);
    case MessageType::Get:
    case MessageType::GetCurrentData:
        return withParsed(description, omci::parseMaskRequest(frame),
                          [&](const auto& request) { description.asked = request.mask; });
    case MessageType::GetNext:
        return withParsed(description, omci::parseGetNextRequest(frame), [&](const auto& request) {
            description.asked = request.mask;
            description.details["sequence"] = request.sequence;
        });
    case MessageType::MibUploadNext:
    case MessageType::GetAllAlarmsNext:
        return withParsed(description, omci::parseSequenceRequest(frame),
                          [&](const auto& request) { description.details["sequence"] = request.sequence; });
    case MessageType::SynchronizeTime:
        return readTime(description, frame);
    case MessageType::StartSoftwareDownload:
    case MessageType::DownloadSection:
    case MessageType::EndSoftwareDownload:
        return readDownloadRequest(description, frame);
    case MessageType::GetAllAlarms:
        description.details["mode"] = omci::parseOctetRequest(frame).value;
        return;
    case MessageType::Test:
        description.details["selector"] = omci::parseOctetRequest(frame).value;
        return;
    case MessageType::Reboot:
    case MessageType::ActivateImage:
        description.details["flags"] = omci::parseOctetRequest(frame).value;
        return;
    default:
        return;
    }
}

void readUploaded(Description& description, const Catalogue& catalogue, const omci::FrameView& frame)
{
    omci::UploadedEntities entities(frame);
    omci::UploadedEntity entity;
    while (entities.next(entity)) {
        const auto& entityClass = catalogue.ofNumber(entity.entityClass);
        description.listed.push_back({&entityClass,
                                      entity.entityInstance,
                                      splitValues(entityClass, entity.mask, entity.values.data, entity.values.size),
                                      {}});
    }
    description.cutOff = entities.isBroken();
}

void readAlarmed(Description& description, const Catalogue& catalogue, const omci::FrameView& frame)
{
    for (std::size_t index = 0; const auto entity = omci::parseAlarmedEntity(frame, index); ++index)
        description.listed.push_back(
            {&catalogue.ofNumber(entity->entityClass), entity->entityInstance, {}, raisedAlarms(entity->bitmap)});
}

void readGetResponse(Description& description, const omci::FrameView& frame)
{
    withParsed(description, omci::parseGetResponse(frame), [&](const auto& response) {
        description.unsupported = response.optionalMask;
        description.failed = response.executionMask;
        readValues(description, response.mask, response.values);
    });
}

void readSetResponse(Description& description, const omci::FrameView& frame)
{
    if (description.result != omci::Result::AttributesFailed)
        return;
    withParsed(description, omci::parseSetResponse(frame), [&](const auto& response) {
        description.unsupported = response.optionalMask;
        description.failed = response.executionMask;
    });
}

void readCount(Description& description, const omci::FrameView& frame)
{
    withParsed(description, omci::parseCountResponse(frame),
               [&](const auto& response) { description.details["count"] = response.count; });
}

void readResultResponse(Description& description, const omci::FrameView& frame)
{
    withParsed(description, omci::parseResultResponse(frame),
               [&](const auto& response) { description.result = response.result; });
    switch (frame.header.type) {
    case MessageType::Get:
    case MessageType::GetCurrentData:
        return readGetResponse(description, frame);
    case MessageType::Set:
    case MessageType::SetTable:
        return readSetResponse(description, frame);
    case MessageType::Create:
        if (const auto response = omci::parseCreateResponse(frame);
            response && response->result == omci::Result::ParameterError)
            description.failed = response->executionMask;
        return;
    case MessageType::GetNext:
        return withParsed(description, omci::parseGetNextResponse(frame), [&](const auto& response) {
            description.asked = response.mask;
            description.details["data"] = hexOf(response.data);
        });
    case MessageType::DownloadSection:
        return withParsed(description, omci::parseSectionResponse(frame),
                          [&](const auto& response) { description.details["section"] = response.section; });
    case MessageType::StartSoftwareDownload:
        return withParsed(description, omci::parseStartDownloadResponse(frame), [&](const auto& response) {
            description.details["window"] = response.windowSizeMinusOne + 1;
        });
    default:
        return;
    }
}

void readResponse(Description& description, const Catalogue& catalogue, const omci::FrameView& frame)
{
    switch (frame.header.type) {
    case MessageType::MibUpload:
    case MessageType::GetAllAlarms:
        return readCount(description, frame);
    case MessageType::MibUploadNext:
        return readUploaded(description, catalogue, frame);
    case MessageType::GetAllAlarmsNext:
        return readAlarmed(description, catalogue, frame);
    default:
        return readResultResponse(description, frame);
    }
}

const char* selfTestText(omci::SelfTestOutcome outcome)
{
    switch (outcome) {
    case omci::SelfTestOutcome::Failed:
        return "failed";
    case omci::SelfTestOutcome::Passed:
        return "passed";
    default:
        return "not completed";
    }
}

void readTestResult(Description& description, const omci::FrameView& frame)
{
    constexpr std::uint16_t circuitPack = 6;
    constexpr std::uint16_t onuG = 256;
    constexpr std::uint16_t aniG = 263;
    const bool hasOutcome = frame.header.entityClass == onuG || frame.header.entityClass == circuitPack;
    if (const auto outcome = omci::parseSelfTestResult(frame); hasOutcome && outcome) {
        description.details["self_test"] = selfTestText(*outcome);
        return;
    }
    const auto measurements = omci::parseTestResult(frame);
    if (frame.header.entityClass != aniG || !measurements) {
        description.details["contents"] = hexOf({frame.contents, frame.contentsLength});
        return;
    }
    auto& details = description.details;
    for (const auto& measurement : *measurements) {
        const auto sign = static_cast<std::int16_t>(measurement.value);
        if (measurement.type == 1)
            details["supply_voltage_v"] = measurement.value * 20 / 1000.0;
        else if (measurement.type == 3)
            details["received_power_dbu"] = sign * 2 / 1000.0;
        else if (measurement.type == 5)
            details["transmitted_power_dbu"] = sign * 2 / 1000.0;
        else if (measurement.type == 9)
            details["laser_bias_ma"] = measurement.value * 2 / 1000.0;
        else if (measurement.type == 12)
            details["temperature_c"] = sign / 256.0;
    }
}

void readNotification(Description& description, const omci::FrameView& frame)
{
    switch (frame.header.type) {
    case MessageType::Alarm:
        return withParsed(description, omci::parseAlarmNotification(frame), [&](const auto& alarm) {
            description.details["sequence"] = alarm.sequence;
            description.entity.alarms = raisedAlarms(alarm.bitmap);
        });
    case MessageType::AttributeValueChange:
        return withParsed(description, omci::parseAttributeValueChange(frame),
                          [&](const auto& change) { readValues(description, change.mask, change.values); });
    case MessageType::TestResult:
        return readTestResult(description, frame);
    default:
        return;
    }
}

}  // namespace

Description describe(const Catalogue& catalogue, const omci::FrameView& frame)
{
    Description description;
    description.header = frame.header;
    description.entity.entityClass = &catalogue.ofNumber(frame.header.entityClass);
    description.entity.instance = frame.header.entityInstance;
    if (omci::isAutonomous(frame.header.type))
        readNotification(description, frame);
    else if (frame.header.acknowledgement)
        readResponse(description, catalogue, frame);
    else
        readRequest(description, frame);
    return description;
}

}  // namespace olt
