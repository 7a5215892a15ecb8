#include "decode/Description.h"
#include "model/Alarms.h"
#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

using Json = nlohmann::ordered_json;

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const auto& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::string entityText(const EntityValues& entity)
{
    return entity.entityClass->label() + " instance " + std::to_string(entity.instance);
}

std::string valuesText(const EntityValues& entity)
{
    std::vector<std::string> parts;
    for (const auto& value : entity.values.values)
        parts.push_back(value.attribute->name + " = " + formatValue(*value.attribute, value.value));
    const auto open = static_cast<std::uint16_t>(entity.values.undecoded | entity.values.missing);
    if (open != 0)
        parts.push_back(joined(entity.entityClass->attributeNames(open)) + " = 0x" + toHex(entity.values.rest));
    for (const unsigned number : entity.alarms)
        parts.push_back(alarmText(entity.entityClass->id, number));
    return joined(parts);
}

Json entityToJson(const EntityValues& entity, bool withAlarms)
{
    Json json{
        {"class", entity.entityClass->id}, {"name", entity.entityClass->shortName}, {"instance", entity.instance}};
    if (withAlarms)
        json["alarms"] = alarmsToJson(entity.entityClass->id, entity.alarms);
    else
        json["attributes"] = valuesToJson(*entity.entityClass, entity.values);
    return json;
}

std::string detailText(const Json& value)
{
    return value.is_string() ? value.get<std::string>() : value.dump();
}

struct Measurement
{
    const char* key;
    const char* label;
    const char* unit;
};
constexpr Measurement kMeasurements[] = {
    {"supply_voltage_v", "supply voltage", "V"},           {"received_power_dbu", "received power", "dBu"},
    {"transmitted_power_dbu", "transmitted power", "dBu"}, {"laser_bias_ma", "laser bias", "mA"},
    {"temperature_c", "temperature", "degrees C"},
};

bool carriesValues(const AttributeValues& values)
{
    return !values.values.empty() || values.undecoded != 0 || values.missing != 0;
}

}  // namespace

DetailWords detailWords(const std::string& key, const Json& value)
{
    for (const Measurement& measurement : kMeasurements)
        if (key == measurement.key)
            return {measurement.label, detailText(value) + " " + measurement.unit};
    return {key == "self_test" ? "self-test" : key, detailText(value)};
}

std::string messageName(const omci::FrameHeader& header)
{
    std::string name = omci::messageTypeName(header.type);
    if (omci::isAutonomous(header.type))
        return name;
    return name + (header.acknowledgement ? " response" : " request");
}

std::string alarmText(std::uint16_t entityClass, unsigned number)
{
    const std::string name = alarmName(entityClass, number);
    return name.empty() ? "alarm " + std::to_string(number) : name + " (" + std::to_string(number) + ")";
}

Json alarmsToJson(std::uint16_t entityClass, const std::vector<unsigned>& numbers)
{
    Json alarms = Json::array();
    for (const unsigned number : numbers) {
        Json alarm{{"number", number}};
        if (const std::string name = alarmName(entityClass, number); !name.empty())
            alarm["name"] = name;
        alarms.push_back(std::move(alarm));
    }
    return alarms;
}

Json valuesToJson(const EntityClass& entity, const AttributeValues& values)
{
    Json json = Json::object();
    for (const auto& value : values.values)
        json[value.attribute->name] = jsonValue(*value.attribute, value.value);
    const auto open = static_cast<std::uint16_t>(values.undecoded | values.missing);
    if (open != 0)
        json[joined(entity.attributeNames(open))] = "0x" + toHex(values.rest);
    return json;
}

namespace {

/// Values of bits that only a sentence makes readable.
Json valuesInWords(const AttributeValues& values)
{
    Json words = Json::object();
    for (const auto& value : values.values) {
        const Form form = value.attribute->form;
        if (form == Form::VlanRow || form == Form::VlanFilterList)
            words[value.attribute->name] = formatValue(*value.attribute, value.value);
    }
    return words;
}

}  // namespace

Json toJson(const Description& description)
{
    const auto& entity = description.entity;
    Json json{{"message", messageName(description.header)},
              {"transaction", description.header.transactionId},
              {"format", omci::formatName(description.header.format)},
              {"class", entity.entityClass->id},
              {"name", entity.entityClass->shortName},
              {"instance", entity.instance}};
    if (description.result) {
        json["result"] = static_cast<unsigned>(*description.result);
        json["result_text"] = omci::resultName(*description.result);
    }
    const auto addNames = [&](const char* key, std::uint16_t mask) {
        if (mask != 0)
            json[key] = entity.entityClass->attributeNames(mask);
    };
    addNames("asked", description.asked);
    addNames("failed", description.failed);
    addNames("unsupported", description.unsupported);
    json.update(description.details);
    if (carriesValues(entity.values))
        json["attributes"] = valuesToJson(*entity.entityClass, entity.values);
    if (const Json words = valuesInWords(entity.values); !words.empty())
        json["in_words"] = words;
    if (description.header.type == omci::MessageType::Alarm)
        json["alarms"] = alarmsToJson(entity.entityClass->id, entity.alarms);
    for (const auto& listed : description.listed)
        json["entities"].push_back(
            entityToJson(listed, description.header.type == omci::MessageType::GetAllAlarmsNext));
    if (description.cutOff)
        json["cut_off"] = true;
    return json;
}

std::string toText(const Description& description)
{
    const auto& entity = description.entity;
    std::vector<std::string> parts;
    if (description.result)
        parts.emplace_back(omci::resultName(*description.result));
    const auto addNames = [&](const char* label, std::uint16_t mask) {
        if (mask != 0)
            parts.push_back(label + joined(entity.entityClass->attributeNames(mask)));
    };
    if (!carriesValues(entity.values))
        addNames("", description.asked);
    addNames("failed: ", description.failed);
    addNames("not supported: ", description.unsupported);
    for (const auto& [key, value] : description.details.items()) {
        const DetailWords words = detailWords(key, value);
        parts.push_back(words.label + " " + words.value);
    }
    if (carriesValues(entity.values) || !entity.alarms.empty())
        parts.push_back(valuesText(entity));
    else if (description.header.type == omci::MessageType::Alarm)
        parts.emplace_back("no alarm raised");
    for (const auto& listed : description.listed)
        parts.push_back(entityText(listed) + ": " + valuesText(listed));
    if (description.cutOff)
        parts.emplace_back("contents cut off");
    std::string text = messageName(description.header) + " " + entityText(entity);
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? ": " : "; ") + parts[i];
    return text;
}

}  // namespace olt
