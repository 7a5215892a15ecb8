#include "hardware/VoiceTexts.h"

#include <algorithm>
#include <map>

#include "NetworkDialPlanAccess.h"
#include "host/VoiceNames.h"

namespace {
constexpr std::size_t kPartSize = 25;
constexpr std::size_t kParts = 15;

using Part = const unsigned char* (OmciMeLargeStringIf::*)(EnumOmciAction) const;
constexpr Part kPartGetters[kParts] = {
    &OmciMeLargeStringIf::getPart_1,  &OmciMeLargeStringIf::getPart_2,  &OmciMeLargeStringIf::getPart_3,
    &OmciMeLargeStringIf::getPart_4,  &OmciMeLargeStringIf::getPart_5,  &OmciMeLargeStringIf::getPart_6,
    &OmciMeLargeStringIf::getPart_7,  &OmciMeLargeStringIf::getPart_8,  &OmciMeLargeStringIf::getPart_9,
    &OmciMeLargeStringIf::getPart_10, &OmciMeLargeStringIf::getPart_11, &OmciMeLargeStringIf::getPart_12,
    &OmciMeLargeStringIf::getPart_13, &OmciMeLargeStringIf::getPart_14, &OmciMeLargeStringIf::getPart_15};

/// Octet 1 of a dial plan row: what it does to the plan.
enum class DialPlanAction : unsigned char
{
    Remove = 0,
    Add = 1
};

/// The plan that rows of {id, action, token} come to, by id.
std::map<unsigned int, std::string> tokensOf(const OmciMeNetworkDialPlanTableIf& dialPlan)
{
    constexpr std::size_t tokenAt = 2;
    std::map<unsigned int, std::string> tokens;
    unsigned char row[nrvk::kDialPlanRowSize];
    for (unsigned int index = 0; nrvk::getDialPlanRow(dialPlan, index, row); ++index) {
        if (row[1] == static_cast<unsigned char>(DialPlanAction::Add)) {
            tokens[row[0]] = textOf(row + tokenAt, sizeof row - tokenAt);
        } else if (row[1] == static_cast<unsigned char>(DialPlanAction::Remove)) {
            tokens.erase(row[0]);
        }
    }
    return tokens;
}
}  // namespace

std::string textOf(const unsigned char* octets, std::size_t size)
{
    return octets == nullptr ? std::string() : std::string(octets, std::find(octets, octets + size, 0));
}

std::string textOf(const OmciMeLargeStringIf& string)
{
    const std::size_t count = std::min<std::size_t>(string.getNumberOfParts(OMCI_ACTION_GET), kParts);
    std::string text;
    for (std::size_t part = 0; part < count; ++part) {
        text += textOf((string.*kPartGetters[part])(OMCI_ACTION_GET), kPartSize);
    }
    return text;
}

Json describeCredentials(const OmciMeAuthenticationSecurityMethodIf& method)
{
    const std::string user = textOf(method.getUsername_1(OMCI_ACTION_GET), kPartSize) +
                             textOf(method.getUsername_2(OMCI_ACTION_GET), kPartSize);
    return {{"instance", method.getManagedEntityInstance()},
            {"user", toText(user)},
            {"realm", toText(textOf(method.getRealm(OMCI_ACTION_GET), kPartSize))},
            {"has_password", !textOf(method.getPassword(OMCI_ACTION_GET), kPartSize).empty()}};
}

Json describeDialPlan(const OmciMeNetworkDialPlanTableIf& dialPlan)
{
    Json tokens = Json::object();
    for (const auto& [id, token] : tokensOf(dialPlan)) {
        tokens[std::to_string(id)] = toText(token);
    }
    return {{"instance", dialPlan.getManagedEntityInstance()},
            {"format", omci::dialPlanFormatName(dialPlan.getDialPlanFormat(OMCI_ACTION_GET))},
            {"critical_timeout_ms", dialPlan.getCriticalDialTimeout(OMCI_ACTION_GET)},
            {"partial_timeout_ms", dialPlan.getPartialDialTimeout(OMCI_ACTION_GET)},
            {"tokens", tokens}};
}
