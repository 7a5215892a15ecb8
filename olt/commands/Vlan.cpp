#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "model/Hex.h"
#include "model/Value.h"
#include "model/VlanRow.h"
#include "session/VlanTable.h"

namespace olt {

namespace {

Output::Json rowToJson(const Bytes& octets)
{
    const VlanRow row = VlanRow::fromOctets(octets);
    Output::Json json{{"octets", "0x" + toHex(octets)}, {"text", vlanRowText(row)}};
    for (std::size_t i = 0; i < kVlanFields && !row.unset; ++i)
        json["fields"][vlanFieldName(static_cast<VlanField>(i))] = row.values[i];
    return json;
}

class Vlan : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("INSTANCE", m_Instance, "Instance of class 171, 0 to 65535, decimal or 0x",
                           Options::Need::Required);
    }

    void prepare(Context& context) override
    {
        m_Entity = {&context.catalogue().lookUp("171"), parseInstance(m_Instance)};
        m_Table = &m_Entity.entityClass->attribute("ReceivedFrameVlanTaggingOperationTable");
    }

    ExitCode run(Context& context) override
    {
        const TableContents contents = readVlanTable(context.session(), m_Entity, *m_Table);
        auto& output = context.output();
        if (output.isJson())
            output.object(toJson(contents));
        else if (contents.succeeded())
            print(output, contents);
        return contents.succeeded() ? ExitCode::Success : reportRefusal(context, "vlan", m_Entity, contents);
    }

private:
    Output::Json toJson(const TableContents& contents) const
    {
        auto json = resultJson("vlan", m_Entity, contents);
        json["newest_only"] = contents.newestOnly;
        json["rows"] = Output::Json::array();
        for (const auto& row : contents.rows) {
            if (row.size() == kVlanRowSize)
                json["rows"].push_back(rowToJson(row));
        }
        return json;
    }

    void print(Output& output, const TableContents& contents) const
    {
        output.line(entityLabel(m_Entity), Style::Bold);
        if (contents.rows.empty())
            output.line("no rules");
        for (const auto& row : contents.rows) {
            if (row.size() == kVlanRowSize)
                output.line(vlanRowText(VlanRow::fromOctets(row)));
        }
        if (contents.newestOnly)
            output.note("this ONU reads back the newest row only");
    }

    std::string m_Instance;
    EntityId m_Entity;
    const Attribute* m_Table = nullptr;
};

const CommandRegistration<Vlan> registration(
    "vlan", CommandGroup::Entity, "Show the rules of an extended VLAN tagging entity in words",
    "Some ONUs give the whole table, others only the row that was set last. set and set-table take rows as fields.\n\n"
    "Examples:\n  vlan 257\n  set 171 257 filter-inner-vid=100 treat-inner-vid=200");

}  // namespace

}  // namespace olt
