#ifndef SIMULATOR_JSON_VALUES_H
#define SIMULATOR_JSON_VALUES_H

#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "Json.h"
#include "Records.h"
#include "StartupConfigManagedEntity.h"

/// Values of the library's boundary as JSON and back. Numbers are range-checked; bytes are hexadecimal digits; records
/// are objects by field name (fields left out are zero) or arrays in field order.
namespace values {

struct AnyVisitor
{
    template <typename Field>
    void operator()(const char*, Field&) const;
};

template <typename T, typename = void>
struct IsRecord : std::false_type
{};
template <typename T>
struct IsRecord<T, std::void_t<decltype(records::fields(std::declval<T&>(), AnyVisitor()))>> : std::true_type
{};

template <typename T>
using EnableForNumber = std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>, int>;
template <typename T>
using EnableForRecord = std::enable_if_t<IsRecord<T>::value, int>;

/// @name From JSON. `what` names the value in the message of the BadRequest that a wrong one throws.
/// @{
/// A number from `low` to `high`, whatever its sign.
std::int64_t signedNumber(const Json& json, std::int64_t low, std::int64_t high, const std::string& what);
std::uint64_t unsignedNumber(const Json& json, std::uint64_t high, const std::string& what);

void from(const Json& json, bool& value, const std::string& what);
void from(const Json& json, std::string& value, const std::string& what);
void from(const Json& json, std::vector<unsigned char>& value, const std::string& what);
/// {key:hex}, the key being instance << 16 | attribute mask.
void from(const Json& json, std::map<unsigned int, std::vector<unsigned char>>& value, const std::string& what);
/// {"class":C,"instances":[...],"values":{key:hex}}.
void from(const Json& json, StartupConfigManagedEntity& value, const std::string& what);
void from(const Json& json, std::vector<StartupConfigManagedEntity>& value, const std::string& what);
template <typename T, EnableForNumber<T> = 0>
void from(const Json& json, T& value, const std::string& what)
{
    using Limits = std::numeric_limits<T>;
    if constexpr (std::is_signed_v<T>) {
        value = static_cast<T>(signedNumber(json, Limits::min(), Limits::max(), what));
    } else {
        value = static_cast<T>(unsignedNumber(json, Limits::max(), what));
    }
}
template <typename T, EnableForRecord<T> = 0>
void from(const Json& json, T& value, const std::string& what);
/// Shorter digits are filled up with zeros.
template <std::size_t Size>
void from(const Json& json, unsigned char (&value)[Size], const std::string& what)
{
    std::vector<unsigned char> bytes;
    from(json, bytes, what);
    if (bytes.size() > Size) {
        throw BadRequest(what + " takes at most " + std::to_string(Size) + " bytes");
    }
    bytes.resize(Size);
    std::copy(bytes.begin(), bytes.end(), value);
}
/// @}

/// Finds members of an object by the names of fields.
class RecordReader
{
public:
    RecordReader(const Json& json, std::size_t fieldCount, const std::string& what);

    /// The next field's value; null where it is left out. `isClass`: found by its place, whatever its name.
    const Json* next(const char* names, bool isClass);
    /// BadRequest when a member belongs to no field.
    void finish() const;

private:
    const Json& m_Json;
    std::string m_What;
    std::size_t m_Index = 0;
    std::vector<bool> m_IsUsed;
};

template <typename T, EnableForRecord<T>>
void from(const Json& json, T& value, const std::string& what)
{
    std::size_t count = 0;
    records::fields(value, [&count](const char*, auto&) { ++count; });
    RecordReader reader(json, count, what);
    T read{};
    records::fields(read, [&](const char* names, auto& field) {
        constexpr bool isClass = IsRecord<std::decay_t<decltype(field)>>::value;
        const Json* member = reader.next(names, isClass);
        if (member != nullptr) {
            from(*member, field, what + "." + std::string(names).substr(0, std::string(names).find('|')));
        }
    });
    reader.finish();
    value = read;
}

/// @name To JSON
/// @{
Json to(const std::string& text);
Json to(const std::vector<unsigned char>& bytes);
Json to(const StartupConfigManagedEntity& managedEntity);
Json to(const std::vector<StartupConfigManagedEntity>& managedEntities);
Json to(const std::map<unsigned int, std::vector<unsigned char>>& attributeValues);
inline Json to(bool value)
{
    return value;
}
template <typename T, EnableForNumber<T> = 0>
Json to(T value)
{
    return value;
}
template <std::size_t Size>
Json to(const char (&text)[Size])
{
    return to(std::string(text));
}
template <std::size_t Size>
Json to(const unsigned char (&bytes)[Size])
{
    return toHex(bytes, Size);
}
template <typename T, EnableForRecord<T> = 0>
Json to(const T& record)
{
    Json json = Json::object();
    T copy = record;
    records::fields(copy, [&json](const char* names, auto& field) {
        json[std::string(names).substr(0, std::string(names).find('|'))] = to(field);
    });
    return json;
}
template <typename T, EnableForRecord<T> = 0>
Json to(const std::vector<T>& all)
{
    Json json = Json::array();
    for (const T& record : all) {
        json.push_back(to(record));
    }
    return json;
}
/// @}

}  // namespace values

#endif
