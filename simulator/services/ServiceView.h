#ifndef SIMULATOR_SERVICES_SERVICE_VIEW_H
#define SIMULATOR_SERVICES_SERVICE_VIEW_H

#include <map>
#include <string>

#include "Json.h"
#include "services/ServiceRecords.h"

namespace services {

/// The services that the records add up to: {"ethernet_unis":[...],"veips":[...],"bridge_ports":[...]}, each in order
/// of instance. What a pointer leads to and is not there, or not told of, stands under "missing" in words.
Json toJson(const Records& records);

struct PortLine
{
    std::string text;
    std::string port;  ///< its JSON: more than the text tells
};
/// A line about each port of that, by the port's name: "Ethernet UNI 257".
std::map<std::string, PortLine> linesOf(const Json& services);

}  // namespace services

#endif
