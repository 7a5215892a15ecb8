#include "app/ImageArgument.h"
#include "app/Report.h"

namespace olt {

namespace {

class Commit : public Command
{
public:
    void declare(Options& options) override { m_Image.declare(options); }

    void prepare(Context& context) override { m_Entity = m_Image.resolve(context.catalogue()); }

    ExitCode run(Context& context) override
    {
        return reportOutcome(context, "commit", "committed", m_Entity,
                             command(context.session(), m_Entity, omci::MessageType::CommitImage));
    }

private:
    ImageArgument m_Image;
    EntityId m_Entity;
};

const CommandRegistration<Commit> registration("commit", CommandGroup::Action,
                                               "Make a software image the one that every start uses",
                                               "Example:\n  commit 1");

}  // namespace

}  // namespace olt
