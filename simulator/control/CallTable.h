#ifndef SIMULATOR_CONTROL_CALL_TABLE_H
#define SIMULATOR_CONTROL_CALL_TABLE_H

#include <map>
#include <string>

#include "control/CallArguments.h"

class Onu;

/// The library's public operations by name.
class CallTable
{
public:
    /// The calls go to the given ONU, which outlives the table.
    explicit CallTable(Onu& onu);

    /// Runs one. BadRequest when there is no such operation or an argument is wrong; nothing has run then.
    Json run(const std::string& name, const Json& arguments) const;

private:
    void addStartup(Onu& onu);
    void addStatusReports(Onu& onu);
    void addCounterFeeds(Onu& onu);
    void addStartupTable();
    void addRegistrar();
    void addEntityCalls();
    void addIntervalCounter();

    std::map<std::string, calls::Call> m_Calls;
};

#endif
