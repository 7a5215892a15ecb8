#include "control/RequestFields.h"

#include <algorithm>

RequestFields::RequestFields(const Json& request, const std::string& name, std::initializer_list<const char*> known)
    : m_Name(name), m_Fields(request.at(name))
{
    if (!m_Fields.is_object()) {
        throw BadRequest(name + " is not an object");
    }
    for (const auto& [key, value] : m_Fields.items()) {
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            throw BadRequest(name + " has no field \"" + key + "\"");
        }
    }
}

const Json& RequestFields::member(const char* field) const
{
    const auto found = m_Fields.find(field);
    if (found == m_Fields.end()) {
        throw BadRequest(m_Name + " lacks \"" + field + "\"");
    }
    return *found;
}

void requireTrue(const Json& request, const std::string& name)
{
    if (request.at(name) != true) {
        throw BadRequest("the request is {\"" + name + "\":true}");
    }
}
