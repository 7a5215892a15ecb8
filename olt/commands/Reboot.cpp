#include "app/Command.h"
#include "app/Report.h"

namespace olt {

namespace {

class Reboot : public Command
{
public:
    void declare(Options& options) override
    {
        options.choice("--unless", m_Unless, "Not during voice calls (calls) or emergency calls (emergency)",
                       {"calls", "emergency"});
    }

    ExitCode run(Context& context) override
    {
        const std::uint8_t flags = m_Unless == "calls" ? 1 : m_Unless == "emergency" ? 2 : 0;
        const EntityId onuG{&context.catalogue().ofNumber(256), 0};
        return reportOutcome(context, "reboot", "reboot accepted by", onuG,
                             command(context.session(), onuG, omci::MessageType::Reboot, {flags}));
    }

private:
    std::string m_Unless;
};

const CommandRegistration<Reboot> registration("reboot", CommandGroup::Action, "Restart the ONU",
                                               "Examples:\n  reboot\n  reboot --unless calls");

}  // namespace

}  // namespace olt
