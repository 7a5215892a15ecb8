#include "app/DifferenceReport.h"

namespace olt {

const char* const kIgnoreHelp = "Don't compare this attribute, or this class; may be repeated";

namespace {

std::string inWords(const Difference& difference)
{
    if (difference.attribute.empty())
        return difference.before ? "missing" : "added";
    if (!difference.before)
        return difference.attribute + " added: " + *difference.after;
    if (!difference.after)
        return difference.attribute + " missing, was " + *difference.before;
    return difference.attribute + " changed from " + *difference.before + " to " + *difference.after;
}

Style styleOf(const Difference& difference)
{
    return !difference.after ? Style::Red : !difference.before ? Style::Green : Style::Yellow;
}

Output::Json orNull(const std::optional<std::string>& text)
{
    return text ? Output::Json(*text) : Output::Json();
}

}  // namespace

void printDifferences(Context& context, const std::vector<Difference>& differences)
{
    auto& output = context.output();
    const EntityClass* shown = nullptr;
    for (const auto& difference : differences) {
        const EntityClass& entity = context.catalogue().ofNumber(difference.entity.first);
        if (shown != &entity)
            output.line(entity.label(), Style::Bold);
        shown = &entity;
        output.line("  instance " + std::to_string(difference.entity.second) + ": " + inWords(difference),
                    styleOf(difference));
    }
}

Output::Json differencesToJson(const Catalogue& catalogue, const std::vector<Difference>& differences)
{
    Output::Json all = Output::Json::array();
    for (const auto& difference : differences)
        all.push_back(
            {{"class", difference.entity.first},
             {"name", catalogue.ofNumber(difference.entity.first).shortName},
             {"instance", difference.entity.second},
             {"attribute", difference.attribute.empty() ? Output::Json() : Output::Json(difference.attribute)},
             {"before", orNull(difference.before)},
             {"after", orNull(difference.after)}});
    return all;
}

Ignored parseIgnored(const Catalogue& catalogue, const std::vector<std::string>& texts)
{
    Ignored ignored;
    for (const auto& text : texts)
        ignored.add(catalogue, text);
    return ignored;
}

}  // namespace olt
