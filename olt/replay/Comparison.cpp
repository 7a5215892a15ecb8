#include "replay/Comparison.h"

#include "model/Value.h"

namespace olt {

namespace {

using Parts = std::vector<std::pair<std::string, std::string>>;

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const auto& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

/// Everything an answer says, each under a name.
Parts partsOf(const Description& description)
{
    Parts parts;
    const EntityClass& entity = *description.entity.entityClass;
    if (description.result)
        parts.emplace_back("result", omci::resultName(*description.result));
    if (description.failed != 0)
        parts.emplace_back("failed attributes", joined(entity.attributeNames(description.failed)));
    if (description.unsupported != 0)
        parts.emplace_back("unsupported attributes", joined(entity.attributeNames(description.unsupported)));
    for (const auto& value : description.entity.values.values)
        parts.emplace_back(value.attribute->name, formatValue(*value.attribute, value.value));
    const std::string table = joined(entity.attributeNames(description.asked));
    for (const auto& [key, value] : description.details.items())
        parts.emplace_back(key == "data" && !table.empty() ? table : key,
                           value.is_string() ? value.get<std::string>() : value.dump());
    if (description.cutOff)
        parts.emplace_back("contents", "cut off");
    return parts;
}

std::optional<std::string> find(const Parts& parts, const std::string& name)
{
    for (const auto& [candidate, text] : parts) {
        if (candidate == name)
            return text;
    }
    return std::nullopt;
}

}  // namespace

std::vector<Difference> compareAnswers(const Description& before, const Description& after, const Ignored& ignored)
{
    const Mib::Key key{before.header.entityClass, before.header.entityInstance};
    const Parts old = partsOf(before);
    const Parts now = partsOf(after);
    std::vector<Difference> differences;
    const auto note = [&](const std::string& name) {
        const auto was = find(old, name);
        const auto is = find(now, name);
        if (was != is && !ignored.covers(key.first, name))
            differences.push_back({key, name, was, is});
    };
    for (const auto& [name, text] : old)
        note(name);
    for (const auto& [name, text] : now) {
        if (!find(old, name))
            note(name);
    }
    return differences;
}

}  // namespace olt
