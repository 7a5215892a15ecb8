#include "DebugService.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "MibAccess.h"
#include "OmciMeFactory.h"
#include "Onu.h"

namespace {
struct DebugCommand
{
    const char* name;
    const char* help;
    std::string (*answer)(Onu& onu);
};

std::string line(const std::string& label, std::uint64_t number)
{
    return label + ": " + std::to_string(number) + "\n";
}

std::string version(Onu&)
{
    return "onu-sim " NRVK_VERSION "\n";
}

std::string uptime(Onu& onu)
{
    constexpr long long perMinute = 60;
    constexpr long long perHour = 60 * perMinute;
    const long long seconds = onu.clock().uptime().count() / 1000;
    return "up " + std::to_string(seconds / perHour) + " h " + std::to_string(seconds % perHour / perMinute) + " min " +
           std::to_string(seconds % perMinute) + " s\n";
}

std::string timeOfDay(Onu& onu)
{
    return utcText(onu.clock().now()) + (onu.clock().isSynchronized() ? "\n" : " (not synchronized)\n");
}

/// How much of each entity of the data path and of voice the MIB has.
std::string services(Onu&)
{
    constexpr struct
    {
        unsigned short classId;
        const char* label;
    } entities[] = {{262, "T-CONTs"},      {268, "GEM ports"},        {266, "interworking TPs"}, {281, "multicast TPs"},
                    {45, "bridges"},       {47, "bridge ports"},      {130, "802.1p mappers"},   {171, "VLAN tagging"},
                    {11, "Ethernet UNIs"}, {329, "virtual Ethernet"}, {53, "POTS UNIs"},         {153, "SIP users"}};
    std::string text;
    for (const auto& entity : entities) {
        const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(entity.classId);
        text += line(entity.label, me == nullptr ? 0 : mib::instancesOf(*me).size());
    }
    return text;
}

std::string counters(Onu& onu)
{
    const omci::Statistics& counted = onu.dispatcher().statistics();
    const omci::Notifier::Counters sent = onu.notifier().counters();
    std::uint64_t dropped = 0;
    for (const std::uint64_t drops : counted.drops) {
        dropped += drops;
    }
    return line("baseline requests", counted.baselineRequests) + line("extended requests", counted.extendedRequests) +
           line("replies", counted.replies) + line("retransmissions", counted.retransmissions) +
           line("dropped frames", dropped) + line("exceptions", counted.exceptions) +
           line("attribute value changes", sent.attributeValueChanges) + line("alarms", sent.alarms) +
           line("test results", sent.testResults);
}

std::string help(Onu& onu);

constexpr DebugCommand kCommands[] = {
    {"version", "version of the program", version},
    {"uptime", "since the last restart", uptime},
    {"time", "time of day", timeOfDay},
    {"services", "entities of the services", services},
    {"counters", "messages so far", counters},
    {"help", "this list", help},
};

std::string help(Onu&)
{
    std::string text;
    for (const DebugCommand& command : kCommands) {
        text += std::string(command.name) + ": " + command.help + "\n";
    }
    return text;
}

/// Without blanks around it, in lower case.
std::string normalized(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const std::size_t end = text.find_last_not_of(" \t\r\n");
    std::string word = begin == std::string::npos ? "" : text.substr(begin, end - begin + 1);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return word;
}
}  // namespace

std::string answerDebugCommand(Onu& onu, const std::string& command)
{
    const std::string name = normalized(command);
    const auto known = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&name](const DebugCommand& candidate) { return name == candidate.name; });
    return known == std::end(kCommands) ? "unknown command\n" + help(onu) : known->answer(onu);
}
