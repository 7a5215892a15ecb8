#ifndef ONT_OMCI_MANAGED_ENTITY_EXPORT_H
#define ONT_OMCI_MANAGED_ENTITY_EXPORT_H

/// Marks what the shared library offers to its host; everything else stays inside.
#define NRVK_EXPORT __attribute__((visibility("default")))

#endif
