#ifndef ONT_OMCI_MANAGED_ENTITY_TABLE_ROWS_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_TABLE_ROWS_ACCESS_H

#include <cstddef>

#include "Export.h"

namespace nrvk {

/// One row of a table attribute as it is stored, for the host's get next. Octets as they came, as many as the
/// attribute's size; rows are numbered from 0 in the order in which they were set. Null when there is no such class,
/// instance, table or row. Not owned, and good until the next call that changes the MIB. OMCI thread.
NRVK_EXPORT const unsigned char* getTableRow(unsigned short classId, unsigned short instance,
                                             unsigned short attributeMask, std::size_t row);

}  // namespace nrvk

#endif
