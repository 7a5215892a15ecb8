#ifndef SIMULATOR_CONTROL_REQUEST_FIELDS_H
#define SIMULATOR_CONTROL_REQUEST_FIELDS_H

#include <initializer_list>
#include <set>
#include <string>

#include "JsonValues.h"

/// The members of {"NAME":{...}}: each is asked for by name, and what nobody asks for is refused.
class RequestFields
{
public:
    RequestFields(const Json& request, const std::string& name, std::initializer_list<const char*> known);

    template <typename T>
    T get(const char* field) const
    {
        T value{};
        values::from(member(field), value, m_Name + "." + field);
        return value;
    }
    template <typename T>
    T get(const char* field, T otherwise) const
    {
        return m_Fields.contains(field) ? get<T>(field) : otherwise;
    }
    bool has(const char* field) const { return m_Fields.contains(field); }
    bool isEmpty() const { return m_Fields.empty(); }
    /// BadRequest when it is missing.
    const Json& member(const char* field) const;

private:
    std::string m_Name;
    const Json& m_Fields;
};

/// BadRequest unless the request is {"NAME":true}.
void requireTrue(const Json& request, const std::string& name);

#endif
