#ifndef NRVK_IMPL_SERVED_TABLE_H
#define NRVK_IMPL_SERVED_TABLE_H

#include <cstddef>

#include "impl/TableRow.h"

namespace nrvk {

/// The table that an entity serves row by row through get next; its adapter finds it by a dynamic_cast. OMCI thread.
class ServedTable
{
public:
    static constexpr std::size_t kRowSize = 29;
    using Row = TableRow<kRowSize>;

    virtual unsigned int servedRows() const = 0;
    /// Throws std::out_of_range for a row that is not there.
    virtual Row servedRow(unsigned short number) const = 0;

protected:
    ~ServedTable() = default;
};

/// The row that the OLT has to ask for next: kept by the adapter of a served table, set back by the entity when a get
/// of the table starts a new read. OMCI thread.
class RowSequence
{
public:
    void init() { m_NextSequenceNumber = 0; }
    unsigned short nextSequenceNumber() const { return m_NextSequenceNumber; }
    /// Wraps to 0. const, as get next is.
    void advance() const { ++m_NextSequenceNumber; }

protected:
    RowSequence() = default;
    ~RowSequence() = default;

private:
    mutable unsigned short m_NextSequenceNumber = 0;
};

/// Sets the row sequence of the class's adapter back to 0; nothing happens when the registered adapter has none.
void restartRowSequence(unsigned short classId);

}  // namespace nrvk

#endif
