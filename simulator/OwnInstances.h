#ifndef SIMULATOR_OWN_INSTANCES_H
#define SIMULATOR_OWN_INSTANCES_H

class Onu;

/// Instances that the ONU makes of its own accord while it runs: the object, and its entry in the registrar's picture,
/// so that reports reach it. A class without a start-up row is entered with all attributes at their defaults.
/// @{
/// 0, or -1 when the library refuses. BadRequest for a class that is not registered or an instance that exists.
int createOwnInstance(Onu& onu, unsigned short classId, unsigned short instance);
/// 0, or -1 when the library refuses. BadRequest for an instance that does not exist. An instance of the OLT stays.
int deleteOwnInstance(unsigned short classId, unsigned short instance);
/// @}

#endif
