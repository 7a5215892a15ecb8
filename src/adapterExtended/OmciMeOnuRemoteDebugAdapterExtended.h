#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEONUREMOTEDEBUGADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEONUREMOTEDEBUGADAPTEREXTENDED_H

#include "adapter/OmciMeOnuRemoteDebugAdapter.h"
#include "impl/ServedTable.h"

/// ONU remote debug (G.988 9.1.12, class 158): the reply to a command, row by row. A get of the reply table starts a
/// read; get next then takes the rows in ascending order, from 0.
class OmciMeOnuRemoteDebugAdapterExtended : public OmciMeOnuRemoteDebugAdapter, public nrvk::RowSequence
{
public:
    /// 0, or -1 for no frame. std::out_of_range for the row after the last.
    int getNext(OmciFrame* frame) const override;
    /// The OMCI result; see nrvk::replayRow. The rows are those of instance 0.
    int getNextMessage(unsigned short attributeMask, unsigned short sequenceNumber, unsigned char* buffer,
                       unsigned short* length) const;
};

#endif
