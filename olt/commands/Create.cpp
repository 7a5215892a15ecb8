#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"

namespace olt {

namespace {

class Create : public Command
{
public:
    void declare(Options& options) override
    {
        m_Target.declare(options);
        options.positionals("ATTRIBUTE=VALUE", m_Assignments, "Set-by-create attributes and their values",
                            Options::Need::Optional);
        options.note(kValueHelp);
    }

    void prepare(Context& context) override
    {
        m_Entity = m_Target.resolve(context.catalogue());
        m_Values = resolveAssignments(*m_Entity.entityClass, m_Assignments);
        for (const auto& value : m_Values) {
            if (!value.attribute->setByCreate)
                throw UsageError(value.attribute->name + " of " + m_Entity.entityClass->label() +
                                 " isn't set by create; use set afterwards");
        }
    }

    ExitCode run(Context& context) override
    {
        return reportOutcome(context, "create", "created", m_Entity,
                             createEntity(context.session(), m_Entity, m_Values));
    }

private:
    EntityArguments m_Target;
    std::vector<std::string> m_Assignments;
    EntityId m_Entity;
    std::vector<AttributeValue> m_Values;
};

const CommandRegistration<Create> registration(
    "create", CommandGroup::Entity, "Create an entity",
    "A create message carries all set-by-create attributes. Those that aren't given are sent with the class's\n"
    "default, which is 0 for most (`classes CLASS` shows them).\n\n"
    "Example:\n  create GemPortNetworkCtp 1 PortId=1024 TContPointer=0x0100 Direction=3\n");

}  // namespace

}  // namespace olt
