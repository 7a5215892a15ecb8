#include <set>

#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "voice/VoiceLine.h"

namespace olt {

namespace {

class Voice : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("INSTANCE", m_Instance, "The VoIP voice CTP of the line; all lines when left out",
                           Options::Need::Optional);
        options.flag("--show-secrets", m_ShowSecrets, "Show passwords");
        options.number("--search", m_Highest, "Look for VoIP voice CTPs up to this instance", {0, 65534});
    }

    void prepare(Context& context) override
    {
        if (!m_Instance.empty())
            m_Wanted = {&context.catalogue().ofNumber(kClassVoiceCtp), parseInstance(m_Instance)};
    }

    ExitCode run(Context& context) override
    {
        EntityReader reader(context.session(), context.catalogue());
        return m_Wanted.entityClass ? showOne(context, reader) : showAll(context, reader);
    }

private:
    ExitCode showOne(Context& context, EntityReader& reader) const
    {
        const ReadEntity* const voiceCtp = reader.read(kClassVoiceCtp, m_Wanted.instance);
        if (!voiceCtp) {
            Outcome outcome;
            outcome.result = omci::Result::UnknownInstance;
            return reportOutcome(context, "voice", "", m_Wanted, outcome);
        }
        show(context, reader, *voiceCtp);
        return ExitCode::Success;
    }

    /// VoIP voice CTPs are in no MIB upload: they are looked for where OLTs put them, at low numbers and at those of
    /// the POTS ports.
    ExitCode showAll(Context& context, EntityReader& reader) const
    {
        const Mib mib = uploadMib(context.session(), context.catalogue(), nullptr);
        std::set<std::uint16_t> ports;
        for (const auto& [key, entity] : mib.entities()) {
            if (key.first == kClassPotsUni)
                ports.insert(key.second);
        }
        std::set<std::uint16_t> candidates = ports;
        for (unsigned instance = 0; instance <= m_Highest; ++instance)
            candidates.insert(static_cast<std::uint16_t>(instance));
        for (const auto instance : candidates) {
            if (const ReadEntity* const voiceCtp = reader.read(kClassVoiceCtp, instance))
                ports.erase(show(context, reader, *voiceCtp));
        }
        for (const auto port : ports)
            showIdlePort(context, port);
        return ExitCode::Success;
    }

    /// Yields the line's POTS port, 65535 when it has none.
    std::uint16_t show(Context& context, EntityReader& reader, const ReadEntity& voiceCtp) const
    {
        const auto line = describeLine(reader, voiceCtp, m_ShowSecrets ? Secrets::Shown : Secrets::Hidden);
        auto& output = context.output();
        if (output.isJson()) {
            Output::Json json{{"command", "voice"}};
            json.update(line);
            output.object(json);
        } else {
            output.line(entityLabel(voiceCtp.id()), Style::Bold);
            output.table(lineTable(line));
        }
        const auto& port = line["pots_port"];
        return port.is_null() ? std::uint16_t{0xFFFF} : port["instance"].get<std::uint16_t>();
    }

    static void showIdlePort(Context& context, std::uint16_t port)
    {
        auto& output = context.output();
        if (output.isJson())
            output.object({{"command", "voice"}, {"voice_ctp", nullptr}, {"pots_port", {{"instance", port}}}});
        else
            output.line("POTS port " + std::to_string(port) + ": no VoIP voice CTP found");
    }

    std::string m_Instance;
    bool m_ShowSecrets = false;
    unsigned m_Highest = 255;
    EntityId m_Wanted;
};

const CommandRegistration<Voice> registration(
    "voice", CommandGroup::Entity, "Show a phone line with all that it points at",
    "A line is a VoIP voice CTP: its POTS port and line status, SIP user, agent, addresses, dial plan and media\n"
    "profile. Pointers to entities that the ONU doesn't have are shown as dangling. Without an instance, the POTS\n"
    "ports come from a MIB upload and the VoIP voice CTPs, which are in none, are searched for.\n\n"
    "Examples:\n  voice\n  voice 1 --show-secrets");

}  // namespace

}  // namespace olt
