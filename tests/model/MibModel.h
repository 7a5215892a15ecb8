#ifndef TESTS_MODEL_MIB_MODEL_H
#define TESTS_MODEL_MIB_MODEL_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ClassList.h"
#include "Message.h"

namespace model {

struct Instance
{
    bool isCreatedByOlt = false;
    std::map<std::uint16_t, Bytes> values;  ///< by mask; of a table, its count of rows
};

using Instances = std::map<std::uint16_t, Instance>;

/// What a MIB is, in the plainest words: instances by class, values by attribute, and what each message makes of them.
/// It knows the classes from the second list alone and shares no line with library or host.
class MibModel
{
public:
    MibModel(const ClassList& classes, bool hasHardware) : m_Classes(classes), m_HasHardware(hasHardware) {}

    /// An instance as the ONU made it at its start; a MIB reset returns to it.
    void addStartInstance(std::uint16_t classId, std::uint16_t instance, const std::map<std::uint16_t, Bytes>& values);

    /// The contents of the answer, after the request has had its effect. Of a baseline answer without the padding.
    Bytes answer(const Request& request);
    /// The ONU's own creation and removal, as its registrar does them. False when the class is not the ONU's.
    bool createAsOnu(std::uint16_t classId, std::uint16_t instance);
    bool removeAsOnu(std::uint16_t classId, std::uint16_t instance);

    bool hasHardware() const { return m_HasHardware; }
    const ClassList& classes() const { return m_Classes; }
    const Instances& instancesOf(std::uint16_t classId) const;
    const Instance* find(std::uint16_t classId, std::uint16_t instance) const;
    const Bytes& value(std::uint16_t classId, std::uint16_t instance, std::uint16_t mask) const;

private:
    Bytes create(const EntityClass& entity, const Request& request);
    Bytes remove(const EntityClass& entity, const Request& request);
    Bytes set(const EntityClass& entity, const Request& request);
    Bytes setTable(const EntityClass& entity, const Request& request);
    Bytes get(const EntityClass& entity, const Request& request) const;
    void resetMib();

    /// False when the class refuses the value.
    bool store(const EntityClass& entity, std::uint16_t instance, const Attribute& attribute, const Bytes& value);
    void make(std::uint16_t classId, std::uint16_t instance, bool byOlt);
    void erase(std::uint16_t classId, std::uint16_t instance, bool byOlt);
    std::map<std::uint16_t, Bytes> defaultsOf(std::uint16_t classId) const;
    void stepDataSync();

    const ClassList& m_Classes;
    bool m_HasHardware;
    std::map<std::uint16_t, Instances> m_Instances;
    std::map<std::uint16_t, Instances> m_Start;
};

}  // namespace model

#endif
