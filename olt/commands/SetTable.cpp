#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "model/Value.h"
#include "model/VlanRow.h"

namespace olt {

namespace {

class SetTable : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.positional("ATTRIBUTE", m_Name, "The table, by name or number", Options::Need::Required);
        options.positionals("ROW", m_RowTexts,
                            "Whole rows, as 0x and hexadecimal digits, as text, or as VLAN fields in quotes",
                            Options::Need::Required);
        options.note(kVlanRowHelp);
    }

    void prepare(Context& context) override
    {
        if (!context.options().extended)
            throw UsageError("set-table needs --extended; baseline sets one row at a time with set");
        m_Entity = m_Target.resolve(context.catalogue());
        m_Table = &m_Entity.entityClass->attribute(m_Name);
        if (!m_Table->isTable() && m_Table->form != Form::VlanRow)
            throw UsageError(m_Table->name + " of " + m_Entity.entityClass->label() + " isn't a table; use set");
        for (const auto& text : m_RowTexts)
            m_Rows.push_back(parseValue(*m_Table, text));
    }

    ExitCode run(Context& context) override
    {
        return reportOutcome(context, "set-table", "set " + std::to_string(m_Rows.size()) + " rows of", m_Entity,
                             setTableRows(context.session(), m_Entity, *m_Table, m_Rows));
    }

private:
    EntityArguments m_Target;
    std::string m_Name;
    std::vector<std::string> m_RowTexts;
    EntityId m_Entity;
    const Attribute* m_Table = nullptr;
    std::vector<Bytes> m_Rows;
};

const CommandRegistration<SetTable>
    registration("set-table", CommandGroup::Entity, "Write rows of a table (extended messages only)",
                 "Example:\n  --extended set-table 171 1 ReceivedFrameVlanTaggingOperationTable "
                 "0xe8000000e8000000c00f0000000f0000 0xf8000000e8000000c00f0000000f0000");

}  // namespace

}  // namespace olt
