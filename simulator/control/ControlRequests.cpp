#include "control/ControlRequests.h"

#include "Onu.h"

ControlRequests::ControlRequests(Onu& onu) : m_Onu(onu), m_Calls(onu)
{
    addMibRequests();
    addVlanRequests();
    addHardwareRequests();
    addBoardRequests();
    addOnuRequests();
    addVoiceRequests();
    addPmRequests();
}

std::string ControlRequests::answer(const std::string& line)
{
    try {
        return toLine(run(Json::parse(line)));
    } catch (const Json::parse_error& error) {
        return toLine({{"error", "not JSON: character " + std::to_string(error.byte)}});
    } catch (const BadRequest& problem) {
        return toLine({{"error", problem.what()}});
    } catch (const std::exception& error) {
        return toLine({{"error", std::string("an exception came out of the library: ") + error.what()}});
    }
}

Json ControlRequests::run(const Json& request) const
{
    if (!request.is_object() || request.empty()) {
        throw BadRequest("a request is an object like {\"instances\":true}");
    }
    const Request* found = nullptr;
    for (const auto& [key, value] : request.items()) {
        const auto entry = m_Requests.find(key);
        if (entry == m_Requests.end()) {
            if (key == "args" && request.contains("call")) {
                continue;
            }
            throw BadRequest("there is no request \"" + key + "\"");
        }
        if (found != nullptr) {
            throw BadRequest("one request a line");
        }
        found = &entry->second;
    }
    if (found == nullptr) {
        throw BadRequest("there is no request \"args\"");
    }
    return (*found)(request);
}
