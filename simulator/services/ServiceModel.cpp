#include "services/ServiceModel.h"

#include <utility>

#include "ProgramLog.h"

namespace {
constexpr unsigned char kUnlocked = 0;
}  // namespace

void ServiceModel::clear()
{
    m_Told = {};
}

void ServiceModel::provisionUni(const OmciMePptpEthernetUniIf& uni)
{
    services::SubscriberPort& port = m_Told.unis[uni.getManagedEntityInstance()];
    port.isUnlocked = uni.getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    port.isProvisioned = true;
    port.rules = services::readVlanRules(services::ON_UNI, uni.getManagedEntityInstance());
}

void ServiceModel::removeUni(const OmciMePptpEthernetUniIf& uni)
{
    services::SubscriberPort& port = m_Told.unis[uni.getManagedEntityInstance()];
    port.isUnlocked = uni.getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    port.isProvisioned = false;
    port.rules.clear();
}

void ServiceModel::setUniState(unsigned short instance, unsigned char administrativeState)
{
    m_Told.unis[instance].isUnlocked = administrativeState == kUnlocked;
}

void ServiceModel::provisionVeip(const OmciMeVirtualEthernetInterfacePointIf& veip)
{
    services::SubscriberPort& port = m_Told.veips[veip.getManagedEntityInstance()];
    port.isUnlocked = true;
    port.isProvisioned = true;
    port.rules = services::readVlanRules(services::ON_VEIP, veip.getManagedEntityInstance());
}

void ServiceModel::removeVeip(unsigned short instance)
{
    m_Told.veips[instance] = {};
}

void ServiceModel::provisionPort(const OmciMeMacBridgePortConfigurationDataIf& port)
{
    const services::BridgePort read = services::readBridgePort(port);
    m_Told.ports[port.getManagedEntityInstance()] = read;
    if (read.tpType == services::TP_TYPE_MAPPER) {
        readMapperAgain(read.tpPointer);
    } else if (read.tpType == services::TP_TYPE_GEM) {
        readGemAgain(read.tpPointer);
    } else if (read.tpType == services::TP_TYPE_MULTICAST_GEM) {
        readMulticastGemAgain(read.tpPointer);
    }
}

void ServiceModel::removePort(unsigned short instance)
{
    if (m_Told.ports.erase(instance) == 0) {
        m_Told.mappers.erase(instance);
    }
}

void ServiceModel::changeMapper(const OmciMeMapperServiceProfile802_1PIf& mapper)
{
    readMapperAgain(mapper.getManagedEntityInstance());
}

void ServiceModel::readMapperAgain(unsigned short instance)
{
    const auto* mapper = OmciMeMapperServiceProfile802_1PIf::getManagedEntityInstance(instance);
    if (mapper == nullptr) {
        m_Told.mappers.erase(instance);
        return;
    }
    const services::Mapper read = services::readMapper(*mapper);
    m_Told.mappers[instance] = read;
    for (const unsigned short tp : read.tps) {
        readGemAgain(tp);
    }
}

/// What the library has not told of yet, or has taken away, stays unknown.
void ServiceModel::readGemAgain(unsigned short instance)
{
    const auto* interworkingTp = OmciMeGemInterworkingTpIf::getManagedEntityInstance(instance);
    const auto known = m_Told.gems.find(instance);
    if (interworkingTp != nullptr && known != m_Told.gems.end()) {
        known->second = services::readGemService(interworkingTp->getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    }
}

void ServiceModel::readMulticastGemAgain(unsigned short instance)
{
    const auto* interworkingTp = OmciMeMulticastGemInterworkingTpIf::getManagedEntityInstance(instance);
    const auto known = m_Told.multicastGems.find(instance);
    if (interworkingTp != nullptr && known != m_Told.multicastGems.end()) {
        known->second = services::readGemService(interworkingTp->getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    }
}

void ServiceModel::provisionGem(const OmciMeGemInterworkingTpIf& interworkingTp)
{
    m_Told.gems[interworkingTp.getManagedEntityInstance()] =
        services::readGemService(interworkingTp.getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
}

void ServiceModel::removeGem(unsigned short instance)
{
    m_Told.gems.erase(instance);
}

void ServiceModel::provisionMulticastGem(const OmciMeMulticastGemInterworkingTpIf& interworkingTp)
{
    m_Told.multicastGems[interworkingTp.getManagedEntityInstance()] =
        services::readGemService(interworkingTp.getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
}

void ServiceModel::removeMulticastGem(unsigned short instance)
{
    m_Told.multicastGems.erase(instance);
}

void ServiceModel::setGemState(unsigned short instance, unsigned short portId, unsigned char administrativeState)
{
    for (auto* gems : {&m_Told.gems, &m_Told.multicastGems}) {
        const auto found = gems->find(instance);
        if (found != gems->end() && found->second.gem && found->second.gem->portId == portId) {
            found->second.isUnlocked = administrativeState == kUnlocked;
            break;
        }
    }
}

void ServiceModel::removeTCont(unsigned short instance)
{
    for (auto* gems : {&m_Told.gems, &m_Told.multicastGems}) {
        for (auto& [interworkingTp, service] : *gems) {
            if (service.gem && service.gem->tCont == instance) {
                service.gem->allocId.reset();
            }
        }
    }
}

void ServiceModel::serve(services::Records records)
{
    m_Served = std::move(records);
    logChanges();
}

Json ServiceModel::toJson() const
{
    return services::toJson(m_Served);
}

void ServiceModel::logChanges()
{
    constexpr const char* file = "simulator/services/ServiceModel.cpp";
    std::map<std::string, services::PortLine> lines = services::linesOf(toJson());
    for (const auto& [who, line] : lines) {
        const auto before = m_Logged.find(who);
        if (before == m_Logged.end() || before->second.port != line.port) {
            logNotice("logChanges", file, __LINE__, who + ": " + line.text);
        }
    }
    for (const auto& entry : m_Logged) {
        if (lines.count(entry.first) == 0) {
            logNotice("logChanges", file, __LINE__, entry.first + ": no service any more");
        }
    }
    m_Logged = std::move(lines);
}
