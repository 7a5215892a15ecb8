#ifndef SIMULATOR_CONTROL_STATISTICS_REPORT_H
#define SIMULATOR_CONTROL_STATISTICS_REPORT_H

#include "Json.h"
#include "host/Notifier.h"
#include "host/Statistics.h"

/// Everything that was counted since the start, by names that people read.
Json statisticsReport(const omci::Statistics& counted, const omci::Notifier::Counters& sent);

#endif
