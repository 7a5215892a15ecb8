// Counters of GEM ports, of the GAL and of FEC.
#include "CoreTest.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf.h"
#include "OmciMeGemPortPMHistoryDataIf.h"

namespace {

using Core = OmciManagedEntitiesCore;
using CtpPmIf = OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataIf;
using PortPmIf = OmciMeGemPortPMHistoryDataIf;

constexpr GemPortCounters kCounters = {1, 2, 3, 4, 0x500000006, 0x700000008, 9, 10};

class GemCounters : public CoreTest
{
protected:
    GemCounters() { startUp(); }

    void addCtp(unsigned short instance, unsigned short portId)
    {
        create(268, instance);
        OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(instance)->setPortId(portId);
    }

    Core core;
};

TEST_F(GemCounters, CtpHistoryTakesItsFiveCounters)
{
    addCtp(0x0401, 1000);
    create(341, 0x0401);
    log.clear();
    EXPECT_EQ(core.updateGemPortNetworkCtpPM(1, 1000, kCounters), 0);
    const CtpPmIf& pm = *CtpPmIf::getManagedEntityInstance(0x0401);
    EXPECT_EQ(pm.getTransmittedGemFrames(OMCI_ACTION_GET), 2U);
    EXPECT_EQ(pm.getReceivedGemFrames(OMCI_ACTION_GET), 3U);
    EXPECT_EQ(pm.getReceivedPayloadBytes(OMCI_ACTION_GET), 0x500000006U);
    EXPECT_EQ(pm.getTransmittedPayloadBytes(OMCI_ACTION_GET), 0x700000008U);
    EXPECT_EQ(pm.getEncryptionKeyErrors(OMCI_ACTION_GET), 10U);
    EXPECT_TRUE(log.has(3, "Updating the Gem Port PM counters"));
    EXPECT_TRUE(updates().empty()) << "the setters are called, and not the registrar";
}

TEST_F(GemCounters, PortHistoryTakesFourCountersCutTo32Bits)
{
    addCtp(0x0401, 1000);
    create(267, 0x0401);
    log.clear();
    EXPECT_EQ(core.updateGemPortNetworkCtpPM(1, 1000, kCounters), 0);
    const PortPmIf& pm = *PortPmIf::getManagedEntityInstance(0x0401);
    EXPECT_EQ(pm.getReceivedPackets(OMCI_ACTION_GET), 3U);
    EXPECT_EQ(pm.getReceivedBlocks(OMCI_ACTION_GET), 6U);
    EXPECT_EQ(pm.getTransmittedBlocks(OMCI_ACTION_GET), 8U);
    EXPECT_EQ(pm.getLostPackets(OMCI_ACTION_GET), 9U);
    EXPECT_EQ(pm.getMisinsertedPackets(OMCI_ACTION_GET), 0U);
    EXPECT_EQ(pm.getImpairedBlocks(OMCI_ACTION_GET), 0U);
    EXPECT_TRUE(log.has(3, "Updating the Gem Port PM counters"));
}

TEST_F(GemCounters, CtpHistoryWinsOverPortHistory)
{
    addCtp(0x0401, 1000);
    create(341, 0x0401);
    create(267, 0x0401);
    core.updateGemPortNetworkCtpPM(1, 1000, kCounters);
    EXPECT_EQ(CtpPmIf::getManagedEntityInstance(0x0401)->getReceivedGemFrames(OMCI_ACTION_GET), 3U);
    EXPECT_EQ(PortPmIf::getManagedEntityInstance(0x0401)->getReceivedPackets(OMCI_ACTION_GET), 0U);
}

TEST_F(GemCounters, FirstCtpOfThePortWithAHistoryIsWritten)
{
    addCtp(0x0401, 1000);
    addCtp(0x0402, 1001);
    addCtp(0x0403, 1000);
    addCtp(0x0404, 1000);
    create(341, 0x0402);
    create(267, 0x0403);
    create(341, 0x0404);
    core.updateGemPortNetworkCtpPM(1, 1000, kCounters);
    EXPECT_EQ(CtpPmIf::getManagedEntityInstance(0x0402)->getReceivedGemFrames(OMCI_ACTION_GET), 0U);
    EXPECT_EQ(PortPmIf::getManagedEntityInstance(0x0403)->getReceivedPackets(OMCI_ACTION_GET), 3U);
    EXPECT_EQ(CtpPmIf::getManagedEntityInstance(0x0404)->getReceivedGemFrames(OMCI_ACTION_GET), 0U);
}

TEST_F(GemCounters, PortWithoutACtpChangesNothing)
{
    create(341, 0x0401);
    log.clear();
    EXPECT_EQ(core.updateGemPortNetworkCtpPM(0x0401, 1000, kCounters), 0);
    EXPECT_TRUE(log.texts(3).empty());
    EXPECT_EQ(CtpPmIf::getManagedEntityInstance(0x0401)->getReceivedGemFrames(OMCI_ACTION_GET), 0U);
}

TEST_F(GemCounters, GalHistoryTakesDiscardedFrames)
{
    StartupConfigManagedEntity record;
    core.getDefaultConfigManagedEntity(276, 3, record);
    log.clear();
    EXPECT_EQ(core.updateGalEthPmHistData(3, {0x01020304}), 0);
    EXPECT_EQ(updates(), Texts{"276; 3; 0x2000 = 16909060"});
    EXPECT_EQ(stored(276, 3, 0x2000), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(core.updateGalEthPmHistData(4, {1}), 0);
}

TEST_F(GemCounters, FecHistoryTakesFourCountersAndTheSeconds)
{
    StartupConfigManagedEntity record;
    core.getDefaultConfigManagedEntity(312, 0x8001, record);
    log.clear();
    EXPECT_EQ(core.updateTwdmFecStats(0x8001, {1, 2, 3, 4, 0x0506}), 0);
    EXPECT_EQ(updates(), (Texts{"312; 32769; 0x2000 = 1", "312; 32769; 0x1000 = 2", "312; 32769; 0x800 = 3",
                                "312; 32769; 0x400 = 4", "312; 32769; 0x200 = 1286"}));
    EXPECT_EQ(stored(312, 0x8001, 0x400), (Bytes{0, 0, 0, 4}));
    EXPECT_EQ(stored(312, 0x8001, 0x200), (Bytes{5, 6}));
    EXPECT_EQ(core.updateTwdmFecStats(1, {}), 0);
}

}  // namespace
