#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"
#include "model/VlanRow.h"

namespace olt {

namespace {

class Set : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.positionals("ATTRIBUTE=VALUE", m_Assignments, "Attributes and their new values",
                            Options::Need::Required);
        options.note(kValueHelp);
        options.note(kVlanRowHelp);
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        m_Values = resolveAssignments(*m_Entity.entityClass, m_Assignments);
    }

    ExitCode run(Context& context) override
    {
        return reportOutcome(context, "set", "set", m_Entity, setAttributes(context.session(), m_Entity, m_Values));
    }

private:
    EntityArguments m_Target;
    std::vector<std::string> m_Assignments;
    EntityId m_Entity;
    std::vector<AttributeValue> m_Values;
};

const CommandRegistration<Set> registration(
    "set", CommandGroup::Entity, "Write attributes",
    "Values that exceed one message go out in several, in attribute order. A table attribute takes one row.\n"
    "Text= of a large or octet string is spread over its parts (up to 375 octets).\n\n"
    "Examples:\n  set OnuG 0 AdministrativeState=locked BatteryBackup=1\n"
    "  set IpHostConfigData 0 IpAddress=10.0.0.2 Mask=255.255.255.0\n"
    "  set 171 1 filter-inner-vid=100 treat-inner-vid=200\n"
    "  set LargeString 1 Text=proxy.example.net\n");

}  // namespace

}  // namespace olt
