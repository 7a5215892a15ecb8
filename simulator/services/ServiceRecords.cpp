#include "services/ServiceRecords.h"

#include <algorithm>

#include "ExtendedVlanTaggingAccess.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMacBridgeServiceProfileIf.h"
#include "OmciMeOnuGIf.h"
#include "OmciMeTContIf.h"
#include "OmciMeVlanTaggingFilterDataIf.h"

namespace services {
namespace {
constexpr unsigned char kUnlocked = 0;

bool isUnassigned(unsigned short allocId)
{
    return allocId == 0xFF || allocId == 0xFFFF;
}

std::optional<VlanFilter> readVlanFilter(unsigned short port)
{
    constexpr std::size_t mostEntries = 12;
    const auto* filter = OmciMeVlanTaggingFilterDataIf::getManagedEntityInstance(port);
    if (filter == nullptr) {
        return std::nullopt;
    }
    VlanFilter read;
    read.forwardOperation = filter->getForwardOperation(OMCI_ACTION_GET);
    const unsigned char* list = filter->getVlanFilterList(OMCI_ACTION_GET);
    const std::size_t count = std::min<std::size_t>(filter->getNumberOfEntries(OMCI_ACTION_GET), mostEntries);
    for (std::size_t i = 0; i < count; ++i) {
        read.tcis.push_back(static_cast<unsigned short>(list[2 * i] << 8 | list[2 * i + 1]));
    }
    return read;
}

/// Where rules for the frames of a bridge port may stand besides the port itself: on what is behind it.
VlanRules readRulesBehind(const BridgePort& port)
{
    switch (port.tpType) {
    case TP_TYPE_MAPPER:
        return readVlanRules(ON_MAPPER, port.tpPointer);
    case TP_TYPE_IP_HOST:
        return readVlanRules(ON_IP_HOST, port.tpPointer);
    case TP_TYPE_GEM:
        return readVlanRules(ON_GEM, port.tpPointer);
    case TP_TYPE_MULTICAST_GEM:
        return readVlanRules(ON_MULTICAST_GEM, port.tpPointer);
    default:
        // UNIs and VEIPs are told of their own rules.
        return {};
    }
}
}  // namespace

std::vector<const Tagging*> findTaggings(AssociationType associationType, unsigned short pointer)
{
    std::vector<const Tagging*> found;
    for (const Tagging* tagging = Tagging::getFirstManagedEntityInstance(); tagging != nullptr;
         tagging = Tagging::getNextManagedEntityInstance(tagging->getManagedEntityInstance())) {
        if (tagging->getAssociationType(OMCI_ACTION_GET) == associationType &&
            tagging->getAssociatedMePointer(OMCI_ACTION_GET) == pointer) {
            found.push_back(tagging);
        }
    }
    return found;
}

VlanRules readVlanRules(AssociationType associationType, unsigned short pointer)
{
    VlanRules all;
    for (const Tagging* tagging : findTaggings(associationType, pointer)) {
        const VlanRules rules = nrvk::getTableOfReceivedFrames(*tagging);
        all.insert(all.end(), rules.begin(), rules.end());
    }
    return all;
}

BridgePort readBridgePort(const OmciMeMacBridgePortConfigurationDataIf& port)
{
    BridgePort read;
    read.bridge = port.getBridgeIdPointer(OMCI_ACTION_GET);
    read.isBridgeThere = OmciMeMacBridgeServiceProfileIf::getManagedEntityInstance(read.bridge) != nullptr;
    read.tpType = port.getTpType(OMCI_ACTION_GET);
    read.tpPointer = port.getTpPointer(OMCI_ACTION_GET);
    read.filter = readVlanFilter(port.getManagedEntityInstance());
    read.rules = readVlanRules(ON_BRIDGE_PORT, port.getManagedEntityInstance());
    const VlanRules behind = readRulesBehind(read);
    read.rules.insert(read.rules.end(), behind.begin(), behind.end());
    return read;
}

Mapper readMapper(const OmciMeMapperServiceProfile802_1PIf& mapper)
{
    Mapper read;
    read.tps = {mapper.getInterworkTpPointerForPBitPriority0(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority1(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority2(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority3(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority4(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority5(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority6(OMCI_ACTION_GET),
                mapper.getInterworkTpPointerForPBitPriority7(OMCI_ACTION_GET)};
    read.unmarkedFrameOption = mapper.getUnmarkedFrameOption(OMCI_ACTION_GET);
    read.defaultPBit = mapper.getDefaultPBitAssumption(OMCI_ACTION_GET);
    read.tpType = mapper.getTpType(OMCI_ACTION_GET);
    read.tpPointer = mapper.getTpPointer(OMCI_ACTION_GET);
    return read;
}

GemService readGemService(unsigned short gemPort)
{
    GemService read;
    read.gemPort = gemPort;
    const auto* onu = OmciMeOnuGIf::getFirstManagedEntityInstance();
    read.isUnlocked = onu == nullptr || onu->getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    const auto* ctp = OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(gemPort);
    if (ctp == nullptr) {
        return read;
    }
    GemPort& gem = read.gem.emplace();
    gem.portId = ctp->getPortId(OMCI_ACTION_GET);
    gem.direction = ctp->getDirection(OMCI_ACTION_GET);
    gem.tCont = ctp->getTcontPointer(OMCI_ACTION_GET);
    if (const auto* tCont = OmciMeTContIf::getManagedEntityInstance(gem.tCont)) {
        gem.isTContThere = true;
        const unsigned short allocId = tCont->getAllocId(OMCI_ACTION_GET);
        if (!isUnassigned(allocId)) {
            gem.allocId = allocId;
        }
    }
    return read;
}

}  // namespace services
