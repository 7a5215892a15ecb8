// Counters of Ethernet ports and virtual Ethernet interface points.
#include "CoreTest.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf.h"
#include "OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf.h"
#include "OmciMeEthernetPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"

namespace {

using Core = OmciManagedEntitiesCore;
using UpstreamIf = OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamIf;
using DownstreamIf = OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamIf;

constexpr unsigned long long kMost32 = 0xFFFFFFFF;
constexpr unsigned long long kAbove32 = 0x100000000;
const char* const kMasks[14] = {"0x2000", "0x1000", "0x800", "0x400", "0x200", "0x100", "0x80",
                                "0x40",   "0x20",   "0x10",  "0x8",   "0x4",   "0x2",   "0x1"};

/// Fourteen counters from `first` up.
EthernetFrameExtendedCounters counters(unsigned long long first)
{
    EthernetFrameExtendedCounters record{};
    std::uint64_t* field = &record.dropEvents;
    for (unsigned int i = 0; i < 14; ++i) {
        field[i] = first + i;
    }
    return record;
}

class EthernetCounters : public CoreTest
{
protected:
    EthernetCounters() { startUp(); }

    /// What the picture must have been asked to write for counters(first).
    static Texts writes(const std::string& classAndInstance, unsigned long long first, unsigned long long most = ~0ULL)
    {
        Texts expected;
        for (unsigned int i = 0; i < 14; ++i) {
            expected.push_back(classAndInstance + "; " + kMasks[i] + " = " + std::to_string(std::min(first + i, most)));
        }
        return expected;
    }

    static Texts joined(Texts first, const Texts& second)
    {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    void addPm(unsigned short classId, unsigned short instance)
    {
        StartupConfigManagedEntity record;
        core.getDefaultConfigManagedEntity(classId, instance, record);
        log.clear();
    }

    void addBridgePort(unsigned short instance, unsigned char tpType, unsigned short tpPointer)
    {
        create(47, instance);
        auto* port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
        port->setTpType(tpType);
        port->setTpPointer(tpPointer);
    }

    void addDirections(unsigned short instance)
    {
        create(322, instance);
        create(321, instance);
        log.clear();
    }

    void addUni(unsigned short instance)
    {
        registrar().createManagedEntityInstance(11, instance);
        adapter(11);
    }

    Core core;
};

TEST_F(EthernetCounters, NarrowingSaturates)
{
    EXPECT_EQ(core.castToCounter32(0), 0U);
    EXPECT_EQ(core.castToCounter32(kMost32 - 1), kMost32 - 1);
    EXPECT_EQ(core.castToCounter32(kMost32), kMost32);
    EXPECT_EQ(core.castToCounter32(kAbove32), kMost32);
    EXPECT_EQ(core.castToCounter32(~0ULL), kMost32);
}

TEST_F(EthernetCounters, FirstRecordGoesToTheIdWithTheBit)
{
    addPm(334, 0x0181);
    addPm(334, 0x0101);
    for (const unsigned short named : {0x0101, 0x0181}) {
        log.clear();
        EXPECT_EQ(core.updateEthernetFrameExtendedPM(334, named, counters(100), counters(200)), 0);
        EXPECT_EQ(updates(), joined(writes("334; 385", 100), writes("334; 257", 200))) << named;
    }
    EXPECT_EQ(stored(334, 0x0181, 0x2000), (Bytes{0, 0, 0, 100}));
    EXPECT_EQ(stored(334, 0x0101, 0x1), (Bytes{0, 0, 0, 213}));
}

TEST_F(EthernetCounters, ThirtyTwoBitClassSaturates)
{
    addPm(334, 0x0181);
    addPm(334, 0x0101);
    core.updateEthernetFrameExtendedPM(334, 0x0101, counters(kMost32 - 2), counters(0));
    EXPECT_EQ(updates(), joined(writes("334; 385", kMost32 - 2, kMost32), writes("334; 257", 0)));
    EXPECT_EQ(stored(334, 0x0181, 0x1), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST_F(EthernetCounters, SixtyFourBitClassIsNotNarrowed)
{
    addPm(425, 0x0181);
    addPm(425, 0x0101);
    EXPECT_EQ(core.updateEthernetFrameExtendedPM(425, 0x0181, counters(kAbove32), counters(7)), 0);
    EXPECT_EQ(updates(), joined(writes("425; 385", kAbove32), writes("425; 257", 7)));
    EXPECT_EQ(stored(425, 0x0181, 0x2000), (Bytes{0, 0, 0, 1, 0, 0, 0, 0}));
}

TEST_F(EthernetCounters, OtherClassIsFedWideToo)
{
    core.updateEthernetFrameExtendedPM(9999, 0x0001, counters(kAbove32), counters(7));
    EXPECT_EQ(updates(), joined(writes("9999; 129", kAbove32), writes("9999; 1", 7)));
}

TEST_F(EthernetCounters, FeedOfAMissingEntityIsNoFailure)
{
    log.clear();
    EXPECT_EQ(core.updateEthernetFrameExtendedPM(334, 0x0101, counters(0), counters(0)), 0);
    EXPECT_TRUE(log.has(3, "Failed to update managed entity(334; 385; 0x2000)"));
}

TEST_F(EthernetCounters, VeipFeedIsOfThe64BitClassOnly)
{
    addPm(425, 0x0281);
    addPm(425, 0x0201);
    EXPECT_EQ(core.updateVeipExtendedPM(425, 0x0201, counters(kAbove32), counters(7)), 0);
    EXPECT_EQ(updates(), joined(writes("425; 641", kAbove32), writes("425; 513", 7)));
    for (const unsigned short other : {334, 0, 24, 321, 322}) {
        log.clear();
        EXPECT_EQ(core.updateVeipExtendedPM(other, 0x0201, counters(1), counters(2)), 0);
        EXPECT_TRUE(updates().empty()) << other;
    }
}

TEST_F(EthernetCounters, UniFeedWritesTheDirectionsOfItsBridgePort)
{
    addUni(257);
    addBridgePort(5, 1, 300);
    addBridgePort(6, 3, 257);
    addBridgePort(7, 1, 257);
    addBridgePort(8, 1, 257);
    addDirections(7);
    create(24, 257);
    for (const unsigned short classId : {0, 24, 321, 322}) {
        log.clear();
        EXPECT_EQ(core.updateEthernetFrameExtendedPM(classId, 257, counters(100u + classId), counters(200)), 0);
        EXPECT_EQ(updates(), joined(writes("322; 7", 100u + classId), writes("321; 7", 200))) << classId;
        EXPECT_EQ(UpstreamIf::getManagedEntityInstance(7)->getDropEvents(OMCI_ACTION_GET), 100u + classId);
        EXPECT_EQ(DownstreamIf::getManagedEntityInstance(7)->getDropEvents(OMCI_ACTION_GET), 200U);
    }
    EXPECT_EQ(
        OmciMeEthernetPerformanceMonitoringHistoryDataIf::getManagedEntityInstance(257)->getFcsErrors(OMCI_ACTION_SET),
        0U);
    EXPECT_FALSE(log.has(3, "Can't find the uni instance(257)"));
}

TEST_F(EthernetCounters, EachFieldHasItsAttribute)
{
    addDirections(7);
    core.updateEthernetFramePMMangedEntity(322, 7, counters(10));
    const UpstreamIf& pm = *UpstreamIf::getManagedEntityInstance(7);
    const unsigned int values[] = {pm.getDropEvents(OMCI_ACTION_GET),
                                   pm.getOctets(OMCI_ACTION_GET),
                                   pm.getPackets(OMCI_ACTION_GET),
                                   pm.getBroadcastPackets(OMCI_ACTION_GET),
                                   pm.getMulticastPackets(OMCI_ACTION_GET),
                                   pm.getCrcErroredPackets(OMCI_ACTION_GET),
                                   pm.getUndersizePackets(OMCI_ACTION_GET),
                                   pm.getOversizePackets(OMCI_ACTION_GET),
                                   pm.getPackets_64_Octets(OMCI_ACTION_GET),
                                   pm.getPackets_65_To_127_Octets(OMCI_ACTION_GET),
                                   pm.getPackets_128_To_255_Octets(OMCI_ACTION_GET),
                                   pm.getPackets_256_To_511_Octets(OMCI_ACTION_GET),
                                   pm.getPackets_512_To_1023_Octets(OMCI_ACTION_GET),
                                   pm.getPackets_1024_To_1518_Octets(OMCI_ACTION_GET)};
    for (unsigned int i = 0; i < 14; ++i) {
        EXPECT_EQ(values[i], 10 + i) << i;
    }
}

TEST_F(EthernetCounters, DirectionsLogTheirPairs)
{
    addDirections(7);
    core.updateEthernetFramePMMangedEntity(321, 7, counters(10));
    EXPECT_TRUE(log.has(6, "found  the downstream  instance(7) of managedEntityClass (321)"));
    const Texts pairs = log.texts(7);
    ASSERT_EQ(pairs.size(), 7U);
    EXPECT_EQ(pairs[0], "castToCounter32(it->dropEvents) (10) castToCounter32(it->octets) (11)");
    EXPECT_EQ(pairs[6], "castToCounter32(it->frames512To1023Octets) (22) "
                        "castToCounter32(it->frames1024To1518Octets) (23)");
    core.updateEthernetFramePMMangedEntity(322, 7, counters(10));
    EXPECT_TRUE(log.has(6, "found  the downstream  instance(7) of managedEntityClass (322)"));
}

TEST_F(EthernetCounters, DirectionsSaturate)
{
    addDirections(7);
    core.updateEthernetFramePMMangedEntity(321, 7, counters(kAbove32));
    EXPECT_EQ(DownstreamIf::getManagedEntityInstance(7)->getOctets(OMCI_ACTION_GET), kMost32);
}

TEST_F(EthernetCounters, MissingDirectionIsLoggedAndOfferedToThePicture)
{
    for (const unsigned short classId : {321, 322}) {
        log.clear();
        EXPECT_EQ(core.updateEthernetFramePMMangedEntity(classId, 7, counters(10)), 0);
        EXPECT_TRUE(log.has(3, "can't find the downstream  instance(7) of managedEntityClass (" +
                                   std::to_string(classId) + ")"));
        EXPECT_EQ(updates(), writes(std::to_string(classId) + "; 7", 10));
    }
}

TEST_F(EthernetCounters, WrongDirectionClassIsLoggedAndOfferedToThePicture)
{
    log.clear();
    EXPECT_EQ(core.updateEthernetFramePMMangedEntity(24, 7, counters(10)), 0);
    EXPECT_TRUE(log.has(3, " managedEntityClass is wrong (24)"));
    EXPECT_EQ(updates(), writes("24; 7", 10));
}

TEST_F(EthernetCounters, UniWithoutABridgePortChangesNothing)
{
    log.clear();
    EXPECT_EQ(core.updateEthernetFramePM(24, 257, counters(1), counters(2)), 0);
    EXPECT_EQ(log.texts(3), Texts{"Can't find the uni instance(257)"});
    EXPECT_TRUE(updates().empty());
}

TEST_F(EthernetCounters, BridgePortWithoutItsUniIsStillFed)
{
    addBridgePort(7, 1, 257);
    addDirections(7);
    EXPECT_EQ(core.updateEthernetFramePM(24, 257, counters(1), counters(2)), 0);
    EXPECT_TRUE(log.has(3, "Can't find the uni instance(257)"));
    EXPECT_EQ(UpstreamIf::getManagedEntityInstance(7)->getDropEvents(OMCI_ACTION_GET), 1U);
}

TEST_F(EthernetCounters, BridgePortZeroIsNeverFed)
{
    addUni(257);
    addBridgePort(0, 1, 257);
    addBridgePort(7, 1, 257);
    addDirections(0);
    log.clear();
    EXPECT_EQ(core.updateEthernetFramePM(24, 257, counters(1), counters(2)), 0);
    EXPECT_TRUE(updates().empty());
}

}  // namespace
