#ifndef NRVK_IMPL_MP_STATUS_TABLE_H
#define NRVK_IMPL_MP_STATUS_TABLE_H

#include <cstddef>

namespace nrvk {

/// The MP status table of a CFM stack as get next sees it; the adapter finds it by a dynamic_cast. OMCI thread.
class MpStatusTable
{
public:
    static constexpr std::size_t kRowSize = 18;

    /// The highest sequence number that a get next may ask for.
    virtual unsigned char highestSequenceNumber() const = 0;
    /// The row into `buffer` of kRowSize bytes; 0, or -1 for a sequence number out of range.
    virtual int getNextMpStatusTableEntry(unsigned short sequenceNumber, unsigned char* buffer) = 0;

protected:
    ~MpStatusTable() = default;
};

}  // namespace nrvk

#endif
