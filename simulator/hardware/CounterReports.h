#ifndef SIMULATOR_HARDWARE_COUNTER_REPORTS_H
#define SIMULATOR_HARDWARE_COUNTER_REPORTS_H

#include "CounterRecords.h"
#include "Json.h"

/// Counters that a class is fed with, as the control socket gives them: one record, or an array of two for the Ethernet
/// frame classes (334, 425, 24, 321, 322). Yields them unchanged; BadRequest when class or record does not fit.
Json checkedCounters(unsigned short classId, const Json& counters, const std::string& what);

/// The class under which the counters of a family are kept: the PLOAM parts (65408 to 65410) and the tuning parts
/// (65411 to 65413) come in one record each, the two GEM port classes (341, 267) from one port, the three classes of
/// an Ethernet port (24, 321, 322) from one UNI.
unsigned short counterFamily(unsigned short classId);
/// The two instances of an extended Ethernet PM pair (334, 425) differ in bit 7 and have one pair of records.
unsigned short counterInstance(unsigned short classId, unsigned short instance);

struct FrameCounters
{
    EthernetFrameExtendedCounters first{};
    EthernetFrameExtendedCounters second{};
};
FrameCounters frameCounters(const Json& counters, const std::string& what);

#endif
