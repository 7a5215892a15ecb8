#include "app/MibReading.h"

#include <iostream>
#include <iterator>
#include <set>

#include "model/AtomicFile.h"
#include "model/Errors.h"
#include "model/Pointers.h"
#include "session/Operations.h"
#include "terminal/ProgressBar.h"

namespace olt {

namespace {

bool addFromOnu(Session& session, const Catalogue& catalogue, Mib::Key key, Mib& mib)
{
    const EntityClass& entity = catalogue.ofNumber(key.first);
    std::vector<const Attribute*> attributes;
    for (const auto& attribute : entity.attributes) {
        if ((entity.readableMask & attribute.mask) != 0 && !attribute.isTable())
            attributes.push_back(&attribute);
    }
    const GetOutcome outcome = getAttributes(session, {&entity, key.second}, attributes);
    for (const auto& value : outcome.values.values)
        mib.add(entity, key.second, value.attribute->mask, value.value.data(), value.value.size());
    return !outcome.values.values.empty();
}

}  // namespace

void completeMib(Session& session, const Catalogue& catalogue, Mib& mib)
{
    std::set<Mib::Key> asked;
    for (bool found = true; found;) {
        found = false;
        for (const auto& pointer : pointersOf(mib, catalogue)) {
            if (!pointer.exists && asked.insert(pointer.to).second)
                found = addFromOnu(session, catalogue, pointer.to, mib) || found;
        }
        // Multicast subscribers point to nobody that leads to them; they share the number of their bridge port.
        const Mib before = mib;
        for (const auto& [key, entity] : before.entities()) {
            if (key.first == 47 && asked.insert({310, key.second}).second &&
                before.entities().count({310, key.second}) == 0)
                found = addFromOnu(session, catalogue, {310, key.second}, mib) || found;
        }
    }
}

Mib loadMib(const Catalogue& catalogue, const std::string& path)
{
    const std::string text = path == "-" ? std::string{std::istreambuf_iterator<char>(std::cin), {}} : readFile(path);
    const std::string name = path == "-" ? "standard input" : path;
    try {
        return Mib::fromJson(catalogue, nlohmann::ordered_json::parse(text));
    } catch (const nlohmann::json::exception&) {
        throw UsageError(name + ": isn't JSON; mib-upload --save writes such files");
    } catch (const UsageError& error) {
        throw UsageError(name + ": " + error.what());
    }
}

Mib readMib(Context& context, const std::string& path)
{
    if (!path.empty())
        return loadMib(context.catalogue(), path);
    ProgressBar bar(context.output().terminal(), "MIB upload");
    Mib mib = uploadMib(context.session(), context.catalogue(),
                        [&](std::size_t done, std::size_t total) { bar.show(done, total); });
    completeMib(context.session(), context.catalogue(), mib);
    return mib;
}

}  // namespace olt
