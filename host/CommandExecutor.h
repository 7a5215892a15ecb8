#ifndef HOST_COMMAND_EXECUTOR_H
#define HOST_COMMAND_EXECUTOR_H

#include "FrameCodec.h"

class OmciFrame;
class OmciMe;

namespace omci {

struct AttributeLists;
class Notifier;

/// Runs one request on the registered adapters and leaves the reply in the frame.
class CommandExecutor
{
public:
    /// `notifier` may be null; it is told when the OLT resets or uploads the MIB and when it reads the alarms.
    explicit CommandExecutor(Notifier* notifier) : m_Notifier(notifier) {}

    /// Whatever the library throws goes on to the caller. A download section inside its window leaves no reply.
    void execute(OmciFrame& frame) const;

private:
    void run(OmciMe& me, OmciFrame& frame) const;
    /// The commands that the class serves itself, reply included. Yields the class's own result.
    int runOnClass(OmciMe& me, OmciFrame& frame) const;
    int runMibReset(OmciMe& me, OmciFrame& frame) const;
    int runMibUpload(OmciMe& me, OmciFrame& frame) const;
    int runGetAllAlarms(OmciMe& me, OmciFrame& frame) const;

    void create(OmciMe& me, OmciFrame& frame) const;
    void remove(OmciMe& me, OmciFrame& frame) const;
    void set(OmciMe& me, OmciFrame& frame) const;
    void setTable(OmciMe& me, OmciFrame& frame) const;
    void test(OmciMe& me, OmciFrame& frame) const;

    Notifier* m_Notifier;
};

}  // namespace omci

#endif
