#include "app/Arguments.h"
#include "app/Command.h"
#include "app/Report.h"

namespace olt {

namespace {

class Delete : public Command
{
public:
    void declare(Options& options) override { m_Target.declare(options); }

    void prepare(Context& context) override { m_Entity = m_Target.resolve(context.catalogue()); }

    ExitCode run(Context& context) override
    {
        return reportOutcome(context, "delete", "deleted", m_Entity,
                             command(context.session(), m_Entity, omci::MessageType::Delete));
    }

private:
    EntityArguments m_Target;
    EntityId m_Entity;
};

const CommandRegistration<Delete> registration("delete", CommandGroup::Entity, "Delete an entity",
                                               "Example:\n  delete GemPortNetworkCtp 1");

}  // namespace

}  // namespace olt
