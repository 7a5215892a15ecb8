#include "app/Command.h"
#include "session/ControlClient.h"

namespace olt {

namespace {

using Json = Output::Json;

std::string numberText(const Json& object, const char* key)
{
    return object.contains(key) ? object[key].dump() : "0";
}

class Statistics : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("CONTROL", m_Path, "The control socket of onu-sim (its --control)", Options::Need::Required);
    }

    ExitCode run(Context& context) override
    {
        const Json statistics =
            askControl(m_Path, {{"statistics", true}}, std::chrono::milliseconds(context.options().timeout));
        auto& output = context.output();
        if (output.isJson()) {
            Json json{{"command", "statistics"}};
            json.update(statistics);
            output.object(json);
            return ExitCode::Success;
        }
        printMessages(output, statistics);
        printDrops(output, statistics);
        printHandlers(context, statistics);
        printTotals(output, statistics);
        return ExitCode::Success;
    }

private:
    static void printMessages(Output& output, const Json& statistics)
    {
        Table table({{"Message"}, {"Baseline", Table::Align::Right}, {"Extended", Table::Align::Right}, {"Results"}});
        const Json messages = statistics.value("messages", Json::object());
        for (const auto& [name, counts] : messages.items()) {
            std::string results;
            const Json byResult = counts.value("results", Json::object());
            for (const auto& [result, count] : byResult.items())
                results += (results.empty() ? "" : ", ") + count.dump() + " " + result;
            table.add({name, numberText(counts, "baseline"), numberText(counts, "extended"), results});
        }
        if (table.isEmpty())
            output.line("no requests");
        else
            output.table(table);
    }

    static void printDrops(Output& output, const Json& statistics)
    {
        const Json drops = statistics.value("drops", Json::object());
        for (const auto& [reason, count] : drops.items()) {
            if (count != 0)
                output.line("dropped: " + count.dump() + " " + reason, Style::Yellow);
        }
    }

    /// The slowest classes, the slowest first.
    static void printHandlers(Context& context, const Json& statistics)
    {
        constexpr std::size_t most = 5;
        Table table({{"Slowest class"},
                     {"Slowest, us", Table::Align::Right},
                     {"Mean, us", Table::Align::Right},
                     {"Requests", Table::Align::Right},
                     {"Slowest message"}});
        const Json handlers = statistics.value("handlers", Json::array());
        for (std::size_t i = 0; i < handlers.size() && i < most; ++i) {
            const Json& handler = handlers[i];
            const auto& entity = context.catalogue().ofNumber(handler.value("class", std::uint16_t{0}));
            table.add({entity.label(), numberText(handler, "slowest_us"), numberText(handler, "mean_us"),
                       numberText(handler, "requests"), handler.value("slowest_message", "")});
        }
        if (!table.isEmpty())
            context.output().table(table);
    }

    static void printTotals(Output& output, const Json& statistics)
    {
        output.line("replies " + numberText(statistics, "replies") + ", of them repeated " +
                    numberText(statistics, "retransmissions") + "; exceptions " + numberText(statistics, "exceptions"));
        output.line("sent unasked: " + numberText(statistics, "attribute_value_changes") +
                    " attribute value changes, " + numberText(statistics, "alarms") + " alarms, " +
                    numberText(statistics, "test_results") +
                    " test results; kept back: " + numberText(statistics, "suppressed_notifications"));
    }

    std::string m_Path;
};

const CommandRegistration<Statistics>
    registration("statistics", CommandGroup::Tool,
                 "Show what onu-sim has counted: messages, results, drops, slowest classes",
                 "Asks the control socket, not the ONU's OMCI channel.\n\n"
                 "Example:\n  statistics /tmp/onu.ctl");

}  // namespace

}  // namespace olt
