#include "control/CallTable.h"

#include "Onu.h"

CallTable::CallTable(Onu& onu)
{
    addStartup(onu);
    addStatusReports(onu);
    addCounterFeeds(onu);
    addStartupTable();
    addRegistrar();
    addEntityCalls();
    addIntervalCounter();
}

Json CallTable::run(const std::string& name, const Json& arguments) const
{
    const auto call = m_Calls.find(name);
    if (call == m_Calls.end()) {
        throw BadRequest("there is no operation \"" + name + "\"");
    }
    try {
        return call->second(arguments);
    } catch (const BadRequest& problem) {
        throw BadRequest(name + ": " + problem.what());
    }
}
