#include "BoardFile.h"

// Plain bytes: the reader need not convert between character sets.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <limits>
#include <map>
#include <sstream>
#include <stdexcept>

#include "MacAddress.h"

namespace {
using Setter = std::function<void(Board&, const std::string&)>;

/// A field's text is wrong; the message says what is allowed.
struct WrongValue : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

unsigned char parseCount(const std::string& text)
{
    constexpr unsigned long highest = 255;
    const bool isNumber = !text.empty() && text.size() <= 3 && std::all_of(text.begin(), text.end(), [](char digit) {
        return std::isdigit(static_cast<unsigned char>(digit)) != 0;
    });
    if (!isNumber || std::stoul(text) > highest) {
        throw WrongValue("is not a number from 0 to 255");
    }
    return static_cast<unsigned char>(std::stoul(text));
}

Setter countSetter(unsigned char BoardSpecificConfig::*count)
{
    return [count](Board& board, const std::string& text) { board.counts.*count = parseCount(text); };
}

Setter textSetter(std::optional<std::string> Identity::*field, std::size_t longest)
{
    return [field, longest](Board& board, const std::string& text) {
        if (text.empty() || text.size() > longest) {
            throw WrongValue("is not a text of 1 to " + std::to_string(longest) + " characters");
        }
        board.identity.*field = text;
    };
}

/// Decimal, or hexadecimal with 0x.
template <typename T>
Setter numberSetter(std::optional<T> Identity::*field)
{
    return [field](Board& board, const std::string& text) {
        constexpr unsigned long highest = std::numeric_limits<T>::max();
        const bool isHex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
        const std::string digits = isHex ? text.substr(2) : text;
        const char* const allowed = isHex ? "0123456789abcdefABCDEF" : "0123456789";
        const bool isNumber =
            !digits.empty() && digits.size() <= 8 && digits.find_first_not_of(allowed) == std::string::npos;
        const unsigned long value = isNumber ? std::stoul(digits, nullptr, isHex ? 16 : 10) : highest + 1;
        if (value > highest) {
            throw WrongValue("is not a number from 0 to " + std::to_string(highest));
        }
        board.identity.*field = static_cast<T>(value);
    };
}

void setMacAddress(Board& board, const std::string& text)
{
    if (!parseMacAddress(text)) {
        throw WrongValue("is not a MAC address like 00:11:22:33:44:55");
    }
    board.macAddress = text;
}

const std::map<std::string, std::map<std::string, Setter>>& knownFields()
{
    using Config = BoardSpecificConfig;
    static const std::map<std::string, std::map<std::string, Setter>> fields = {
        {"board",
         {{"t_conts", countSetter(&Config::numberOfTConts)},
          {"ethernet_unis", countSetter(&Config::numberOfEthernetUnis)},
          {"video_unis", countSetter(&Config::numberOfVideoUnis)},
          {"video_anis", countSetter(&Config::numberOfVideoAnis)},
          {"upstream_queues_per_t_cont", countSetter(&Config::upstreamQueuesPerTCont)},
          {"downstream_queues_per_uni", countSetter(&Config::downstreamQueuesPerUni)},
          {"pots_unis", countSetter(&Config::numberOfPotsUnis)}}},
        {"identity",
         {{"serial_number", [](Board& board, const std::string& text) { board.serialNumber = text; }},
          {"version", [](Board& board, const std::string& text) { board.version = text; }},
          {"mac", setMacAddress},
          {"vendor_id", textSetter(&Identity::vendorId, 4)},
          {"hardware_version", textSetter(&Identity::hardwareVersion, 14)},
          {"equipment_id", textSetter(&Identity::equipmentId, 20)},
          {"omcc_version", numberSetter(&Identity::omccVersion)},
          {"product_code", numberSetter(&Identity::productCode)},
          {"factory_file", [](Board& board, const std::string& text) { board.factoryFile = text; }}}},
    };
    return fields;
}

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    const std::size_t end = text.find_last_not_of(" \t\r");
    return begin == std::string::npos ? "" : text.substr(begin, end - begin + 1);
}

/// One line that has something in it: a section, or a field of it.
struct Line
{
    unsigned int number;
    std::string section;
    std::string key;  ///< empty for the section's own line
};

/// The reader keeps no line numbers and skips what it does not understand, so the lines are looked at here.
std::vector<Line> linesOf(const std::string& content, const std::string& path)
{
    std::vector<Line> lines;
    std::istringstream stream(content);
    std::string section;
    std::string text;
    for (unsigned int number = 1; std::getline(stream, text); ++number) {
        text = trimmed(text);
        if (text.empty() || text.front() == '#' || text.front() == ';') {
            continue;
        }
        const std::size_t equals = text.find('=');
        if (text.front() == '[' && text.back() == ']') {
            section = trimmed(text.substr(1, text.size() - 2));
            lines.push_back({number, section, ""});
        } else if (equals != std::string::npos && equals != 0) {
            lines.push_back({number, section, trimmed(text.substr(0, equals))});
        } else {
            throw std::runtime_error(path + ":" + std::to_string(number) + ": \"" + text +
                                     "\" is neither [section] nor key = value");
        }
    }
    return lines;
}

std::string readWhole(const std::string& path)
{
    FILE* file = std::fopen(path.c_str(), "re");
    if (file == nullptr) {
        throw std::runtime_error(path + ": cannot be read: " + std::strerror(errno));
    }
    std::string content;
    char buffer[4096];
    std::size_t got = 0;
    while ((got = std::fread(buffer, 1, sizeof buffer, file)) != 0) {
        content.append(buffer, got);
    }
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) {
        throw std::runtime_error(path + ": cannot be read");
    }
    return content;
}

void applyLine(Board& board, const CSimpleIniA& ini, const Line& line, const std::string& place)
{
    const auto section = knownFields().find(line.section);
    if (section == knownFields().end()) {
        const std::string what = line.section.empty() ? "field \"" + line.key + "\" stands in no section"
                                                      : "section [" + line.section + "] is not known";
        throw std::runtime_error(place + what + "; there are [board] and [identity]");
    }
    if (line.key.empty()) {
        return;
    }
    const auto field = section->second.find(line.key);
    if (field == section->second.end()) {
        throw std::runtime_error(place + "field \"" + line.key + "\" is not known in [" + line.section + "]");
    }
    const std::string value = ini.GetValue(line.section.c_str(), line.key.c_str(), "");
    try {
        field->second(board, value);
    } catch (const WrongValue& problem) {
        throw std::runtime_error(place + line.key + ": \"" + value + "\" " + problem.what());
    }
}
}  // namespace

Board readBoardFile(const std::string& path)
{
    const std::string content = readWhole(path);
    const std::vector<Line> lines = linesOf(content, path);
    CSimpleIniA ini;
    ini.SetUnicode();
    if (ini.LoadData(content) < 0) {
        throw std::runtime_error(path + ": is no INI file");
    }
    Board board;
    std::map<std::pair<std::string, std::string>, unsigned int> seen;
    for (const Line& line : lines) {
        const std::string place = path + ":" + std::to_string(line.number) + ": ";
        const auto [earlier, isFirst] = seen.insert({{line.section, line.key}, line.number});
        if (!isFirst && !line.key.empty()) {
            throw std::runtime_error(place + line.key + ": stands in line " + std::to_string(earlier->second) +
                                     " already");
        }
        applyLine(board, ini, line, place);
    }
    return board;
}
