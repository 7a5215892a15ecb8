#include <algorithm>

#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "decode/Description.h"
#include "model/Hex.h"
#include "model/PartedText.h"
#include "model/Value.h"

namespace olt {

namespace {

/// Get and get current data differ in the message type alone.
class GetCommand : public Command
{
public:
    GetCommand(const char* name, omci::MessageType type) : m_Name(name), m_Type(type) {}

    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.positionals("ATTRIBUTE", m_Names, "Attributes by name or number; all that can be read when left out",
                            Options::Need::Optional);
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        const EntityClass& entity = *m_Entity.entityClass;
        const auto isWhole = [&](const std::string& name) { return isWholeText(entity, name); };
        const auto others = std::stable_partition(m_Names.begin(), m_Names.end(), isWhole);
        const bool asksWholeText = others != m_Names.begin();
        m_Shown = resolveAttributes(entity, {others, m_Names.end()});
        m_ShowsText = asksWholeText || (m_Names.empty() && holdsText(entity));
        m_Attributes = asksWholeText || m_Names.empty() ? entity.readableAttributes() : m_Shown;
        if (m_Names.empty())
            m_Shown = m_Attributes;
    }

    ExitCode run(Context& context) override
    {
        const GetOutcome outcome = getAttributes(context.session(), m_Entity, m_Attributes, m_Type);
        auto& output = context.output();
        if (output.isJson()) {
            auto json = resultJson(m_Name, m_Entity, outcome);
            json["attributes"] = valuesToJson(*m_Entity.entityClass, shown(outcome.values));
            if (const auto text = wholeText(outcome))
                json["text"] = plainText(*text);
            output.object(json);
        } else {
            print(output, outcome);
        }
        if (!outcome.succeeded())
            return reportRefusal(context, m_Name, m_Entity, outcome);
        return checkComplete(outcome);
    }

private:
    void print(Output& output, const GetOutcome& outcome) const
    {
        Table table({{"#", Table::Align::Right}, {"Attribute"}, {"Value"}});
        const auto text = wholeText(outcome);
        for (const auto& value : shown(outcome.values).values) {
            // Unasked, the parts would only repeat the text.
            if (text && m_Names.empty() && value.attribute->kind == Kind::Octets)
                continue;
            table.add({std::to_string(value.attribute->number), value.attribute->name,
                       formatValue(*value.attribute, value.value)});
        }
        if (text)
            table.add({"", std::string(kWholeText), "\"" + plainText(*text) + "\""});
        if (outcome.values.undecoded != 0)
            table.add({"", "(not in the catalogue)", "0x" + toHex(outcome.values.rest)});
        if (table.isEmpty())
            return;
        output.line(entityLabel(m_Entity), Style::Bold);
        output.table(table);
    }

    AttributeValues shown(const AttributeValues& all) const
    {
        AttributeValues some = all;
        const auto isHidden = [this](const AttributeValue& value) {
            return std::find(m_Shown.begin(), m_Shown.end(), value.attribute) == m_Shown.end();
        };
        some.values.erase(std::remove_if(some.values.begin(), some.values.end(), isHidden), some.values.end());
        return some;
    }

    std::optional<Bytes> wholeText(const GetOutcome& outcome) const
    {
        return m_ShowsText ? joinText(*m_Entity.entityClass, outcome.values.values) : std::nullopt;
    }

    /// Success without a value is an answer that nobody should build on.
    ExitCode checkComplete(const GetOutcome& outcome) const
    {
        const auto lost = static_cast<std::uint16_t>((outcome.absent | outcome.values.missing) &
                                                     (m_Entity.entityClass->known ? 0xFFFF : 0));
        if (lost == 0)
            return ExitCode::Success;
        std::string text = "the answer of " + entityLabel(m_Entity) + " is success but lacks";
        for (const auto& name : m_Entity.entityClass->attributeNames(lost))
            text += " " + name;
        throw BadAnswer(text);
    }

    const char* m_Name;
    omci::MessageType m_Type;
    EntityArguments m_Target;
    std::vector<std::string> m_Names;
    EntityId m_Entity;
    std::vector<const Attribute*> m_Attributes;
    std::vector<const Attribute*> m_Shown;  ///< Those of them that were asked for.
    bool m_ShowsText = false;
};

class Get : public GetCommand
{
public:
    Get() : GetCommand("get", omci::MessageType::Get) {}
};

class GetCurrentData : public GetCommand
{
public:
    GetCurrentData() : GetCommand("get-current-data", omci::MessageType::GetCurrentData) {}
};

const CommandRegistration<Get>
    get("get", CommandGroup::Entity, "Read attributes",
        "A table attribute answers its size; get-next reads its rows. Text of a large or octet string is\n"
        "all of its parts in one.\n\n"
        "Examples:\n  get OnuG 0\n  get 263 0x0401 OpticalSignalLevel TransmitOpticalLevel");

const CommandRegistration<GetCurrentData>
    getCurrentData("get-current-data", CommandGroup::Entity, "Read counters of the interval that is running",
                   "Example:\n  get-current-data EthernetPerformanceMonitoringHistoryData 257");

}  // namespace

}  // namespace olt
