#include "adapterExtended/OmciMeOnuRemoteDebugAdapterExtended.h"

#include "OmciMeOnuRemoteDebugIf.h"
#include "adapterExtended/TableReplay.h"

namespace {

constexpr unsigned short kOnlyInstance = 0;

const nrvk::ServedTable* findReplyTable(unsigned short /*instance*/)
{
    return dynamic_cast<const nrvk::ServedTable*>(OmciMeOnuRemoteDebugIf::getManagedEntityInstance(kOnlyInstance));
}

constexpr nrvk::ReplayedTable kReplyTable = {0x2000, &findReplyTable, true};

}  // namespace

int OmciMeOnuRemoteDebugAdapterExtended::getNext(OmciFrame* frame) const
{
    return nrvk::replayTable(*this, *this, kReplyTable, frame);
}

int OmciMeOnuRemoteDebugAdapterExtended::getNextMessage(unsigned short attributeMask, unsigned short sequenceNumber,
                                                        unsigned char* buffer, unsigned short* length) const
{
    return nrvk::replayRow(*this, *this, kReplyTable, kOnlyInstance, attributeMask, sequenceNumber, buffer, length);
}
