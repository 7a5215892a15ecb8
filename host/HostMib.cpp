#include "HostMib.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <vector>

#include "omci_host/OmciMeFactory.h"
#include "ont_omci_managed_entity/OmciManagedEntitiesCore.h"
#include "ont_omci_managed_entity/OmciManagedEntityRegistrar.h"

namespace omci {

namespace {

/// Classes that no row of the start-up table brings.
constexpr std::uint16_t kClassesWithoutStartupRow[] = {82,    89,    90,    279,   280,   297,   304,   311,   330,
                                                       340,   347,   65400, 65401, 65402, 65403, 65404, 65406, 65407,
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
    const auto& table = OmciManagedEntitiesCore::defaultConfigManagedEntity;
    const auto row = std::find_if(std::begin(table), std::end(table),
                                  [classId](const auto& candidate) { return candidate.classId == classId; });
    if (row == std::end(table)) {
        return;
    }
    // From the row and not from the registrar's picture, which could only be had by copying all of it.
    std::map<unsigned int, std::vector<unsigned char>> values;
    m_Core.buildAttributeValueMap(*row, instance, values);
    for (const auto& [key, octets] : values) {
        m_Registrar.setManagedEntityAttribute(classId, instance, static_cast<std::uint16_t>(key & 0xFFFF), octets);
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
