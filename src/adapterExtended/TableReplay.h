#ifndef NRVK_ADAPTER_EXTENDED_TABLE_REPLAY_H
#define NRVK_ADAPTER_EXTENDED_TABLE_REPLAY_H

#include "impl/ServedTable.h"

class OmciFrame;
class OmciMe;

namespace nrvk {

/// What makes the replay of one class's table differ from another's.
struct ReplayedTable
{
    unsigned short attributeMask;
    /// The table of an instance; null when there is none.
    const ServedTable* (*find)(unsigned short instance);
    /// Whether a line shows the bytes of each reply.
    bool logsBuffer;
};

/// OMCI get next (G.988 A.2.24): replies with the row that the frame asks for, or with the reason why not, and steps
/// the sequence in both cases. 0, or -1 for no frame. An exception out of the table leaves the sequence as it was.
int replayTable(const OmciMe& adapter, const RowSequence& sequence, const ReplayedTable& table, OmciFrame* frame);

/// One row into `buffer`, with its size in `*length`. The result is the OMCI result: 0, 1 no entity, 2 not a table of
/// get next, 3 another row is expected or there is no such row. Deliberate: a sequence number equal to the number of
/// rows ends in std::out_of_range. Another get-next attribute than the table's leaves buffer and length alone.
int replayRow(const OmciMe& adapter, const RowSequence& sequence, const ReplayedTable& table, unsigned short instance,
              unsigned short attributeMask, unsigned short sequenceNumber, unsigned char* buffer,
              unsigned short* length);

}  // namespace nrvk

#endif
