#include "model/Value.h"

#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Names.h"
#include "model/VlanRow.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cctype>
#include <optional>

namespace olt {

namespace {

constexpr std::string_view kTextPrefix = "text:";

[[noreturn]] void refuse(std::string_view name, std::string_view text, const std::string& reason)
{
    throw UsageError(std::string(name) + "=" + std::string(text) + ": " + reason);
}

[[noreturn]] void refuse(const Attribute& attribute, std::string_view text, const std::string& reason)
{
    refuse(attribute.name, text, reason);
}

bool isHexadecimal(std::string_view text)
{
    return text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X";
}

bool isSigned(Kind kind)
{
    return kind == Kind::S8 || kind == Kind::S16;
}

bool isNumber(Kind kind)
{
    return kind != Kind::Octets && kind != Kind::Table;
}

/// A state that G.988 numbers the same way in every class that has it.
struct StateWords
{
    std::string_view attributeEnd;
    std::array<std::string_view, 2> words;
};

constexpr std::array<StateWords, 2> kStates{{
    {"administrativestate", {"unlocked", "locked"}},
    {"operationalstate", {"enabled", "disabled"}},
}};

const StateWords* stateWords(const Attribute& attribute)
{
    if (attribute.kind != Kind::U8)
        return nullptr;
    const std::string name = foldName(attribute.name);
    for (const auto& state : kStates) {
        const auto end = state.attributeEnd;
        if (name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0)
            return &state;
    }
    return nullptr;
}

std::optional<Bytes> parseInet(int family, std::size_t size, std::string_view text)
{
    Bytes bytes(size);
    if (inet_pton(family, std::string(text).c_str(), bytes.data()) != 1)
        return std::nullopt;
    return bytes;
}

Bytes parseSigned(const Attribute& attribute, std::string_view text, bool negative)
{
    const auto limit = std::uint64_t{1} << (8 * attribute.size - 1);
    const auto magnitude = parseUnsigned(negative ? text.substr(1) : text);
    if (!magnitude)
        refuse(attribute, text, "isn't a number");
    if (*magnitude > (negative ? limit : limit - 1))
        refuse(attribute, text,
               "is out of range; -" + std::to_string(limit) + " to " + std::to_string(limit - 1) + " fit");
    return bigEndianBytes(negative ? ~*magnitude + 1 : *magnitude, attribute.size);
}

/// The largest number that fits both the octets on the wire and the kind behind them.
std::uint64_t largest(const Attribute& attribute)
{
    constexpr std::array<std::size_t, 6> widths{1, 2, 4, 8, 1, 2};
    const std::size_t width = std::min(widths.at(static_cast<std::size_t>(attribute.kind)), attribute.size);
    return width >= 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << (8 * width)) - 1;
}

Bytes parseNumber(const Attribute& attribute, std::string_view text)
{
    if (const StateWords* const state = stateWords(attribute)) {
        const auto found = std::find(state->words.begin(), state->words.end(), foldName(text));
        if (found != state->words.end())
            return {static_cast<std::uint8_t>(found - state->words.begin())};
    }
    if (attribute.kind == Kind::U32 && attribute.size == 4) {
        if (const auto address = parseInet(AF_INET, 4, text))
            return *address;
    }
    const bool negative = !text.empty() && text[0] == '-';
    if (isSigned(attribute.kind))
        return parseSigned(attribute, text, negative);
    const auto value = parseUnsigned(text);
    if (!value)
        refuse(attribute, text,
               negative ? "is out of range; 0 to " + std::to_string(largest(attribute)) + " fit" : "isn't a number");
    if (*value > largest(attribute))
        refuse(attribute, text, "is out of range; 0 to " + std::to_string(largest(attribute)) + " fit");
    return bigEndianBytes(*value, attribute.size);
}

/// "ABCD12345678": the vendor's four letters and eight hexadecimal digits, as printed on the box.
std::optional<Bytes> parseSerialNumber(std::string_view text)
{
    if (text.size() != 12)
        return std::nullopt;
    auto number = fromHex(text.substr(4));
    if (!number || number->size() != 4)
        return std::nullopt;
    Bytes bytes(text.begin(), text.begin() + 4);
    bytes.insert(bytes.end(), number->begin(), number->end());
    return bytes;
}

/// "100,200:3": VIDs, each with a priority where a colon follows.
Bytes parseVlanFilterList(const Attribute& attribute, std::string_view text)
{
    Bytes list;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view entry = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
        const auto colon = std::min(entry.find(':'), entry.size());
        const auto vid = parseUnsigned(entry.substr(0, colon));
        const auto priority = colon == entry.size() ? 0 : parseUnsigned(entry.substr(colon + 1)).value_or(8);
        if (!vid || *vid > 4095 || priority > 7)
            refuse(attribute, text, "\"" + std::string(entry) + "\" isn't VID or VID:PRIORITY");
        const Bytes tag = bigEndianBytes(priority << 13 | *vid, 2);
        list.insert(list.end(), tag.begin(), tag.end());
    }
    if (list.size() > attribute.size)
        refuse(attribute, text, "has more than " + std::to_string(attribute.size / 2) + " entries");
    list.resize(attribute.size);
    return list;
}

std::optional<Bytes> parseForm(const Attribute& attribute, std::string_view text)
{
    if (attribute.kind == Kind::Octets && attribute.size == 4) {
        // Seven characters are the shortest address, so that no text of four octets is mistaken for one.
        if (auto address = parseInet(AF_INET, 4, text))
            return address;
    }
    if (attribute.form == Form::Ipv6)
        return parseInet(AF_INET6, 16, text);
    if (attribute.kind == Kind::Octets && attribute.size == 6 && text.size() == 17) {
        if (auto mac = fromHex(text); mac && mac->size() == 6)
            return mac;
    }
    if (attribute.form == Form::SerialNumber)
        return parseSerialNumber(text);
    if (attribute.form == Form::VlanRow && text.find('=') != std::string_view::npos)
        return parseVlanRow(text).toOctets();
    if (attribute.form == Form::VlanFilterList && text.find_first_not_of("0123456789,: ") == std::string_view::npos)
        return parseVlanFilterList(attribute, text);
    return std::nullopt;
}

Bytes parseOctets(const Attribute& attribute, std::string_view text)
{
    if (auto bytes = parseForm(attribute, text))
        return *bytes;
    if (attribute.size == 0 && !isHexadecimal(text) && text.substr(0, kTextPrefix.size()) != kTextPrefix)
        refuse(attribute, text, "the size isn't known; give the octets as 0x...");
    Bytes bytes = parseFreeOctets(attribute.name, text);
    if (attribute.size == 0)
        return bytes;
    if (bytes.size() > attribute.size)
        refuse(attribute, text,
               "has " + std::to_string(bytes.size()) + " octets; " + std::to_string(attribute.size) + " fit");
    bytes.resize(attribute.size);
    return bytes;
}

bool isPrintable(std::uint8_t c)
{
    return c >= 0x20 && c < 0x7F;
}

std::string formatInet(int family, const Bytes& value)
{
    std::array<char, INET6_ADDRSTRLEN> text{};
    inet_ntop(family, value.data(), text.data(), static_cast<socklen_t>(text.size()));
    return text.data();
}

std::string formatMac(const Bytes& value)
{
    std::string text;
    for (const auto octet : value)
        text += (text.empty() ? "" : ":") + toHex(&octet, 1);
    return text;
}

bool isAllZero(const Bytes& value)
{
    return std::all_of(value.begin(), value.end(), [](auto octet) { return octet == 0; });
}

std::string formatInForm(Form form, const Bytes& value)
{
    switch (form) {
    case Form::Ipv4:
        return formatInet(AF_INET, value);
    case Form::Ipv6:
        return formatInet(AF_INET6, value);
    case Form::Mac:
        return formatMac(value);
    case Form::SerialNumber:
        if (std::all_of(value.begin(), value.begin() + 4, isPrintable))
            return std::string(value.begin(), value.begin() + 4) + toHex(value.data() + 4, 4);
        break;
    case Form::VlanRow:
        if (!isAllZero(value))
            return vlanRowText(olt::VlanRow::fromOctets(value));
        break;
    case Form::VlanFilterList:
        if (!isAllZero(value))
            return vlanFilterListText(value);
        break;
    case Form::Plain:
        break;
    }
    return formatOctets(value);
}

std::string numberText(const Attribute& attribute, const Bytes& value)
{
    return jsonValue(attribute, value).dump();
}

}  // namespace

std::uint64_t bigEndian(const std::uint8_t* data, std::size_t size)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | data[i];
    return value;
}

Bytes bigEndianBytes(std::uint64_t value, std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t i = size; i > 0; --i) {
        bytes[i - 1] = static_cast<std::uint8_t>(value & 0xFF);
        value >>= 8;
    }
    return bytes;
}

Bytes parseFreeOctets(std::string_view name, std::string_view text)
{
    if (isHexadecimal(text)) {
        const auto digits = fromHex(text);
        if (!digits || digits->empty())
            refuse(name, text, "isn't a whole number of octets in hexadecimal (text: in front makes it text)");
        return *digits;
    }
    if (text.substr(0, kTextPrefix.size()) == kTextPrefix)
        text.remove_prefix(kTextPrefix.size());
    return {text.begin(), text.end()};
}

Bytes parseValue(const Attribute& attribute, std::string_view text)
{
    return isNumber(attribute.kind) ? parseNumber(attribute, text) : parseOctets(attribute, text);
}

std::string formatOctets(const Bytes& value)
{
    auto end = value.end();
    while (end != value.begin() && *(end - 1) == 0)
        --end;
    if (end != value.begin() && std::all_of(value.begin(), end, isPrintable)) {
        while (end != value.begin() && *(end - 1) == ' ')
            --end;
        return "\"" + std::string(value.begin(), end) + "\"";
    }
    if (value.size() > 8 && isAllZero(value))
        return "all zero (" + std::to_string(value.size()) + " octets)";
    return "0x" + toHex(value);
}

std::string formatValue(const Attribute& attribute, const Bytes& value)
{
    if (attribute.isTable() && value.size() == 4)
        return "table, size " + std::to_string(bigEndian(value.data(), 4));
    if (!isNumber(attribute.kind))
        return value.size() == attribute.size ? formatInForm(attribute.form, value) : formatOctets(value);
    const std::string text = numberText(attribute, value);
    const StateWords* const state = stateWords(attribute);
    if (state && value.size() == 1 && value[0] < state->words.size())
        return text + " (" + std::string(state->words[value[0]]) + ")";
    return text;
}

nlohmann::ordered_json jsonValue(const Attribute& attribute, const Bytes& value)
{
    if (attribute.isTable() && value.size() == 4)
        return bigEndian(value.data(), 4);
    if (!isNumber(attribute.kind) || value.size() != attribute.size)
        return "0x" + toHex(value);
    const std::uint64_t number = bigEndian(value.data(), value.size());
    if (!isSigned(attribute.kind))
        return number;
    const auto bits = static_cast<unsigned>(8 * value.size());
    const bool negative = (number >> (bits - 1) & 1) != 0;
    return static_cast<std::int64_t>(number) - (negative ? std::int64_t{1} << bits : 0);
}

Bytes valueFromJson(const Attribute& attribute, const nlohmann::ordered_json& value)
{
    if (value.is_string())
        return parseValue(attribute, value.get<std::string>());
    if (!value.is_number_integer() || !isNumber(attribute.kind))
        refuse(attribute, value.dump(), "isn't a value of this attribute");
    return parseNumber(attribute, value.dump());
}

}  // namespace olt
