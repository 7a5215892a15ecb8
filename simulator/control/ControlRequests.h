#ifndef SIMULATOR_CONTROL_CONTROL_REQUESTS_H
#define SIMULATOR_CONTROL_CONTROL_REQUESTS_H

#include <functional>
#include <map>
#include <string>

#include "Json.h"
#include "control/CallTable.h"

class Onu;

/// What the control socket can be asked. Each request is one function that takes the whole JSON object and gives the
/// whole answer; BadRequest says what is wrong with it, before anything is done.
class ControlRequests
{
public:
    /// The ONU outlives the object.
    explicit ControlRequests(Onu& onu);

    /// Answers one line. Whatever is thrown becomes {"error":"..."}.
    std::string answer(const std::string& line);

private:
    using Request = std::function<Json(const Json& request)>;

    Json run(const Json& request) const;
    void addMibRequests();
    void addVlanRequests();
    void addHardwareRequests();
    void addBoardRequests();
    void addOnuRequests();
    void addVoiceRequests();
    void addPmRequests();

    Onu& m_Onu;
    CallTable m_Calls;
    std::map<std::string, Request> m_Requests;
};

#endif
