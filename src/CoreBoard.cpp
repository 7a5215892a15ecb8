// Board counts, and the edits that they make to the texts of the start-up table.
#include <array>
#include <cstring>
#include <utility>

#include "OmciManagedEntitiesCore.h"
#include "OmciMeOnuGIf.h"
#include "StartupTable.h"
#include "impl/Log.h"

unsigned char OmciManagedEntitiesCore::NUMBER_OF_T_CONT_SUPPORTED = 8;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_ETHERNET_UNI_SUPPORTED = 1;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_VIDEO_UNI_SUPPORTED = 1;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_VIDEO_ANI_SUPPORTED = 1;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT = 8;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI = 2;
unsigned char OmciManagedEntitiesCore::NUMBER_OF_PPTP_POTS_UNI_SUPPORTED = 2;
unsigned char OmciManagedEntitiesCore::TOTAL_UPSTREAM_PRIORITY_QUEUES = 0;
unsigned char OmciManagedEntitiesCore::TOTAL_DOWNSTREAM_PRIORITY_QUEUES = 0;
unsigned char OmciManagedEntitiesCore::TOTAL_NUMBER_OF_PRIORITY_QUEUES = 0;
unsigned char OmciManagedEntitiesCore::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER = 0;

using nrvk::startupText;
using nrvk::writeStartupNumber;
using nrvk::writeStartupText;

namespace {

constexpr unsigned short kAniGTotalTcontNumber = 0x4000;
constexpr unsigned short kOnuGVendorId = 0x8000;
constexpr unsigned short kOnu2GOmccVersion = 0x4000;
constexpr unsigned short kOnu2GTotalPriorityQueueNumber = 0x400;
constexpr unsigned short kOnu2GTotalGemportidNumber = 0x80;
constexpr unsigned short kOnu2GPriorityQueueScaleFactor = 0x4;
constexpr unsigned short kPptpEthernetExpectedType = 0x8000;
constexpr unsigned short kPptpEthernetSensedType = 0x4000;
constexpr unsigned short kCardholderActualPluginUnitType = 0x8000;
constexpr unsigned short kCardholderExpectedPluginUnitType = 0x4000;
constexpr unsigned short kCardholderExpectedPortType = 0x2000;
constexpr unsigned short kCircuitPackType = 0x8000;
constexpr unsigned short kCircuitPackNumberOfPorts = 0x4000;
constexpr unsigned short kCircuitPackTotalTcontBufferNumber = 0x20;
constexpr unsigned short kCircuitPackTotalPriorityQueueNumber = 0x10;
constexpr unsigned short kPriorityQueueRelatedPort = 0x400;
constexpr unsigned short kTrafficSchedulerTcontPointer = 0x8000;

constexpr unsigned short kPortalServiceInstance = 0x8000;
constexpr unsigned short kPortalConfigurationMethod = 0x4000;
constexpr unsigned short kPortalNetworkAddress = 0x2000;
constexpr unsigned short kPortalAdministrativeState = 0x1000;
constexpr unsigned short kPortalCauseForLastAbnormalHalt = 0x400;
constexpr unsigned short kPortalConfigurationPortalUpdateAvailable = 0x200;
constexpr unsigned short kPortalConfigurationPortalResult = 0x80;
constexpr unsigned short kPortalStatusMessageAvailable = 0x40;
constexpr unsigned short kPortalStatusMessageResult = 0x10;
constexpr unsigned short kPortalAssociatedMeClass = 0x8;
constexpr unsigned short kPortalAssociatedMeClassInstance = 0x4;

constexpr unsigned int kFirstTCont = 0x100;
constexpr unsigned int kFirstUni = 0x101;
constexpr unsigned int kSlots = 6;

constexpr unsigned char product(unsigned char a, unsigned char b)
{
    return static_cast<unsigned char>(a * b);
}

/// G.988 plug-in unit types of the six slots: Ethernet, then what the board may carry.
const char* pluginCode(unsigned char slot)
{
    static constexpr std::array<const char*, kSlots> codes = {"47", "48", "32", "236", "38", "44"};
    return slot == 0 && OmciManagedEntitiesCore::isCodePoint49ReportingRequired() ? "49" : codes[slot];
}

int portsOfSlot(unsigned char slot)
{
    const std::array<int, kSlots> ports = {OmciManagedEntitiesCore::NUMBER_OF_ETHERNET_UNI_SUPPORTED,
                                           1,
                                           OmciManagedEntitiesCore::NUMBER_OF_PPTP_POTS_UNI_SUPPORTED,
                                           1,
                                           OmciManagedEntitiesCore::NUMBER_OF_VIDEO_UNI_SUPPORTED,
                                           OmciManagedEntitiesCore::NUMBER_OF_VIDEO_ANI_SUPPORTED};
    return ports[slot];
}

/// A count of 0 divides nothing: such a board has no queues to relate.
unsigned int quotient(unsigned int value, unsigned int divisor)
{
    return divisor != 0 ? value / divisor : 0;
}
unsigned int remainder(unsigned int value, unsigned int divisor)
{
    return divisor != 0 ? value % divisor : 0;
}

}  // namespace

void OmciManagedEntitiesCore::updatingBoardParams(BoardSpecificConfig config)
{
    NRVK_LOG(6, "BoardSpecificConfig (%hu)", config.numberOfTConts);
    // Unconditional: it is part of the start-up log of every ONU.
    NRVK_LOG(3, "Model name not found \n");
    NUMBER_OF_T_CONT_SUPPORTED = config.numberOfTConts;
    NUMBER_OF_ETHERNET_UNI_SUPPORTED = config.numberOfEthernetUnis;
    NUMBER_OF_VIDEO_UNI_SUPPORTED = config.numberOfVideoUnis;
    NUMBER_OF_VIDEO_ANI_SUPPORTED = config.numberOfVideoAnis;
    NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT = config.upstreamQueuesPerTCont;
    NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI = config.downstreamQueuesPerUni;
    NUMBER_OF_PPTP_POTS_UNI_SUPPORTED = config.numberOfPotsUnis;

    TOTAL_UPSTREAM_PRIORITY_QUEUES = product(NUMBER_OF_T_CONT_SUPPORTED, NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT);
    TOTAL_UPSTREAM_TRAFFIC_SCHEDULER = TOTAL_UPSTREAM_PRIORITY_QUEUES;
    TOTAL_DOWNSTREAM_PRIORITY_QUEUES = product(NUMBER_OF_ETHERNET_UNI_SUPPORTED, NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI);
    TOTAL_NUMBER_OF_PRIORITY_QUEUES =
        static_cast<unsigned char>(TOTAL_UPSTREAM_PRIORITY_QUEUES + TOTAL_DOWNSTREAM_PRIORITY_QUEUES);

    findAndUpdate(278, TOTAL_UPSTREAM_TRAFFIC_SCHEDULER);
    findAndUpdate(11, 0);  // the host makes the Ethernet UNIs, whatever the board has
    findAndUpdate(82, NUMBER_OF_VIDEO_UNI_SUPPORTED);
    findAndUpdate(90, NUMBER_OF_VIDEO_ANI_SUPPORTED);
    findAndUpdate(277, TOTAL_NUMBER_OF_PRIORITY_QUEUES);
    findAndUpdate(262, NUMBER_OF_T_CONT_SUPPORTED);
    findAndUpdate(264, NUMBER_OF_ETHERNET_UNI_SUPPORTED);
    findAndUpdate(53, NUMBER_OF_PPTP_POTS_UNI_SUPPORTED);
}

bool OmciManagedEntitiesCore::isCodePoint49ReportingRequired()
{
    std::string partNumber;
    if (const OmciMeOnuGIf* onuG = OmciMeOnuGIf::getFirstManagedEntityInstance()) {
        constexpr std::size_t versionBytes = 14;
        const auto* version = reinterpret_cast<const char*>(onuG->getVersion(OMCI_ACTION_GET));
        partNumber.assign(version, strnlen(version, versionBytes));
    }
    NRVK_LOG(4, "OnuG partNumber(%s)", partNumber.c_str());
    return partNumber == "9100452F1" || partNumber == "9100452F2V" || partNumber == "9100452F1V";
}

void OmciManagedEntitiesCore::updateAniG(unsigned char index, AttributeValues& values,
                                         const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    writeStartupNumber(values, kAniGTotalTcontNumber, NUMBER_OF_T_CONT_SUPPORTED);
}

void OmciManagedEntitiesCore::updateOnuG(unsigned char index, AttributeValues& values,
                                         const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    if (index == 0) {
        writeStartupText(values, kOnuGVendorId, "NRVK");
    }
}

void OmciManagedEntitiesCore::updateOnu2G(unsigned char index, AttributeValues& values,
                                          const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    writeStartupNumber(values, kOnu2GOmccVersion, 0xB3);
    writeStartupNumber(values, kOnu2GTotalPriorityQueueNumber, TOTAL_UPSTREAM_PRIORITY_QUEUES);
    writeStartupNumber(values, kOnu2GTotalGemportidNumber, 32);
    writeStartupNumber(values, kOnu2GPriorityQueueScaleFactor, 1024);
}

void OmciManagedEntitiesCore::updatePptpEthernet(unsigned char index, AttributeValues& values,
                                                 const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    const char* type = isCodePoint49ReportingRequired() ? "49" : "0";
    writeStartupText(values, kPptpEthernetExpectedType, type);
    writeStartupText(values, kPptpEthernetSensedType, type);
}

void OmciManagedEntitiesCore::updateCardHolder(unsigned char index, AttributeValues& values,
                                               const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    if (index >= kSlots) {
        return;
    }
    writeStartupText(values, kCardholderActualPluginUnitType, pluginCode(index));
    writeStartupText(values, kCardholderExpectedPluginUnitType, pluginCode(index));
    writeStartupNumber(values, kCardholderExpectedPortType, portsOfSlot(index));
}

void OmciManagedEntitiesCore::updateCircuitPack(unsigned char index, AttributeValues& values,
                                                const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    if (index >= kSlots) {
        return;
    }
    writeStartupText(values, kCircuitPackType, pluginCode(index));
    writeStartupNumber(values, kCircuitPackNumberOfPorts, portsOfSlot(index));
    writeStartupNumber(values, kCircuitPackTotalTcontBufferNumber, NUMBER_OF_T_CONT_SUPPORTED);
    writeStartupNumber(values, kCircuitPackTotalPriorityQueueNumber, TOTAL_NUMBER_OF_PRIORITY_QUEUES);
    for (const unsigned short mask :
         {kCircuitPackNumberOfPorts, kCircuitPackTotalTcontBufferNumber, kCircuitPackTotalPriorityQueueNumber}) {
        NRVK_LOG(6, "Updating attribute(%hu); value(%s)", mask,
                 reinterpret_cast<const char*>(startupText(values, mask)));
    }
}

void OmciManagedEntitiesCore::updateTrafficScheduler(unsigned char index, AttributeValues& values,
                                                     const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    unsigned int tCont = 0;
    if (index < TOTAL_UPSTREAM_TRAFFIC_SCHEDULER) {
        tCont = kFirstTCont + quotient(index, NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT);
    }
    writeStartupNumber(values, kTrafficSchedulerTcontPointer, static_cast<int>(tCont));
}

void OmciManagedEntitiesCore::updatePriorityQueue(unsigned char index, AttributeValues& values,
                                                  const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    unsigned int relatedPort = 0;
    if (index < TOTAL_UPSTREAM_PRIORITY_QUEUES) {
        // The first queue of a T-CONT has the highest priority number.
        const unsigned int queues = NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT;
        relatedPort = ((kFirstTCont + quotient(index, queues)) << 16) | (queues - 1 - remainder(index, queues));
    } else {
        const unsigned int queues = NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI;
        const unsigned int queue = index - static_cast<unsigned int>(TOTAL_UPSTREAM_PRIORITY_QUEUES);
        relatedPort = ((kFirstUni + quotient(queue, queues)) << 16) | remainder(queue, queues);
    }
    writeStartupNumber(values, kPriorityQueueRelatedPort, static_cast<int>(relatedPort));
}

void OmciManagedEntitiesCore::updateFlexibleConfigurationStatusPortal(unsigned char index, AttributeValues& values,
                                                                      const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    constexpr unsigned char ipHost = 2;
    constexpr int ipHostService = 0x033E0100;
    constexpr int otherService = 0xFF00;
    const unsigned short instance = instanceFlexibleConfigurationStatusPortal(index);
    int associatedClass = index == ipHost ? 134 : 263;
    if (index < NUMBER_OF_ETHERNET_UNI_SUPPORTED) {
        associatedClass = 11;
    }
    const std::pair<unsigned short, int> numbers[] = {
        {kPortalServiceInstance, (index == ipHost ? ipHostService : otherService) | (instance & 0xFF)},
        {kPortalConfigurationMethod, index == ipHost ? 0 : 3},
        {kPortalNetworkAddress, 2},
        {kPortalAdministrativeState, 0},
        {kPortalCauseForLastAbnormalHalt, 65535},
        {kPortalConfigurationPortalUpdateAvailable, 0},
        {kPortalConfigurationPortalResult, 0},
        {kPortalStatusMessageAvailable, 1},
        {kPortalStatusMessageResult, 1},
        {kPortalAssociatedMeClass, associatedClass},
        {kPortalAssociatedMeClassInstance, instance},
    };
    for (const auto& [attributeMask, number] : numbers) {
        writeStartupNumber(values, attributeMask, number);
    }
}

// Video ports have no texts that the board changes; the functions are there for rows that refer to them.
void OmciManagedEntitiesCore::updatePptpVideo(unsigned char, AttributeValues&, const std::string&)
{}
void OmciManagedEntitiesCore::updatePptpVideoAni(unsigned char, AttributeValues&, const std::string&)
{}
