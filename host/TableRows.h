#ifndef HOST_TABLE_ROWS_H
#define HOST_TABLE_ROWS_H

#include <cstddef>

namespace omci {

/// Yields the octets of one row of a table attribute, as many as the attribute's size, rows numbered from 0; null when
/// there is no such row. Good until the table changes.
using TableRowSource = const unsigned char* (*)(unsigned short classId, unsigned short instance,
                                                unsigned short attributeMask, std::size_t row);

/// Where get next finds the rows of tables that no class serves by itself. Null, as at the start: nowhere, and get next
/// answers a processing error. For the OMCI thread, like the get next that asks.
void setTableRowSource(TableRowSource source);

}  // namespace omci

#endif
