#include <map>

#include "app/Command.h"
#include "app/Report.h"
#include "app/TimeOfDay.h"
#include "decode/Description.h"

namespace olt {

namespace {

Style styleOf(const Description& description)
{
    if (description.header.type == omci::MessageType::Alarm)
        return description.entity.alarms.empty() ? Style::Green : Style::Red;
    return description.header.type == omci::MessageType::AttributeValueChange ? Style::Cyan : Style::Yellow;
}

class Watch : public Command
{
public:
    void declare(Options& options) override
    {
        options.number("--count", m_Count, "End after so many messages; 0: never", {0, 1'000'000'000});
        options.number("--for", m_Seconds, "End after so many seconds; 0: never", {0.0, 1e6});
        options.number("--poll", m_Poll, "Seconds between gets that keep this program the ONU's OLT", {0.1, 3600.0});
        options.flag("--mib-upload", m_Upload, "Upload the MIB first: before that ONUs report nothing");
    }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        if (m_Upload)
            static_cast<void>(uploadMib(session, context.catalogue(), {}));
        greet(context);
        try {
            listen(context, session);
        } catch (const Interrupted&) {
            // Ctrl-C is how a watch is meant to end.
        }
        return ExitCode::Success;
    }

private:
    static Clock::duration seconds(double count)
    {
        return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(count));
    }

    /// An ONU reports to the peer that spoke last, so that one has to speak. The MIB data sync counter is what an OLT
    /// looks at anyway.
    static void greet(Context& context)
    {
        const auto& onuData = context.catalogue().ofNumber(2);
        static_cast<void>(getAttributes(context.session(), {&onuData, 0}, {&onuData.attributes.front()}));
    }

    /// An ONU that restarts is silent for a while; a watch outlives that.
    void poll(Context& context)
    {
        try {
            greet(context);
            if (m_Silent)
                context.output().note("the ONU answers again");
            m_Silent = false;
        } catch (const Unreachable& error) {
            if (!m_Silent)
                context.output().note(std::string(error.what()) + "; still watching");
            m_Silent = true;
        }
    }

    void listen(Context& context, Session& session)
    {
        const auto end = m_Seconds > 0 ? Clock::now() + seconds(m_Seconds) : Clock::time_point::max();
        auto nextPoll = Clock::now() + seconds(m_Poll);
        for (unsigned shown = 0; (m_Count == 0 || shown < m_Count) && Clock::now() < end;) {
            if (const auto frame = session.notification(std::min(end, nextPoll))) {
                show(context.output(), describe(context.catalogue(), frame->view()));
                ++shown;
            }
            if (Clock::now() >= nextPoll) {
                poll(context);
                nextPoll = Clock::now() + seconds(m_Poll);
            }
        }
    }

    void show(Output& output, const Description& description)
    {
        const bool isAlarm = description.header.type == omci::MessageType::Alarm;
        const unsigned lost = isAlarm ? lostAlarms(description.details.value("sequence", 0U)) : 0;
        if (output.isJson()) {
            Output::Json json{{"time", timeOfDay()}};
            json.update(toJson(description));
            if (lost > 0)
                json["lost_alarms"] = lost;
            output.object(json);
            return;
        }
        if (lost > 0)
            output.line(std::to_string(lost) + " alarm messages were lost; `alarms` lists what is active",
                        Style::Yellow);
        output.line(timeOfDay() + "  " + toText(description), styleOf(description));
    }

    /// How many alarm messages are missing before this one; their sequence runs from 1 to 255 and again.
    unsigned lostAlarms(unsigned sequence)
    {
        if (sequence == 0)
            return 0;
        const unsigned before = m_LastAlarm;
        m_LastAlarm = sequence;
        return before == 0 || sequence == before ? 0 : (sequence + 255 - before - 1) % 255;
    }

    unsigned m_Count = 0;
    double m_Seconds = 0;
    double m_Poll = 1;
    bool m_Upload = false;
    unsigned m_LastAlarm = 0;
    bool m_Silent = false;
};

const CommandRegistration<Watch> registration(
    "watch", CommandGroup::Action, "Show alarms, attribute value changes and test results as they come",
    "ONUs report nothing before the MIB was uploaded or reset once. Ctrl-C ends the watch with exit code 0.\n\n"
    "Example:\n  watch --mib-upload");

}  // namespace

}  // namespace olt
