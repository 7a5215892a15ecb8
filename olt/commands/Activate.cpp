#include "app/ImageArgument.h"
#include "app/Report.h"

namespace olt {

namespace {

class Activate : public Command
{
public:
    void declare(Options& options) override
    {
        m_Image.declare(options);
        options.choice("--unless", m_Unless, "Not during voice calls (calls) or emergency calls (emergency)",
                       {"calls", "emergency"});
    }

    void prepare(Context& context) override { m_Entity = m_Image.resolve(context.catalogue()); }

    ExitCode run(Context& context) override
    {
        const std::uint8_t flags = m_Unless == "calls" ? 1 : m_Unless == "emergency" ? 2 : 0;
        return reportOutcome(context, "activate", "activated", m_Entity,
                             command(context.session(), m_Entity, omci::MessageType::ActivateImage, {flags}));
    }

private:
    ImageArgument m_Image;
    std::string m_Unless;
    EntityId m_Entity;
};

const CommandRegistration<Activate> registration("activate", CommandGroup::Action,
                                                 "Select a software image for the next start of the ONU",
                                                 "The ONU starts from it after a reboot.\n\nExample:\n  activate 1");

}  // namespace

}  // namespace olt
