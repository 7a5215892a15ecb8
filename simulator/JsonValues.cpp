#include "JsonValues.h"

namespace values {
namespace {
[[noreturn]] void refuse(const Json& json, const std::string& what, const std::string& wanted)
{
    throw BadRequest(what + " is " + toLine(json) + ", not " + wanted);
}

/// Whether one of the names parted by bars is the given one.
bool isNamed(const char* names, const std::string& given)
{
    const std::string all = names;
    for (std::size_t begin = 0; begin <= all.size();) {
        const std::size_t end = std::min(all.find('|', begin), all.size());
        if (isSameName(all.substr(begin, end - begin), given)) {
            return true;
        }
        begin = end + 1;
    }
    return false;
}
}  // namespace

std::int64_t signedNumber(const Json& json, std::int64_t low, std::int64_t high, const std::string& what)
{
    const std::string wanted = "a number from " + std::to_string(low) + " to " + std::to_string(high);
    if (!json.is_number_integer()) {
        refuse(json, what, wanted);
    }
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > static_cast<std::uint64_t>(high)) {
        refuse(json, what, wanted);
    }
    const auto number = json.get<std::int64_t>();
    if (number < low || number > high) {
        refuse(json, what, wanted);
    }
    return number;
}

std::uint64_t unsignedNumber(const Json& json, std::uint64_t high, const std::string& what)
{
    if (!json.is_number_unsigned() || json.get<std::uint64_t>() > high) {
        refuse(json, what, "a number from 0 to " + std::to_string(high));
    }
    return json.get<std::uint64_t>();
}

void from(const Json& json, bool& value, const std::string& what)
{
    if (json.is_boolean()) {
        value = json.get<bool>();
    } else {
        value = unsignedNumber(json, 1, what) != 0;
    }
}

void from(const Json& json, std::string& value, const std::string& what)
{
    if (!json.is_string()) {
        refuse(json, what, "a string");
    }
    value = json.get<std::string>();
}

void from(const Json& json, std::vector<unsigned char>& value, const std::string& what)
{
    if (!json.is_string()) {
        refuse(json, what, "a string of hexadecimal digits");
    }
    value = fromHex(json.get<std::string>());
}

void from(const Json& json, std::map<unsigned int, std::vector<unsigned char>>& value, const std::string& what)
{
    if (!json.is_object()) {
        refuse(json, what, "an object {key:hex}");
    }
    value.clear();
    for (const auto& [key, bytes] : json.items()) {
        std::size_t used = 0;
        unsigned long number = 0;
        try {
            number = std::stoul(key, &used, 0);
        } catch (const std::exception&) {
            used = 0;
        }
        if (used == 0 || used != key.size() || number > std::numeric_limits<unsigned int>::max()) {
            throw BadRequest(what + ": \"" + key + "\" is not a key, instance << 16 | attribute mask");
        }
        from(bytes, value[static_cast<unsigned int>(number)], what);
    }
}

void from(const Json& json, StartupConfigManagedEntity& value, const std::string& what)
{
    if (!json.is_object() || !json.contains("class")) {
        refuse(json, what, R"({"class":C,"instances":[...],"values":{key:hex}})");
    }
    StartupConfigManagedEntity read;
    from(json["class"], read.classId, what + ".class");
    for (const Json& instance : json.value("instances", Json::array())) {
        from(instance, read.instances.emplace_back(), what + ".instances");
    }
    from(json.value("values", Json::object()), read.attributeValues, what + ".values");
    value = read;
}

void from(const Json& json, std::vector<StartupConfigManagedEntity>& value, const std::string& what)
{
    if (!json.is_array()) {
        refuse(json, what, "an array of records");
    }
    value.clear();
    for (const Json& record : json) {
        from(record, value.emplace_back(), what);
    }
}

RecordReader::RecordReader(const Json& json, std::size_t fieldCount, const std::string& what)
    : m_Json(json), m_What(what), m_IsUsed(json.size())
{
    if (!json.is_structured()) {
        refuse(json, what, "a record: an object or an array");
    }
    if (json.is_array() && json.size() != fieldCount) {
        throw BadRequest(what + " has " + std::to_string(json.size()) + " fields, not " + std::to_string(fieldCount));
    }
}

const Json* RecordReader::next(const char* names, bool isClass)
{
    const std::size_t index = m_Index++;
    if (m_Json.is_array() || (isClass && index < m_Json.size())) {
        m_IsUsed[index] = true;
        return &*std::next(m_Json.begin(), static_cast<std::ptrdiff_t>(index));
    }
    std::size_t place = 0;
    for (auto member = m_Json.begin(); member != m_Json.end(); ++member, ++place) {
        if (!isClass && isNamed(names, member.key())) {
            m_IsUsed[place] = true;
            return &*member;
        }
    }
    return nullptr;
}

void RecordReader::finish() const
{
    std::size_t place = 0;
    for (auto member = m_Json.begin(); member != m_Json.end(); ++member, ++place) {
        if (!m_IsUsed[place]) {
            throw BadRequest(m_What + " has no field \"" + member.key() + "\"");
        }
    }
}

Json to(const std::string& text)
{
    return toText(text);
}

Json to(const std::vector<unsigned char>& bytes)
{
    return toHex(bytes);
}

Json to(const std::map<unsigned int, std::vector<unsigned char>>& attributeValues)
{
    Json json = Json::object();
    for (const auto& [key, bytes] : attributeValues) {
        json[std::to_string(key)] = toHex(bytes);
    }
    return json;
}

Json to(const StartupConfigManagedEntity& managedEntity)
{
    Json json = Json::object();
    json["class"] = managedEntity.classId;
    json["instances"] = managedEntity.instances;
    json["values"] = to(managedEntity.attributeValues);
    return json;
}

Json to(const std::vector<StartupConfigManagedEntity>& managedEntities)
{
    Json json = Json::array();
    for (const StartupConfigManagedEntity& managedEntity : managedEntities) {
        json.push_back(to(managedEntity));
    }
    return json;
}

}  // namespace values
