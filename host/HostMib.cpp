#include "HostMib.h"

#include <algorithm>

#include "omci_host/OmciMeFactory.h"
#include "ont_omci_managed_entity/OmciManagedEntitiesCore.h"
#include "ont_omci_managed_entity/OmciManagedEntityRegistrar.h"

namespace omci {

namespace {

/// Classes that the OLT may create and that no row of the start-up table brings.
constexpr std::uint16_t kClassesWithoutStartupRow[] = {89,    279,   280,   311,   330,   340,   65404, 65406, 65407,
                                                       65408, 65409, 65410, 65411, 65412, 65413, 65414, 65420, 65421};

constexpr std::uint16_t kPptpEthernetUni = 11;
constexpr std::uint16_t kPptpVideoUni = 82;
constexpr std::uint16_t kPptpVideoAni = 90;

}  // namespace

HostMib::HostMib(OmciManagedEntityRegistrar& registrar, OmciManagedEntitiesCore& core)
    : m_Registrar(registrar), m_Core(core)
{}

void HostMib::registerRemainingClasses()
{
    for (const std::uint16_t classId : kClassesWithoutStartupRow) {
        if (OmciMeFactory::getInstance()->getManagedEntity(classId) == nullptr) {
            m_Registrar.registerManagedEntity(classId);
        }
    }
}

int HostMib::createInstance(std::uint16_t classId, std::uint16_t instance)
{
    if (OmciMeFactory::getInstance()->getManagedEntity(classId) == nullptr &&
        m_Registrar.registerManagedEntity(classId) != 0) {
        return -1;
    }
    if (m_Registrar.createManagedEntityInstance(classId, instance) != 0) {
        return -1;
    }
    StartupConfigManagedEntity record;
    if (m_Core.getDefaultConfigManagedEntity(classId, instance, record) == 0) {
        writeStartupValues(classId, instance);
    }
    return 0;
}

int HostMib::deleteInstance(std::uint16_t classId, std::uint16_t instance)
{
    return m_Registrar.deleteManagedEntityInstance(classId, instance);
}

void HostMib::writeStartupValues(std::uint16_t classId, std::uint16_t instance)
{
    std::vector<StartupConfigManagedEntity> picture;
    m_Registrar.getConfigManagedEntityVector(picture);
    const auto record =
        std::find_if(picture.begin(), picture.end(), [classId](const auto& row) { return row.classId == classId; });
    if (record == picture.end()) {
        return;
    }
    const unsigned int first = static_cast<unsigned int>(instance) << 16;
    const auto end = record->attributeValues.upper_bound(first | 0xFFFF);
    for (auto value = record->attributeValues.lower_bound(first); value != end; ++value) {
        m_Registrar.setManagedEntityAttribute(classId, instance, static_cast<std::uint16_t>(value->first & 0xFFFF),
                                              value->second);
    }
}

unsigned HostMib::createPorts(std::uint16_t classId, InstanceFunction instance, std::uint8_t count)
{
    unsigned failures = 0;
    for (unsigned index = 0; index < count; ++index) {
        failures += createInstance(classId, instance(static_cast<unsigned char>(index))) == 0 ? 0 : 1;
    }
    return failures;
}

unsigned HostMib::createEthernetUnis(std::uint8_t count)
{
    return createPorts(kPptpEthernetUni, &OmciManagedEntitiesCore::instancePptpEthernet, count);
}

unsigned HostMib::createVideoUnis(std::uint8_t count)
{
    return createPorts(kPptpVideoUni, &OmciManagedEntitiesCore::instancePptpVideo, count);
}

unsigned HostMib::createVideoAnis(std::uint8_t count)
{
    return createPorts(kPptpVideoAni, &OmciManagedEntitiesCore::instancePptpVideoAni, count);
}

}  // namespace omci
