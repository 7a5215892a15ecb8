#ifndef NRVK_MANAGED_ENTITY_CLASSES_H
#define NRVK_MANAGED_ENTITY_CLASSES_H

class OmciMe;

namespace nrvk {

/// A new adapter of the class (its AdapterExtended where there is one), which registers itself with OmciMeFactory.
/// Null for a class that is not one of the 115.
OmciMe* makeAdapter(unsigned short classId);

enum class InstanceResult
{
    Done,
    Failed,
    UnsupportedClass  ///< the ONU never makes instances of it
};

InstanceResult createInstanceOfOnu(unsigned short classId, unsigned short instance);
InstanceResult deleteInstanceOfOnu(unsigned short classId, unsigned short instance);

}  // namespace nrvk

#endif
