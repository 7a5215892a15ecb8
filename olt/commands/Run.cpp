#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "app/CommandParser.h"
#include "app/Script.h"

namespace olt {

namespace {

class Run : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("FILE", m_File, "The script; - for standard input", Options::Need::Required);
        options.flag("--keep-going", m_KeepGoing,
                     "Go on after a failure; the first failure's exit code is the script's");
    }

    /// All lines are checked before the first one is sent, so that a slip in the last line doesn't leave an ONU
    /// half provisioned.
    void prepare(Context& context) override
    {
        for (auto& line : read()) {
            const std::string where = m_File + ":" + std::to_string(line.number) + ": ";
            try {
                if (line.words.front() == "run")
                    throw UsageError("a script can't run another one");
                auto command = CommandParser::parseWords(line.words);
                command->prepare(context);
                m_Steps.push_back({std::move(line), std::move(command)});
            } catch (const UsageError& error) {
                throw UsageError(where + error.what());
            }
        }
    }

    ExitCode run(Context& context) override
    {
        ExitCode first = ExitCode::Success;
        for (const auto& step : m_Steps) {
            const ExitCode code = runStep(context, step);
            if (code == ExitCode::Success)
                continue;
            if (first == ExitCode::Success)
                first = code;
            if (!m_KeepGoing)
                break;
        }
        return first;
    }

private:
    struct Step
    {
        ScriptLine line;
        std::unique_ptr<Command> command;
    };

    std::vector<ScriptLine> read() const
    {
        if (m_File == "-")
            return readScript(std::cin, "standard input");
        std::ifstream file(m_File);
        if (!file)
            throw UsageError(m_File + ": can't be read: " + std::strerror(errno));
        return readScript(file, m_File);
    }

    ExitCode runStep(Context& context, const Step& step) const
    {
        auto& output = context.output();
        const std::string where = m_File + ":" + std::to_string(step.line.number) + ": ";
        if (!output.isJson())
            output.line("> " + step.line.text, Style::Dim);
        try {
            const ExitCode code = step.command->run(context);
            if (code != ExitCode::Success)
                output.note(where + "failed" + (m_KeepGoing ? "" : "; stopped"));
            return code;
        } catch (const Interrupted&) {
            throw;
        } catch (const UsageError& error) {
            return fail(output, where + error.what(), ExitCode::Usage);
        } catch (const Unreachable& error) {
            return fail(output, where + error.what(), ExitCode::Unreachable);
        } catch (const BadAnswer& error) {
            return fail(output, where + error.what(), ExitCode::Refused);
        }
    }

    static ExitCode fail(Output& output, const std::string& what, ExitCode code)
    {
        output.note(what);
        if (output.isJson())
            output.object({{"error", what}, {"exit_code", static_cast<int>(code)}});
        return code;
    }

    std::string m_File;
    bool m_KeepGoing = false;
    std::vector<Step> m_Steps;
};

const CommandRegistration<Run> registration(
    "run", CommandGroup::Tool, "Run a script of commands",
    "One command a line, without omci-olt and global options. # begins a comment; quotes and backslash work as in a\n"
    "shell. All lines are checked before the first one is sent. The script stops at the first failure.\n\n"
    "Examples:\n  run provision.omci\n  echo mib-reset | omci-olt --connect 127.0.0.1:5000 run -\n\n"
    "A script:\n"
    "  mib-reset\n"
    "  create GalEthernetProfile 1 MaxGemPayloadSize=4095   # for all GEM ports\n"
    "  set OnuG 0 AdministrativeState=unlocked");

}  // namespace

}  // namespace olt
