#include "model/Names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <utility>

namespace olt {

namespace {

/// Words that G.988 spells out and the catalogue doesn't.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kShortForms{{
    {"physicalpathterminationpoint", "pptp"},
    {"performancemonitoring", "pm"},
    {"maximum", "max"},
    {"minimum", "min"},
    {"ieee8021p", "8021p"},
}};

bool isAlphanumeric(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

/// Edits that lead from one text to the other; swapping two neighbours counts once, as the usual slip of a hand.
std::size_t editDistance(std::string_view a, std::string_view b)
{
    std::vector<std::vector<std::size_t>> cost(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const std::size_t replace = cost[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U);
            cost[i][j] = std::min({replace, cost[i - 1][j] + 1, cost[i][j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    }
    return cost[a.size()][b.size()];
}

/// Whether `shortened` is `full` with letters left out, beginning alike: "adminstate" for "administrativestate".
bool isAbbreviation(std::string_view shortened, std::string_view full)
{
    if (shortened.size() < 3 || full.empty() || shortened.front() != full.front())
        return false;
    std::size_t matched = 0;
    for (const char c : full) {
        if (matched < shortened.size() && shortened[matched] == c)
            ++matched;
    }
    return matched == shortened.size();
}

}  // namespace

std::string foldName(std::string_view name)
{
    std::string folded;
    for (const char c : name) {
        if (isAlphanumeric(c))
            folded += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    constexpr std::string_view prefix = "omcime";
    if (folded.size() > prefix.size() && folded.compare(0, prefix.size(), prefix) == 0)
        folded.erase(0, prefix.size());
    for (const auto& [spelledOut, shortForm] : kShortForms) {
        if (const auto at = folded.find(spelledOut); at != std::string::npos)
            folded.replace(at, spelledOut.size(), shortForm);
    }
    return folded;
}

std::optional<unsigned long long> parseUnsigned(std::string_view text)
{
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    unsigned long long value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

std::vector<std::string> similarNames(std::string_view typed, const std::vector<std::string>& candidates,
                                      std::size_t limit)
{
    const std::string wanted = foldName(typed);
    if (wanted.empty())
        return {};
    const std::size_t tolerance = std::max<std::size_t>(1, wanted.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> ranked;
    for (const auto& candidate : candidates) {
        const std::string folded = foldName(candidate);
        const std::size_t distance = editDistance(wanted, folded);
        if (distance <= tolerance)
            ranked.emplace_back(distance, candidate);
        else if (isAbbreviation(wanted, folded) || (wanted.size() >= 3 && folded.find(wanted) != std::string::npos))
            ranked.emplace_back(tolerance + distance, candidate);
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (std::size_t i = 0; i < ranked.size() && i < limit; ++i)
        names.push_back(ranked[i].second);
    return names;
}

std::string didYouMean(std::string_view typed, const std::vector<std::string>& candidates)
{
    const auto names = similarNames(typed, candidates);
    if (names.empty())
        return "";
    std::string text = "; did you mean ";
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " or " : ", ") + names[i];
    return text + "?";
}

}  // namespace olt
