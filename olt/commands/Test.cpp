#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "decode/Description.h"

namespace olt {

namespace {

constexpr unsigned kSelfTest = 7;

class Test : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.number("--selector", m_Selector, "Which test; 7 is the self-test", {0, 255});
        options.number("--wait", m_Wait, "Seconds to wait for the test result message; 0: don't", {0.0, 86400.0});
    }

    void prepare(Context& context) override { m_Entity = m_Target.resolve(context.catalogue()); }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        const Outcome outcome =
            command(session, m_Entity, omci::MessageType::Test, {static_cast<std::uint8_t>(m_Selector)});
        if (!outcome.succeeded() || m_Wait <= 0)
            return reportOutcome(context, "test", "test begun on", m_Entity, outcome);
        const auto result = awaitResult(session);
        if (!result)
            throw Unreachable("the test of " + entityLabel(m_Entity) +
                              " was accepted, but no test result came within " + Output::Json(m_Wait).dump() + " s");
        print(context.output(), outcome, describe(context.catalogue(), result->view()));
        return ExitCode::Success;
    }

private:
    /// The result of this very test: the one that repeats the request's transaction id.
    std::optional<Frame> awaitResult(Session& session) const
    {
        const auto deadline =
            Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(m_Wait));
        while (auto frame = session.notification(deadline)) {
            const auto& header = frame->header();
            if (header.type == omci::MessageType::TestResult && header.transactionId == session.lastTransaction())
                return frame;
        }
        return std::nullopt;
    }

    void print(Output& output, const Outcome& outcome, const Description& description) const
    {
        if (output.isJson()) {
            auto json = resultJson("test", m_Entity, outcome);
            json["test_result"] = description.details;
            output.object(json);
            return;
        }
        output.line("test result of " + entityLabel(m_Entity), Style::Bold);
        Table table({{""}, {""}});
        for (const auto& [key, value] : description.details.items()) {
            const DetailWords words = detailWords(key, value);
            table.add({words.label, words.value});
        }
        output.table(table);
    }

    EntityArguments m_Target;
    unsigned m_Selector = kSelfTest;
    double m_Wait = 10;
    EntityId m_Entity;
};

const CommandRegistration<Test> registration("test", CommandGroup::Action, "Run an entity's test and show its result",
                                             "Example:\n  test AniG 0x0401");

}  // namespace

}  // namespace olt
