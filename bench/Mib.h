#ifndef NRVK_BENCH_MIB_H
#define NRVK_BENCH_MIB_H

#include <vector>

#include "attributeDefinition.h"

class OmciMe;

namespace bench {

/// Brings the default MIB up, once; the logger drops what is above notices.
void startUp();
/// Drops what the library reports at level 3 (no hardware, an instance that is not there yet): what is measured is a
/// line that is dropped.
void dropReports();
OmciMe& adapter(unsigned short classId);
/// An attribute of the class as the adapter defines it.
attributeDefinition definition(unsigned short classId, unsigned short mask);

}  // namespace bench

#endif
