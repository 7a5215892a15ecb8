#include <map>

#include "app/Command.h"
#include "app/MibReading.h"
#include "app/Report.h"
#include "model/AtomicFile.h"
#include "model/Value.h"
#include "terminal/ProgressBar.h"

namespace olt {

namespace {

class MibUpload : public Command
{
public:
    void declare(Options& options) override
    {
        options.text("--save", m_File, "Write the MIB to a file as JSON, in an order that stays the same", "FILE");
        options.flag("--complete", m_Complete,
                     "Ask for the entities, too, that pointers name and the upload leaves out");
        options.flag("--all", m_ShowAll, "Show every entity and attribute, not only a summary");
    }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        const auto before = session.statistics();
        const auto start = Clock::now();
        Mib mib = upload(context, session);
        if (m_Complete)
            completeMib(session, context.catalogue(), mib);
        const std::chrono::duration<double> seconds = Clock::now() - start;
        const auto after = session.statistics();
        if (!m_File.empty())
            writeFileAtomically(m_File, mib.toJson().dump(2) + "\n");
        if (context.output().isJson()) {
            context.output().object(mib.toJson());
            return ExitCode::Success;
        }
        if (m_ShowAll)
            printAll(context.output(), mib);
        else
            printSummary(context.output(), mib);
        printTotals(context.output(), mib, before, after, seconds.count());
        return ExitCode::Success;
    }

private:
    static Mib upload(Context& context, Session& session)
    {
        ProgressBar bar(context.output().terminal(), "MIB upload");
        return uploadMib(session, context.catalogue(), [&](std::size_t done, std::size_t total) {
            if (!context.output().isJson())
                bar.show(done, total);
        });
    }

    static void printSummary(Output& output, const Mib& mib)
    {
        struct Count
        {
            std::string name;
            std::size_t entities = 0;
            std::size_t attributes = 0;
        };
        std::map<std::uint16_t, Count> counts;
        for (const auto& [key, entity] : mib.entities()) {
            auto& count = counts[key.first];
            count.name = entity.entityClass->shortName;
            ++count.entities;
            count.attributes += entity.values.size();
        }
        Table table({{"Class", Table::Align::Right},
                     {"Name"},
                     {"Entities", Table::Align::Right},
                     {"Attributes", Table::Align::Right}});
        for (const auto& [id, count] : counts)
            table.add(
                {std::to_string(id), count.name, std::to_string(count.entities), std::to_string(count.attributes)});
        output.table(table);
    }

    static void printAll(Output& output, const Mib& mib)
    {
        for (const auto& [key, entity] : mib.entities()) {
            output.line(entityLabel({entity.entityClass, entity.instance}), Style::Bold);
            Table table({{""}, {""}, {""}});
            for (const auto& [number, value] : entity.values) {
                const auto bit = static_cast<std::uint16_t>(0x8000U >> (number - 1));
                const Attribute* const attribute = entity.entityClass->attributeOfMask(bit);
                table.add({"", attribute->name, formatValue(*attribute, value)});
            }
            for (const auto& [mask, octets] : entity.undecoded)
                table.add({"", "(not in the catalogue)", formatOctets(octets)});
            output.table(table);
        }
    }

    static void printTotals(Output& output, const Mib& mib, const SessionStatistics& before,
                            const SessionStatistics& after, double seconds)
    {
        std::array<char, 32> time{};
        std::snprintf(time.data(), time.size(), "%.2f s", seconds);
        std::string text = std::to_string(mib.entities().size()) + " entities, " +
                           std::to_string(after.framesReceived - before.framesReceived) + " frames, " +
                           std::to_string(after.octetsReceived - before.octetsReceived) + " octets, " + time.data();
        if (const auto repeated = after.retransmissions - before.retransmissions; repeated > 0)
            text += ", " + std::to_string(repeated) + " retransmissions";
        output.line(text);
    }

    std::string m_File;
    bool m_ShowAll = false;
    bool m_Complete = false;
};

const CommandRegistration<MibUpload> registration(
    "mib-upload", CommandGroup::Mib, "Read the whole MIB",
    "A lost datagram is asked for again under the same transaction id. With --json the whole MIB is printed.\n\n"
    "Example:\n  mib-upload --save onu.json");

}  // namespace

}  // namespace olt
