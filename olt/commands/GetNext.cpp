#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "model/Hex.h"
#include "model/Value.h"
#include "session/VlanTable.h"

namespace olt {

namespace {

class GetNext : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.positional("ATTRIBUTE", m_Name, "The table, by name or number; may be left out where there is only one",
                           Options::Need::Optional);
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        m_Table = m_Name.empty() ? onlyTable() : &m_Entity.entityClass->attribute(m_Name);
        if (m_Entity.entityClass->known && !holdsRows(*m_Table))
            throw UsageError(m_Table->name + " of " + m_Entity.entityClass->label() + " isn't a table; use get");
    }

    ExitCode run(Context& context) override
    {
        const TableContents contents = m_Table->form == Form::VlanRow
                                           ? readVlanTable(context.session(), m_Entity, *m_Table)
                                           : readTable(context.session(), m_Entity, *m_Table);
        auto& output = context.output();
        if (output.isJson())
            output.object(toJson(contents));
        else if (contents.succeeded() || !contents.rows.empty())
            print(output, contents);
        return contents.succeeded() ? ExitCode::Success : reportRefusal(context, "get-next", m_Entity, contents);
    }

private:
    /// The VLAN tagging table has rows, though the catalogue has it as one value.
    static bool holdsRows(const Attribute& attribute) { return attribute.isTable() || attribute.form == Form::VlanRow; }

    const Attribute* onlyTable() const
    {
        std::vector<const Attribute*> tables;
        std::string names;
        for (const auto& attribute : m_Entity.entityClass->attributes) {
            if (!holdsRows(attribute))
                continue;
            tables.push_back(&attribute);
            names += (names.empty() ? "" : ", ") + attribute.name;
        }
        if (tables.empty())
            throw UsageError(m_Entity.entityClass->label() + " has no table");
        if (tables.size() > 1)
            throw UsageError(m_Entity.entityClass->label() + " has several tables: " + names);
        return tables.front();
    }

    Output::Json toJson(const TableContents& contents) const
    {
        auto json = resultJson("get-next", m_Entity, contents);
        json["attribute"] = m_Table->name;
        json["size"] = contents.size;
        if (m_Table->form == Form::VlanRow)
            json["newest_only"] = contents.newestOnly;
        json["rows"] = Output::Json::array();
        for (const auto& row : contents.rows)
            json["rows"].push_back("0x" + toHex(row));
        return json;
    }

    void print(Output& output, const TableContents& contents) const
    {
        output.line(entityLabel(m_Entity) + ", " + m_Table->name + ": size " + std::to_string(contents.size),
                    Style::Bold);
        Table table({{"Row", Table::Align::Right}, {"Octets"}, {"Text"}});
        for (std::size_t row = 0; row < contents.rows.size(); ++row) {
            const auto& octets = contents.rows[row];
            const std::string text = formatValue(*m_Table, octets);
            table.add({std::to_string(row), toHex(octets), text.rfind("0x", 0) == 0 ? "" : text});
        }
        if (!table.isEmpty())
            output.table(table);
        if (contents.newestOnly)
            output.note("this ONU reads back the newest row only");
    }

    EntityArguments m_Target;
    std::string m_Name;
    EntityId m_Entity;
    const Attribute* m_Table = nullptr;
};

const CommandRegistration<GetNext> registration(
    "get-next", CommandGroup::Entity, "Read a whole table",
    "Gets the size of the table first and then, by get next, its octets.\n\n"
    "Examples:\n  get-next OnuRemoteDebug 0\n  get-next FlexibleConfigurationStatusPortal 0 StatusMessage");

}  // namespace

}  // namespace olt
