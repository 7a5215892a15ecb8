#ifndef SIMULATOR_DESCRIBE_H
#define SIMULATOR_DESCRIBE_H

#include "Json.h"

/// All managed-entity classes of the library, ascending, as their live adapters and a fresh instance of each show them.
/// Nothing else of the library may have been started.
Json describeClasses();

#endif
