#include "model/MibCheck.h"

#include "app/Command.h"
#include "app/MibReading.h"

namespace olt {

namespace {

class MibCheckCommand : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("FILE", m_File, "A MIB that mib-upload saved; the ONU's own when left out",
                           Options::Need::Optional);
    }

    ExitCode run(Context& context) override
    {
        const MibCheck check = checkMib(readMib(context, m_File), context.catalogue());
        auto& output = context.output();
        if (output.isJson())
            output.object(toJson(context.catalogue(), check));
        else
            print(context, check);
        return check.findings.empty() ? ExitCode::Success : ExitCode::Refused;
    }

private:
    static Output::Json toJson(const Catalogue& catalogue, const MibCheck& check)
    {
        Output::Json findings = Output::Json::array();
        for (const auto& finding : check.findings)
            findings.push_back({{"class", finding.entity.first},
                                {"name", catalogue.ofNumber(finding.entity.first).shortName},
                                {"instance", finding.entity.second},
                                {"text", finding.text}});
        return {{"command", "mib-check"}, {"findings", std::move(findings)}, {"unchecked", check.unchecked}};
    }

    static void print(Context& context, const MibCheck& check)
    {
        auto& output = context.output();
        for (const auto& finding : check.findings)
            output.line(context.catalogue().ofNumber(finding.entity.first).label() + " instance " +
                            std::to_string(finding.entity.second) + ": " + finding.text,
                        Style::Red);
        if (check.findings.empty())
            output.line("nothing found", Style::Green);
        if (check.unchecked > 0)
            output.note(std::to_string(check.unchecked) +
                        " pointers lead to classes that the upload leaves out and aren't checked; mib-upload "
                        "--complete saves those too");
    }

    std::string m_File;
};

const CommandRegistration<MibCheckCommand>
    registration("mib-check", CommandGroup::Mib, "Look for pointers to missing entities and other broken provisioning",
                 "The exit code is 1 when something is found.\n\n"
                 "Examples:\n  mib-check\n  mib-check onu.json");

}  // namespace

}  // namespace olt
