#include "app/Command.h"
#include "app/Report.h"

namespace olt {

namespace {

class MibReset : public Command
{
public:
    void declare(Options&) override {}

    ExitCode run(Context& context) override
    {
        const EntityId onuData{&context.catalogue().ofNumber(2), 0};
        return reportOutcome(context, "mib-reset", "MIB reset of", onuData,
                             command(context.session(), onuData, omci::MessageType::MibReset));
    }
};

const CommandRegistration<MibReset> registration("mib-reset", CommandGroup::Mib,
                                                 "Put the ONU's MIB back to its start-up state",
                                                 "What an OLT has created goes.\n\nExample:\n  mib-reset");

}  // namespace

}  // namespace olt
