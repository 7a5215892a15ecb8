#ifndef SIMULATOR_ONU_INSTANCES_H
#define SIMULATOR_ONU_INSTANCES_H

/// Instances of the ONU's own making, of any class. The registrar makes those of the start-up MIB only, and an adapter
/// refuses the classes that the OLT does not create and deletes the OLT's instances only.
/// @{
/// The object alone. False when the library refuses; an instance that exists stays, with true.
bool createInstanceOfOnu(unsigned short classId, unsigned short instance);
/// False when there is no such instance; one of the OLT's stays, with true.
bool deleteInstanceOfOnu(unsigned short classId, unsigned short instance);
/// @}

#endif
