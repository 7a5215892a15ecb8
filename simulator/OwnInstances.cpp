#include "OwnInstances.h"

#include <algorithm>
#include <string>
#include <vector>

#include "Json.h"
#include "MibAccess.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeFactory.h"
#include "Onu.h"
#include "OnuInstances.h"

namespace {
using Picture = std::vector<StartupConfigManagedEntity>;

OmciManagedEntityRegistrar& registrar()
{
    return *OmciManagedEntityRegistrar::getInstance();
}

Picture picture()
{
    Picture copy;
    registrar().getConfigManagedEntityVector(copy);
    return copy;
}

unsigned int keyOf(unsigned short instance, unsigned short attributeMask)
{
    return (static_cast<unsigned int>(instance) << 16) | attributeMask;
}

StartupConfigManagedEntity& recordOf(Picture& all, unsigned short classId)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [classId](const auto& row) { return row.classId == classId; });
    if (found != all.end()) {
        return *found;
    }
    all.emplace_back().classId = classId;
    return all.back();
}

bool contains(const StartupConfigManagedEntity& record, unsigned short instance)
{
    return std::find(record.instances.begin(), record.instances.end(), instance) != record.instances.end();
}

/// While one lives, reads of a new instance yield its defaults and not what the hardware answers.
class WithoutHardware
{
public:
    explicit WithoutHardware(Onu& onu) : m_Onu(onu), m_WasConnected(onu.isHardwareConnected())
    {
        m_Onu.connectHardware(false);
    }
    ~WithoutHardware() { m_Onu.connectHardware(m_WasConnected); }
    WithoutHardware(const WithoutHardware&) = delete;
    WithoutHardware& operator=(const WithoutHardware&) = delete;

private:
    Onu& m_Onu;
    bool m_WasConnected;
};

void enterWithDefaults(Onu& onu, const OmciMe& me, unsigned short instance)
{
    const WithoutHardware withoutHardware(onu);
    Picture all = picture();
    StartupConfigManagedEntity& record = recordOf(all, me.getManagedEntityClassId());
    record.instances.push_back(instance);
    for (const attributeDefinition& definition : mib::attributesOf(me)) {
        const auto value = mib::getAttribute(me, instance, definition, OMCI_ACTION_GET);
        if (value && definition.isTableAttribute == 0) {
            record.attributeValues[keyOf(instance, definition.attributeMask)] = *value;
        }
    }
    registrar().setSupportedManagedEntities(std::move(all));
}

void writeStartupValues(unsigned short classId, unsigned short instance)
{
    Picture all = picture();
    const auto& attributeValues = recordOf(all, classId).attributeValues;
    const auto end = attributeValues.upper_bound(keyOf(instance, 0xFFFF));
    for (auto value = attributeValues.lower_bound(keyOf(instance, 0)); value != end; ++value) {
        registrar().setManagedEntityAttribute(classId, instance, static_cast<unsigned short>(value->first & 0xFFFF),
                                              value->second);
    }
}

void removeFromPicture(unsigned short classId, unsigned short instance)
{
    Picture all = picture();
    StartupConfigManagedEntity& record = recordOf(all, classId);
    record.instances.remove(instance);
    const auto begin = record.attributeValues.lower_bound(keyOf(instance, 0));
    const auto end = record.attributeValues.upper_bound(keyOf(instance, 0xFFFF));
    record.attributeValues.erase(begin, end);
    registrar().setSupportedManagedEntities(std::move(all));
}

std::string nameOf(unsigned short classId, unsigned short instance)
{
    return "managed entity " + std::to_string(classId) + ", instance " + std::to_string(instance);
}
}  // namespace

int createOwnInstance(Onu& onu, unsigned short classId, unsigned short instance)
{
    const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr) {
        throw BadRequest("class " + std::to_string(classId) + " is not registered");
    }
    if (me->findManagedEntityInstance(instance) == 0) {
        throw BadRequest(nameOf(classId, instance) + " exists");
    }
    if (!createInstanceOfOnu(classId, instance)) {
        return -1;
    }
    Picture all = picture();
    if (!contains(recordOf(all, classId), instance)) {
        StartupConfigManagedEntity record;
        const bool hasRow = onu.core().getDefaultConfigManagedEntity(classId, instance, record) == 0;
        if (hasRow) {
            writeStartupValues(classId, instance);
        } else {
            enterWithDefaults(onu, *me, instance);
        }
    }
    return 0;
}

int deleteOwnInstance(unsigned short classId, unsigned short instance)
{
    const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr || me->findManagedEntityInstance(instance) != 0) {
        throw BadRequest(nameOf(classId, instance) + " does not exist");
    }
    if (!deleteInstanceOfOnu(classId, instance) || me->findManagedEntityInstance(instance) == 0) {
        return -1;
    }
    removeFromPicture(classId, instance);
    return 0;
}
