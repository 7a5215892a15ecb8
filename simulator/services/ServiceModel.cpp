#include "services/ServiceModel.h"

#include "ProgramLog.h"

namespace {
constexpr unsigned char kUnlocked = 0;
}  // namespace

void ServiceModel::clear()
{
    m_Records = {};
    logChanges();
}

void ServiceModel::provisionUni(const OmciMePptpEthernetUniIf& uni)
{
    services::SubscriberPort& port = m_Records.unis[uni.getManagedEntityInstance()];
    port.isUnlocked = uni.getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    port.isProvisioned = true;
    port.rules = services::readVlanRules(services::ON_UNI, uni.getManagedEntityInstance());
    logChanges();
}

void ServiceModel::removeUni(const OmciMePptpEthernetUniIf& uni)
{
    services::SubscriberPort& port = m_Records.unis[uni.getManagedEntityInstance()];
    port.isUnlocked = uni.getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    port.isProvisioned = false;
    port.rules.clear();
    logChanges();
}

void ServiceModel::setUniState(unsigned short instance, unsigned char administrativeState)
{
    m_Records.unis[instance].isUnlocked = administrativeState == kUnlocked;
    logChanges();
}

void ServiceModel::provisionVeip(const OmciMeVirtualEthernetInterfacePointIf& veip)
{
    services::SubscriberPort& port = m_Records.veips[veip.getManagedEntityInstance()];
    port.isUnlocked = true;
    port.isProvisioned = true;
    port.rules = services::readVlanRules(services::ON_VEIP, veip.getManagedEntityInstance());
    logChanges();
}

void ServiceModel::removeVeip(unsigned short instance)
{
    m_Records.veips[instance] = {};
    logChanges();
}

void ServiceModel::provisionPort(const OmciMeMacBridgePortConfigurationDataIf& port)
{
    const services::BridgePort read = services::readBridgePort(port);
    m_Records.ports[port.getManagedEntityInstance()] = read;
    if (read.tpType == services::TP_TYPE_MAPPER) {
        readMapperAgain(read.tpPointer);
    } else if (read.tpType == services::TP_TYPE_GEM) {
        readGemAgain(read.tpPointer);
    } else if (read.tpType == services::TP_TYPE_MULTICAST_GEM) {
        readMulticastGemAgain(read.tpPointer);
    }
    logChanges();
}

void ServiceModel::removePort(unsigned short instance)
{
    if (m_Records.ports.erase(instance) == 0) {
        m_Records.mappers.erase(instance);
    }
    logChanges();
}

void ServiceModel::changeMapper(const OmciMeMapperServiceProfile802_1PIf& mapper)
{
    readMapperAgain(mapper.getManagedEntityInstance());
    logChanges();
}

void ServiceModel::readMapperAgain(unsigned short instance)
{
    const auto* mapper = OmciMeMapperServiceProfile802_1PIf::getManagedEntityInstance(instance);
    if (mapper == nullptr) {
        m_Records.mappers.erase(instance);
        return;
    }
    const services::Mapper read = services::readMapper(*mapper);
    m_Records.mappers[instance] = read;
    for (const unsigned short tp : read.tps) {
        readGemAgain(tp);
    }
}

/// What the library has not told of yet, or has taken away, stays unknown.
void ServiceModel::readGemAgain(unsigned short instance)
{
    const auto* interworkingTp = OmciMeGemInterworkingTpIf::getManagedEntityInstance(instance);
    const auto known = m_Records.gems.find(instance);
    if (interworkingTp != nullptr && known != m_Records.gems.end()) {
        known->second = services::readGemService(interworkingTp->getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    }
}

void ServiceModel::readMulticastGemAgain(unsigned short instance)
{
    const auto* interworkingTp = OmciMeMulticastGemInterworkingTpIf::getManagedEntityInstance(instance);
    const auto known = m_Records.multicastGems.find(instance);
    if (interworkingTp != nullptr && known != m_Records.multicastGems.end()) {
        known->second = services::readGemService(interworkingTp->getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    }
}

void ServiceModel::provisionGem(const OmciMeGemInterworkingTpIf& interworkingTp)
{
    m_Records.gems[interworkingTp.getManagedEntityInstance()] =
        services::readGemService(interworkingTp.getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    logChanges();
}

void ServiceModel::removeGem(unsigned short instance)
{
    m_Records.gems.erase(instance);
    logChanges();
}

void ServiceModel::provisionMulticastGem(const OmciMeMulticastGemInterworkingTpIf& interworkingTp)
{
    m_Records.multicastGems[interworkingTp.getManagedEntityInstance()] =
        services::readGemService(interworkingTp.getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
    logChanges();
}

void ServiceModel::removeMulticastGem(unsigned short instance)
{
    m_Records.multicastGems.erase(instance);
    logChanges();
}

void ServiceModel::setGemState(unsigned short instance, unsigned short portId, unsigned char administrativeState)
{
    for (auto* gems : {&m_Records.gems, &m_Records.multicastGems}) {
        const auto found = gems->find(instance);
        if (found != gems->end() && found->second.gem && found->second.gem->portId == portId) {
            found->second.isUnlocked = administrativeState == kUnlocked;
            break;
        }
    }
    logChanges();
}

void ServiceModel::removeTCont(unsigned short instance)
{
    for (auto* gems : {&m_Records.gems, &m_Records.multicastGems}) {
        for (auto& [interworkingTp, service] : *gems) {
            if (service.gem && service.gem->tCont == instance) {
                service.gem->allocId.reset();
            }
        }
    }
    logChanges();
}

Json ServiceModel::toJson() const
{
    return services::toJson(m_Records);
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
