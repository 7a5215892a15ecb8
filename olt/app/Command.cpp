#include "app/Command.h"

#include <algorithm>
#include <tuple>

namespace olt {

namespace {

/// Made at the first use, since the registrations run before main in an order that nobody knows.
std::vector<CommandEntry>& entries()
{
    static std::vector<CommandEntry> all;
    return all;
}

}  // namespace

const std::vector<CommandEntry>& commandEntries()
{
    return entries();
}

void registerCommand(CommandEntry entry)
{
    const auto before = [](const CommandEntry& a, const CommandEntry& b) {
        return std::tie(a.group, a.name) < std::tie(b.group, b.name);
    };
    auto& all = entries();
    const auto place = std::upper_bound(all.begin(), all.end(), entry, before);
    all.insert(place, std::move(entry));
}

}  // namespace olt
