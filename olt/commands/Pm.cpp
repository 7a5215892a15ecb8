#include <chrono>
#include <iostream>
#include <optional>

#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "app/TimeOfDay.h"
#include "decode/Description.h"
#include "model/AtomicFile.h"
#include "pm/PmChart.h"
#include "pm/PmSeries.h"

namespace olt {

namespace {

constexpr std::size_t kKeptSamples = 500;
constexpr std::size_t kSparklineWidth = 24;

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

class Pm : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.flag("--current", m_IsCurrent, "The interval that is running, instead of the last one");
        options.number("--watch", m_Watch, "Read again after so many seconds, with deltas and rates", {0.0, 86400.0});
        options.number("--count", m_Count, "End after so many readings; 0: never", {0, 1'000'000'000});
        options.optionalText("--plot", m_Plot, "Draw the rates over time: in the terminal, or into an SVG file",
                             "FILE.svg");
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        m_Counters = pmCounters(*m_Entity.entityClass);
        if (m_Counters.empty())
            throw UsageError(m_Entity.entityClass->label() +
                             " is no performance monitoring class: it has no interval end time with counters behind; "
                             "`get` reads its attributes");
        if (m_Plot && m_Watch <= 0)
            throw UsageError("--plot draws counters over time and needs --watch SECONDS");
        if (m_Plot && !m_Plot->empty() && !endsWith(*m_Plot, ".svg"))
            throw UsageError("--plot \"" + *m_Plot +
                             "\": a drawing is a file named *.svg; without a file, --plot goes to the end of the line");
    }

    ExitCode run(Context& context) override
    {
        const auto interval = m_IsCurrent ? PmInterval::Running : PmInterval::Last;
        PmSeries series(m_Counters, interval, kKeptSamples);
        try {
            return watch(context, series);
        } catch (const Interrupted&) {
            // Ctrl-C is how a watch is meant to end.
            if (m_Watch <= 0)
                throw;
            return ExitCode::Success;
        }
    }

private:
    ExitCode watch(Context& context, PmSeries& series)
    {
        const auto begin = Clock::now();
        auto next = begin;
        for (unsigned number = 1;; ++number) {
            const GetOutcome outcome = read(context);
            const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
            if (!outcome.succeeded())
                return refuse(context, outcome);
            show(context, series, series.add(outcome.values, seconds, timeOfDay()), number);
            if (m_Watch <= 0 || number == m_Count)
                return ExitCode::Success;
            next += std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(m_Watch));
            waitUntil(context, next);
        }
    }

    [[nodiscard]] GetOutcome read(Context& context) const
    {
        std::vector<const Attribute*> wanted;
        // First: some ONUs take fresh counters from the hardware only when this is asked for.
        wanted.push_back(m_Entity.entityClass->attributeOfMask(0x8000));
        wanted.insert(wanted.end(), m_Counters.begin(), m_Counters.end());
        return getAttributes(context.session(), m_Entity, wanted,
                             m_IsCurrent ? omci::MessageType::GetCurrentData : omci::MessageType::Get);
    }

    [[nodiscard]] ExitCode refuse(Context& context, const Outcome& outcome) const
    {
        if (context.output().isJson())
            context.output().object(resultJson("pm", m_Entity, outcome));
        return reportRefusal(context, "pm", m_Entity, outcome);
    }

    /// Alarms that come meanwhile are worth a line: thresholds are crossed while one watches.
    void waitUntil(Context& context, Clock::time_point until)
    {
        while (const auto frame = context.session().notification(until)) {
            const Description description = describe(context.catalogue(), frame->view());
            if (description.header.type == omci::MessageType::Alarm)
                context.output().note(timeOfDay() + "  " + toText(description));
        }
    }

    void show(Context& context, const PmSeries& series, const PmSample& sample, unsigned number)
    {
        auto& output = context.output();
        if (m_Plot && !m_Plot->empty())
            writeFileAtomically(*m_Plot, svgChart(series, entityLabel(m_Entity)));
        if (output.isJson()) {
            output.object(json(sample, number));
            return;
        }
        const Table table = tableOf(series, sample);
        rewind(output);
        output.line(entityLabel(m_Entity), Style::Bold);
        output.line(headline(sample));
        output.table(table);
    }

    /// On a terminal a watch stays where it is.
    void rewind(Output& output) const
    {
        if (m_Watch > 0 && output.terminal().width() != 0)
            std::cout << "\033[H\033[2J";
    }

    [[nodiscard]] std::string headline(const PmSample& sample) const
    {
        std::string text = m_IsCurrent ? "running interval" : "last interval";
        if (sample.intervalEndTime)
            text += ", interval end time " + std::to_string(*sample.intervalEndTime);
        if (m_Watch > 0)
            text += ", " + sample.time;
        return sample.restarted ? text + ", counters began anew" : text;
    }

    [[nodiscard]] Table tableOf(const PmSeries& series, const PmSample& sample) const
    {
        using Align = Table::Align;
        std::vector<Table::Column> columns{{"#", Align::Right}, {"Counter"}, {"Value", Align::Right}};
        if (m_Watch > 0) {
            columns.push_back({"Delta", Align::Right});
            columns.push_back({"Rate/s", Align::Right});
        }
        const bool hasLines = m_Plot && m_Plot->empty();
        if (hasLines)
            columns.push_back({"Over time"});
        Table table(columns);
        for (const PmCounter& counter : sample.counters) {
            std::vector<Table::Cell> row{std::to_string(counter.attribute->number), counter.attribute->name,
                                         std::to_string(counter.value)};
            if (m_Watch > 0) {
                row.emplace_back(counter.delta ? std::to_string(*counter.delta) : "");
                row.emplace_back(counter.rate ? formatRate(*counter.rate) : "");
            }
            if (hasLines)
                row.emplace_back(sparkline(series, *counter.attribute, kSparklineWidth));
            table.add(row);
        }
        return table;
    }

    [[nodiscard]] Output::Json json(const PmSample& sample, unsigned number) const
    {
        Output::Json json = resultJson("pm", m_Entity, Outcome());
        json["interval"] = m_IsCurrent ? "running" : "last";
        json["sample"] = number;
        json["time"] = sample.time;
        if (sample.intervalEndTime)
            json["interval_end_time"] = *sample.intervalEndTime;
        json["restarted"] = sample.restarted;
        for (const char* const member : {"counters", "deltas", "rates"})
            json[member] = Output::Json::object();
        for (const PmCounter& counter : sample.counters) {
            const std::string& name = counter.attribute->name;
            json["counters"][name] = counter.value;
            if (counter.delta)
                json["deltas"][name] = *counter.delta;
            if (counter.rate)
                json["rates"][name] = *counter.rate;
        }
        return json;
    }

    EntityArguments m_Target;
    bool m_IsCurrent = false;
    double m_Watch = 0;
    unsigned m_Count = 0;
    std::optional<std::string> m_Plot;
    EntityId m_Entity;
    std::vector<const Attribute*> m_Counters;
};

const CommandRegistration<Pm> registration(
    "pm", CommandGroup::Entity, "Counters of a performance monitoring entity",
    "Without --current the counters are those of the last interval, and of entities that accumulate continuously "
    "those of now. Alarms that come during a watch are shown too. Ctrl-C ends a watch with exit code 0.\n\n"
    "Examples:\n  pm EthernetFrameExtendedPM 257 --current --watch 5\n  pm FecPMHistoryData 1 --watch 10 --plot "
    "fec.svg");

}  // namespace

}  // namespace olt
