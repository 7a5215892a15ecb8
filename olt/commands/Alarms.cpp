#include "model/Alarms.h"
#include "app/Command.h"
#include "app/Report.h"
#include "decode/Description.h"

namespace olt {

namespace {

class Alarms : public Command
{
public:
    void declare(Options& options) override
    {
        options.flag("--without-arc", m_WithoutArc, "Leave out entities under alarm reporting control");
    }

    ExitCode run(Context& context) override
    {
        const auto mode = m_WithoutArc ? AlarmRetrieval::WithoutArc : AlarmRetrieval::All;
        const auto alarmed = readAlarms(context.session(), context.catalogue().ofNumber(2), mode);
        auto& output = context.output();
        Output::Json entities = Output::Json::array();
        Table table({{"Class", Table::Align::Right}, {"Name"}, {"Instance"}, {"Alarms"}});
        for (const auto& entry : alarmed) {
            const auto& entity = context.catalogue().ofNumber(entry.entityClass);
            const auto raised = raisedAlarms(entry.bitmap);
            entities.push_back({{"class", entity.id},
                                {"name", entity.shortName},
                                {"instance", entry.entityInstance},
                                {"alarms", alarmsToJson(entity.id, raised)}});
            std::string text;
            for (const unsigned number : raised)
                text += (text.empty() ? "" : ", ") + alarmText(entity.id, number);
            table.add({std::to_string(entity.id),
                       entity.shortName,
                       std::to_string(entry.entityInstance),
                       {text, Style::Red}});
        }
        if (output.isJson())
            output.object({{"command", "alarms"}, {"entities", std::move(entities)}});
        else if (table.isEmpty())
            output.line("no active alarms");
        else
            output.table(table);
        return ExitCode::Success;
    }

private:
    bool m_WithoutArc = false;
};

const CommandRegistration<Alarms> registration("alarms", CommandGroup::Action, "List the active alarms",
                                               "Examples:\n  alarms\n  alarms --without-arc");

}  // namespace

}  // namespace olt
