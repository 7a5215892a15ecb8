#include "pm/PmSources.h"

#include <functional>
#include <map>
#include <numeric>

#include "MibAccess.h"
#include "OmciMeFactory.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "hardware/CounterReports.h"

namespace {
constexpr std::size_t kFrameCounters = 14;
constexpr unsigned short kDirectionBit = 0x80;
constexpr unsigned char kTpTypeEthernetUni = 1;

using Places = std::vector<std::size_t>;

Places from(std::size_t first, std::size_t count)
{
    Places places(count);
    std::iota(places.begin(), places.end(), first);
    return places;
}

/// The first record of a pair goes to the instance with the direction bit, the second to the one without.
Places ofPair(unsigned short instance)
{
    return from((instance & kDirectionBit) != 0 ? 0 : kFrameCounters, kFrameCounters);
}

/// Fields of GemPortCounters.
enum GemPlace : std::size_t
{
    kTransmittedFrames = 1,
    kReceivedFrames = 2,
    kReceivedBytes = 4,
    kTransmittedBytes = 5,
    kLostPackets = 6,
    kKeyErrors = 7
};

struct Layout
{
    unsigned short classId;
    Places (*places)(unsigned short instance);
};

constexpr std::size_t kNone = PmEntity::kNotCounted;

template <std::size_t first, std::size_t count>
Places part(unsigned short)
{
    return from(first, count);
}

const Layout kLayouts[] = {
    {24, [](unsigned short) { return Places(); }},  // no entry writes its counters
    {267,
     [](unsigned short) {
         return Places{kLostPackets, kNone, kReceivedFrames, kReceivedBytes, kTransmittedBytes, kNone};
     }},
    {276, part<0, 1>},
    {312, part<0, 5>},
    {321, part<kFrameCounters, kFrameCounters>},
    {322, part<0, kFrameCounters>},
    {334, ofPair},
    {341,
     [](unsigned short) {
         return Places{kTransmittedFrames, kReceivedFrames, kReceivedBytes, kTransmittedBytes, kKeyErrors};
     }},
    {425, ofPair},
    {65406, part<0, 13>},
    {65407, part<0, 8>},
    {65408, part<0, 6>},
    {65409, part<6, 14>},
    {65410, part<20, 11>},
    {65411, part<0, 13>},
    {65412, part<13, 13>},
    {65413, part<26, 8>},
    {65414, part<0, 3>},
};

std::optional<unsigned short> uniOfBridgePort(unsigned short instance)
{
    const auto* port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
    if (port == nullptr || port->getTpType(OMCI_ACTION_GET) != kTpTypeEthernetUni) {
        return std::nullopt;
    }
    return port->getTpPointer(OMCI_ACTION_GET);
}

std::optional<unsigned short> portIdOfCtp(unsigned short instance)
{
    const auto* ctp = OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(instance);
    if (ctp == nullptr || ctp->getPortId(OMCI_ACTION_GET) == ctp->getDefaultPortId()) {
        return std::nullopt;
    }
    return ctp->getPortId(OMCI_ACTION_GET);
}

std::optional<unsigned short> sourceInstance(unsigned short classId, unsigned short instance)
{
    switch (classId) {
    case 321:
    case 322:
        return uniOfBridgePort(instance);
    case 267:
    case 341:
        return portIdOfCtp(instance);
    default:
        return counterInstance(classId, instance);
    }
}

template <typename Record>
counters::Values told(const Json& json)
{
    Record record{};
    if (!json.is_null()) {
        values::from(json, record, "counters");
    }
    counters::Values all;
    counters::append(record, all);
    return all;
}

counters::Values toldFrames(const Json& json)
{
    const FrameCounters both = json.is_null() ? FrameCounters() : frameCounters(json, "counters");
    counters::Values all;
    counters::append(both.first, all);
    counters::append(both.second, all);
    return all;
}

const std::map<unsigned short, counters::Values (*)(const Json&)> kTold = {
    {24, toldFrames},
    {276, told<GalEthPMHistData>},
    {312, told<TwdmFecCounters>},
    {334, toldFrames},
    {341, told<GemPortCounters>},
    {425, toldFrames},
    {65406, told<TwdmPhyLodsCounters>},
    {65407, told<TwdmXgemCounters>},
    {65408, told<TwdmPloamCounters>},
    {65411, told<TwdmTuningCounters>},
    {65414, told<TwdmOmciCounters>},
};
}  // namespace

counters::Values PmEntity::valuesOf(const counters::Values& all) const
{
    counters::Values own;
    for (const std::size_t place : places) {
        own.push_back(place < all.size() ? all[place] : 0);
    }
    return own;
}

std::optional<PmEntity> pmEntity(unsigned short classId, unsigned short instance)
{
    for (const Layout& layout : kLayouts) {
        if (layout.classId == classId) {
            const auto source = sourceInstance(classId, instance);
            return source ? std::optional(
                                PmEntity{classId, instance, {counterFamily(classId), *source}, layout.places(instance)})
                          : std::nullopt;
        }
    }
    return std::nullopt;
}

std::vector<PmEntity> allPmEntities()
{
    std::vector<PmEntity> all;
    for (const Layout& layout : kLayouts) {
        const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(layout.classId);
        if (me == nullptr) {
            continue;
        }
        for (const unsigned short instance : mib::instancesOf(*me)) {
            if (auto entity = pmEntity(layout.classId, instance)) {
                all.push_back(std::move(*entity));
            }
        }
    }
    return all;
}

std::size_t counterCount(unsigned short family)
{
    return toldCounters(family, nullptr).size();
}

counters::Values toldCounters(unsigned short family, const Json& record)
{
    const auto found = kTold.find(family);
    return found == kTold.end() ? counters::Values() : found->second(record);
}
