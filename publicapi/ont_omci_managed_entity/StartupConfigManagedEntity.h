#ifndef ONT_OMCI_MANAGED_ENTITY_STARTUP_CONFIG_MANAGED_ENTITY_H
#define ONT_OMCI_MANAGED_ENTITY_STARTUP_CONFIG_MANAGED_ENTITY_H

#include <list>
#include <map>
#include <vector>

/// One supported class in the configured picture of the MIB.
struct StartupConfigManagedEntity
{
    unsigned short classId = 0;  ///< G.988 class number
    /// Instance ids, in the order made.
    std::list<unsigned short> instances;
    /// Key (instance << 16) | attribute mask; value the attribute's bytes in network order.
    std::map<unsigned int, std::vector<unsigned char>> attributeValues;
};

#endif
