#include "implExtended/OmciMeOnuRemoteDebugImplExtended.h"

#include <algorithm>

#include "impl/BoundedText.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

constexpr std::size_t kCommandSize = 25;

}  // namespace

int OmciMeOnuRemoteDebugImplExtended::setCommand(const unsigned char* command)
{
    NRVK_LOG_RENDERED(6, "Command(%s)", nrvk::BoundedText<kCommandSize>(command).get());
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->sendRemoteDebugCommand(command);
    }
    return 0;
}

unsigned int OmciMeOnuRemoteDebugImplExtended::getReplyTable(EnumOmciAction action) const
{
    NRVK_LOG(6, "Action(%d)", action);
    if (action != OMCI_ACTION_GET) {
        return 0;
    }
    // A Get is what starts a read, so here a getter changes the entity.
    return const_cast<OmciMeOnuRemoteDebugImplExtended*>(this)->fetchReply();
}

unsigned int OmciMeOnuRemoteDebugImplExtended::fetchReply()
{
    eraseReplyTable();
    std::vector<unsigned char> reply;
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        reply = hardware->getRemoteDebugReply();
    }
    nrvk::restartRowSequence(m_Description.classId);
    for (std::size_t from = 0; from < reply.size(); from += kRowSize) {
        Row row{};
        std::copy_n(&reply[from], std::min(kRowSize, reply.size() - from), row.begin());
        setReplyTable(row.data());
    }
    return static_cast<unsigned int>(reply.size());
}
