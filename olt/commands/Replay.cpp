#include "replay/Replay.h"

#include <algorithm>

#include "app/Command.h"
#include "app/DifferenceReport.h"

namespace olt {

namespace {

class ReplayCommand : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("FILE", m_File, "A capture, or a text of frames in hexadecimal digits",
                           Options::Need::Required);
        options.flag("--timing", m_Timing, "Keep the recorded times; else the next request follows each answer");
        options.texts("--ignore", m_IgnoreTexts, kIgnoreHelp, "CLASS[.ATTRIBUTE]");
    }

    void prepare(Context& context) override { m_Ignored = parseIgnored(context.catalogue(), m_IgnoreTexts); }

    ExitCode run(Context& context) override
    {
        FrameSource source(m_File);
        const Conversation conversation = readConversation(source);
        auto& output = context.output();
        if (const std::string remark = source.remark(); !remark.empty())
            output.note(remark);
        if (conversation.exchanges.empty())
            throw UsageError(m_File + ": holds no request to an ONU");
        if (conversation.unusable > 0)
            output.note(m_File + ": " + std::to_string(conversation.unusable) +
                        " frames are no OMCI or answer nothing; left out");
        ReplayOutcome outcome = Replay(context, conversation, m_Ignored)
                                    .run(m_Timing ? ReplayPace::AsRecorded : ReplayPace::AsFastAsAnswersCome);
        std::stable_sort(outcome.differences.begin(), outcome.differences.end(),
                         [](const auto& a, const auto& b) { return a.entity < b.entity; });
        report(context, outcome);
        return outcome.differences.empty() ? ExitCode::Success : ExitCode::Refused;
    }

private:
    static void report(Context& context, const ReplayOutcome& outcome)
    {
        auto& output = context.output();
        if (output.isJson()) {
            output.object({{"command", "replay"},
                           {"requests", outcome.requests},
                           {"differences", differencesToJson(context.catalogue(), outcome.differences)}});
            return;
        }
        printDifferences(context, outcome.differences);
        output.line(std::to_string(outcome.requests) + " requests, " +
                    (outcome.differences.empty() ? "no" : std::to_string(outcome.differences.size())) +
                    (outcome.differences.size() == 1 ? " difference" : " differences"));
    }

    std::string m_File;
    bool m_Timing = false;
    std::vector<std::string> m_IgnoreTexts;
    Ignored m_Ignored;
};

const CommandRegistration<ReplayCommand> registration(
    "replay", CommandGroup::Tool, "Send the OLT's side of a capture again and compare the answers",
    "Differences are listed by class, instance and attribute; the exit code is 1 when there are any. MIB uploads and\n"
    "readings of all alarms are compared as a whole.\n\n"
    "Examples:\n  replay session.pcap\n  replay session.pcap --timing --ignore OnuData.MibDataSync");

}  // namespace

}  // namespace olt
