#include "app/Command.h"
#include "app/DifferenceReport.h"
#include "app/MibReading.h"
#include "model/Pointers.h"

namespace olt {

namespace {

class MibDiff : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("A", m_Before, "A MIB that mib-upload saved", Options::Need::Required);
        options.positional("B", m_After, "Another one; the ONU's own when left out", Options::Need::Optional);
        options.texts("--ignore", m_IgnoreTexts, kIgnoreHelp, "CLASS[.ATTRIBUTE]");
    }

    void prepare(Context& context) override { m_Ignored = parseIgnored(context.catalogue(), m_IgnoreTexts); }

    ExitCode run(Context& context) override
    {
        const Mib before = loadMib(context.catalogue(), m_Before);
        Mib after = readMib(context, m_After);
        if (m_After.empty())
            after = likeUpload(before, after);
        const auto differences = diffMibs(before, after, m_Ignored);
        auto& output = context.output();
        if (output.isJson()) {
            output.object(
                {{"command", "mib-diff"}, {"differences", differencesToJson(context.catalogue(), differences)}});
        } else {
            printDifferences(context, differences);
            output.line(differences.empty() ? "no difference" : std::to_string(differences.size()) + " differences");
        }
        return differences.empty() ? ExitCode::Success : ExitCode::Refused;
    }

private:
    /// Of the ONU no more than the file can know: an upload that wasn't completed lacks whole classes.
    static Mib likeUpload(const Mib& file, const Mib& onu)
    {
        std::set<std::uint16_t> classes;
        for (const auto& [key, entity] : file.entities())
            classes.insert(key.first);
        Mib same;
        for (const auto& [key, entity] : onu.entities()) {
            if (!isUploaded(*entity.entityClass) && classes.count(key.first) == 0)
                continue;
            same.add(entity);
        }
        return same;
    }

    std::string m_Before;
    std::string m_After;
    std::vector<std::string> m_IgnoreTexts;
    Ignored m_Ignored;
};

const CommandRegistration<MibDiff> registration(
    "mib-diff", CommandGroup::Mib, "Compare two saved MIBs, or one with the ONU's",
    "Entities and attributes that were added, are missing or have changed, by class. The exit code is 1 when there "
    "are\n"
    "any.\n\n"
    "Examples:\n  mib-diff good.json bad.json\n  mib-diff good.json --ignore OnuData.MibDataSync --ignore 277");

}  // namespace

}  // namespace olt
