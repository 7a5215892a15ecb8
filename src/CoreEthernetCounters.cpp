// Counters of Ethernet ports and virtual Ethernet interface points.
#include <array>
#include <limits>
#include <utility>

#include "CounterFeed.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "impl/Log.h"

namespace {

using UpstreamIf = OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf;
using DownstreamIf = OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf;

constexpr unsigned short kEthernetPmClass = 24;
constexpr unsigned short kDownstreamClass = 321;
constexpr unsigned short kUpstreamClass = 322;
constexpr unsigned short kExtendedClass = 334;
constexpr unsigned short kExtended64BitClass = 425;
/// The two extended entities of a port have ids that differ in this bit.
constexpr unsigned short kFirstRecordBit = 0x80;

using Counters = EthernetFrameExtendedCounters;

/// The counters in the order of their attributes.
constexpr std::array<std::uint64_t Counters::*, 14> kFields = {&Counters::dropEvents,
                                                               &Counters::octets,
                                                               &Counters::frames,
                                                               &Counters::broadcastFrames,
                                                               &Counters::multicastFrames,
                                                               &Counters::crcErroredFrames,
                                                               &Counters::undersizeFrames,
                                                               &Counters::oversizeFrames,
                                                               &Counters::frames64Octets,
                                                               &Counters::frames65To127Octets,
                                                               &Counters::frames128To255Octets,
                                                               &Counters::frames256To511Octets,
                                                               &Counters::frames512To1023Octets,
                                                               &Counters::frames1024To1518Octets};

constexpr std::array<const char*, kFields.size() / 2> kPairFormats = {
    "castToCounter32(it->dropEvents) (%hu) castToCounter32(it->octets) (%hu)",
    "castToCounter32(it->frames) (%hu) castToCounter32(it->broadcastFrames) (%hu)",
    "castToCounter32(it->multicastFrames) (%hu) castToCounter32(it->crcErroredFrames) (%hu)",
    "castToCounter32(it->undersizeFrames) (%hu) castToCounter32(it->oversizeFrames) (%hu)",
    "castToCounter32(it->frames64Octets) (%hu) castToCounter32(it->frames65To127Octets) (%hu)",
    "castToCounter32(it->frames128To255Octets) (%hu) castToCounter32(it->frames256To511Octets) (%hu)",
    "castToCounter32(it->frames512To1023Octets) (%hu) castToCounter32(it->frames1024To1518Octets) (%hu)"};

unsigned int saturated(unsigned long long value)
{
    constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
    return value > most ? most : static_cast<unsigned int>(value);
}

unsigned short maskOfField(std::size_t field)
{
    return static_cast<unsigned short>(nrvk::kFirstCounter >> field);
}

void feed32(unsigned short classId, unsigned short instance, const Counters& counters)
{
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        nrvk::feedCounter(classId, instance, maskOfField(i), saturated(counters.*kFields[i]));
    }
}

void feed64(unsigned short classId, unsigned short instance, const Counters& counters)
{
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        nrvk::feedCounter(classId, instance, maskOfField(i), counters.*kFields[i]);
    }
}

/// The ids that the first and the second record go to, whichever of the two the caller named.
std::pair<unsigned short, unsigned short> idsOfRecords(unsigned short instance)
{
    return {static_cast<unsigned short>(instance | kFirstRecordBit),
            static_cast<unsigned short>(instance & ~kFirstRecordBit)};
}

/// The setters of a direction's entity, in field order.
template <typename If>
constexpr std::array<int (If::*)(unsigned int), kFields.size()> kSetters = {&If::setDropEvents,
                                                                            &If::setOctets,
                                                                            &If::setPackets,
                                                                            &If::setBroadcastPackets,
                                                                            &If::setMulticastPackets,
                                                                            &If::setCrcErroredPackets,
                                                                            &If::setUndersizePackets,
                                                                            &If::setOversizePackets,
                                                                            &If::setPackets_64_Octets,
                                                                            &If::setPackets_65_To_127_Octets,
                                                                            &If::setPackets_128_To_255_Octets,
                                                                            &If::setPackets_256_To_511_Octets,
                                                                            &If::setPackets_512_To_1023_Octets,
                                                                            &If::setPackets_1024_To_1518_Octets};

/// Both directions log the same texts.
template <typename If>
void feedDirection(unsigned short classId, unsigned short instance, const Counters& counters)
{
    If* entity = If::getManagedEntityInstance(instance);
    if (entity == nullptr) {
        NRVK_LOG(3, "can't find the downstream  instance(%hu) of managedEntityClass (%hu)", instance, classId);
        return;
    }
    NRVK_LOG(6, "found  the downstream  instance(%hu) of managedEntityClass (%hu)", instance, classId);
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        (entity->*kSetters<If>[i])(saturated(counters.*kFields[i]));
    }
    for (std::size_t i = 0; i < kPairFormats.size(); ++i) {
        NRVK_LOG(7, kPairFormats[i], saturated(counters.*kFields[2 * i]), saturated(counters.*kFields[2 * i + 1]));
    }
}

/// The first bridge port on the UNI; 0 when there is none.
unsigned short bridgePortOfUni(unsigned short uniInstance)
{
    constexpr unsigned char pptpEthernetUni = 1;
    using PortIf = OmciMeMacBridgePortConfigurationDataIf;
    const PortIf* port = PortIf::getFirstManagedEntityInstance();
    while (port != nullptr) {
        const unsigned short instance = port->getManagedEntityInstance();
        if (port->getTpType(OMCI_ACTION_GET) == pptpEthernetUni && port->getTpPointer(OMCI_ACTION_GET) == uniInstance) {
            return instance;
        }
        port = PortIf::getNextManagedEntityInstance(instance);
    }
    return 0;
}

}  // namespace

unsigned int OmciManagedEntitiesCore::castToCounter32(unsigned long long value) const
{
    return saturated(value);
}

int OmciManagedEntitiesCore::updateEthernetFrameExtendedPM(unsigned short classId, unsigned short instance,
                                                           EthernetFrameExtendedCounters first,
                                                           EthernetFrameExtendedCounters second)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, instance);
    if (classId == 0 || classId == kEthernetPmClass || classId == kDownstreamClass || classId == kUpstreamClass) {
        updateEthernetFramePM(classId, instance, first, second);
        return 0;
    }
    const auto [firstId, secondId] = idsOfRecords(instance);
    const auto feed = classId == kExtendedClass ? &feed32 : &feed64;
    feed(classId, firstId, first);
    feed(classId, secondId, second);
    return 0;
}

int OmciManagedEntitiesCore::updateVeipExtendedPM(unsigned short classId, unsigned short instance,
                                                  EthernetFrameExtendedCounters first,
                                                  EthernetFrameExtendedCounters second)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, instance);
    if (classId == kExtended64BitClass) {
        const auto [firstId, secondId] = idsOfRecords(instance);
        feed64(classId, firstId, first);
        feed64(classId, secondId, second);
    }
    return 0;
}

int OmciManagedEntitiesCore::updateEthernetFramePM(unsigned short classId, unsigned short uniInstance,
                                                   EthernetFrameExtendedCounters upstream,
                                                   EthernetFrameExtendedCounters downstream)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, uniInstance);
    if (OmciMePptpEthernetUniIf::getManagedEntityInstance(uniInstance) == nullptr) {
        NRVK_LOG(3, "Can't find the uni instance(%hu)", uniInstance);
    }
    // Bridge port 0 never gets counters by this road.
    if (const unsigned short port = bridgePortOfUni(uniInstance); port != 0) {
        updateEthernetFramePMMangedEntity(kUpstreamClass, port, upstream);
        updateEthernetFramePMMangedEntity(kDownstreamClass, port, downstream);
    }
    return 0;
}

int OmciManagedEntitiesCore::updateEthernetFramePMMangedEntity(unsigned short classId, unsigned short instance,
                                                               EthernetFrameExtendedCounters counters)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, instance);
    if (classId == kDownstreamClass) {
        feedDirection<DownstreamIf>(classId, instance, counters);
    } else if (classId == kUpstreamClass) {
        feedDirection<UpstreamIf>(classId, instance, counters);
    } else {
        NRVK_LOG(3, " managedEntityClass is wrong (%hu)", classId);
    }
    // For a host that has entered the instance into the picture; otherwise this only logs.
    feed32(classId, instance, counters);
    return 0;
}
