#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "model/Hex.h"

namespace olt {

namespace {

constexpr std::uint16_t kRemoteDebug = 158;
constexpr std::uint8_t kTextFormat = 0;

bool isText(const Bytes& octets)
{
    for (const std::uint8_t octet : octets)
        if ((octet < 0x20 && octet != '\n' && octet != '\r' && octet != '\t') || octet == 0x7F)
            return false;
    return true;
}

/// The rows in one piece, without the zeros that fill the last one up.
Bytes join(const std::vector<Bytes>& rows)
{
    Bytes joined;
    for (const Bytes& row : rows)
        joined.insert(joined.end(), row.begin(), row.end());
    while (!joined.empty() && joined.back() == 0)
        joined.pop_back();
    return joined;
}

class Debug : public Command
{
public:
    void declare(Options& options) override
    {
        options.positionals("COMMAND", m_Words, "The command, as the ONU's debug service knows it",
                            Options::Need::Required);
        options.text("--instance", m_Instance, "Instance of ONU remote debug instead of 0", "N");
    }

    void prepare(Context& context) override
    {
        m_Entity = {&context.catalogue().ofNumber(kRemoteDebug),
                    m_Instance.empty() ? std::uint16_t{0} : parseInstance(m_Instance)};
        m_Format = &m_Entity.entityClass->attribute("CommandFormat");
        m_Reply = &m_Entity.entityClass->attribute("ReplyTable");
        const Attribute& command = m_Entity.entityClass->attribute("Command");
        for (const auto& word : m_Words)
            m_Text += (m_Text.empty() ? "" : " ") + word;
        if (m_Text.size() > command.size)
            throw UsageError("\"" + m_Text + "\" has " + std::to_string(m_Text.size()) +
                             " characters; a debug command has at most " + std::to_string(command.size));
        m_Command = {&command, Bytes(m_Text.begin(), m_Text.end())};
        m_Command.value.resize(command.size);
    }

    ExitCode run(Context& context) override
    {
        auto& session = context.session();
        const GetOutcome format = getAttributes(session, m_Entity, {m_Format});
        if (!format.succeeded())
            return refuse(context, format);
        const Outcome sent = setAttributes(session, m_Entity, {m_Command});
        if (!sent.succeeded())
            return refuse(context, sent);
        const TableContents reply = readTable(session, m_Entity, *m_Reply);
        if (!reply.succeeded())
            return refuse(context, reply);
        const bool saysText = format.values.values.empty() || format.values.values.front().value[0] == kTextFormat;
        print(context.output(), reply, join(reply.rows), saysText);
        return ExitCode::Success;
    }

private:
    [[nodiscard]] ExitCode refuse(Context& context, const Outcome& outcome) const
    {
        if (context.output().isJson())
            context.output().object(resultJson("debug", m_Entity, outcome));
        return reportRefusal(context, "debug", m_Entity, outcome);
    }

    /// A reply in the free format, or one that claims to be text and is not, is shown as octets.
    void print(Output& output, const Outcome& outcome, const Bytes& reply, bool saysText) const
    {
        const bool asText = saysText && isText(reply);
        std::string text = asText ? std::string(reply.begin(), reply.end()) : "";
        if (output.isJson()) {
            auto json = resultJson("debug", m_Entity, outcome);
            json["debug_command"] = m_Text;
            json["format"] = saysText ? "ascii" : "free";
            json[asText ? "text" : "octets"] = asText ? text : "0x" + toHex(reply);
            output.object(json);
            return;
        }
        if (!asText) {
            constexpr std::size_t perLine = 16;
            for (std::size_t at = 0; at < reply.size(); at += perLine)
                output.line(toHex(reply.data() + at, std::min(perLine, reply.size() - at)));
            return;
        }
        while (!text.empty() && text.back() == '\n')
            text.pop_back();
        if (!text.empty())
            output.line(text);
    }

    std::vector<std::string> m_Words;
    std::string m_Instance;
    std::string m_Text;
    EntityId m_Entity;
    const Attribute* m_Format = nullptr;
    const Attribute* m_Reply = nullptr;
    AttributeValue m_Command;
};

const CommandRegistration<Debug>
    registration("debug", CommandGroup::Action, "Send a command to the ONU's debug service and show its reply",
                 "The command goes into ONU remote debug; the reply is read from its table, row by row.\n\n"
                 "Examples:\n  debug version\n  debug help");

}  // namespace

}  // namespace olt
