// PM of GEM ports, the GAL and FEC.
#include "OmciManagedEntitiesCore.h"
#include "OmciMeFecPMHistoryDataIf.h"
#include "PmTest.h"

namespace {

constexpr unsigned short kCtpPm = 341;
constexpr unsigned short kPortPm = 267;
constexpr unsigned short kFec = 312;
constexpr unsigned short kGal = 276;

class GemPortPm : public PmTest, public ::testing::WithParamInterface<unsigned short>
{
protected:
    void SetUp() override
    {
        create(GetParam(), kInstance);
        calls.clear();
        log.clear();
    }

    static int read(EnumOmciAction action)
    {
        const attributeDefinition definition = definitionOf(GetParam(), kFirstCounter);
        unsigned char buffer[16] = {};
        return adapter(GetParam()).getAttribute(kInstance, &definition, buffer, action);
    }
};

TEST_P(GemPortPm, MissingCtpFailsWithoutARefresh)
{
    for (const EnumOmciAction action : kActions) {
        log.clear();
        EXPECT_EQ(read(action), -1);
        EXPECT_TRUE(log.has(3, "Gem Port Network CTP Instance (257) not found"));
    }
    EXPECT_EQ(calls, Calls());
}

TEST_P(GemPortPm, CtpWithoutAPortIdFailsWithoutARefresh)
{
    OmciMeGemPortNetworkCtpIf::createManagedEntityInstance(kInstance, true);
    for (const EnumOmciAction action : kActions) {
        log.clear();
        EXPECT_EQ(read(action), -1);
        EXPECT_TRUE(log.has(3, "Gem Port Network CTP(257) port id (0)"));
    }
    EXPECT_EQ(calls, Calls());
}

TEST_P(GemPortPm, RefreshIsKeyedByPortIdOfTheMoment)
{
    makeParents();
    EXPECT_EQ(read(OMCI_ACTION_GET), 0);
    OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(kInstance)->setPortId(4095);
    EXPECT_EQ(read(OMCI_ACTION_GET_CURRENT_DATA), 0);
    EXPECT_EQ(calls, (Calls{callText("refreshGemPortCounters", GetParam(), 1234, 2),
                            callText("refreshGemPortCounters", GetParam(), 4095, 1)}));
}

TEST_P(GemPortPm, WholeGetRefreshesForEachAttribute)
{
    makeParents();
    const std::list<attributeDefinition> attributes = readable(GetParam());
    calls.clear();
    for (const attributeDefinition& definition : attributes) {
        get(GetParam(), kInstance, definition.attributeMask);
    }
    EXPECT_EQ(calls, Calls(attributes.size(), callText("refreshGemPortCounters", GetParam(), 1234, 2)));
}

TEST_P(GemPortPm, RefreshThatFeedsIsReadInTheSameGet)
{
    makeParents();
    ON_CALL(hardware, refreshGemPortCounters).WillByDefault([](unsigned short, unsigned short portId, unsigned int) {
        GemPortCounters counters{};
        counters.transmittedFrames = 55;
        counters.lostPackets = 55;
        return OmciManagedEntitiesCore().updateGemPortNetworkCtpPM(0, portId, counters);
    });
    EXPECT_EQ(getNumber(GetParam(), kInstance, kFirstCounter), 55U);
}

INSTANTIATE_TEST_SUITE_P(Classes, GemPortPm, ::testing::Values(kCtpPm, kPortPm),
                         [](const auto& row) { return std::to_string(row.param); });

class FecPm : public PmTest
{};

TEST_F(FecPm, MibResetResetsTheCounters)
{
    create(kFec, kInstance);
    calls.clear();
    OmciMeFecPMHistoryDataIf::eraseAllManagedEntityInstance();
    EXPECT_EQ(calls, Calls{"resetFecCounters(312,3)"});
    EXPECT_EQ(OmciMeFecPMHistoryDataIf::getManagedEntityInstance(kInstance), nullptr);
}

TEST_F(FecPm, DeleteWithoutHardwareStillDeletes)
{
    create(kFec, kInstance);
    removeHardware();
    log.clear();
    EXPECT_EQ(adapter(kFec).deleteManagedEntityInstance(kInstance, true), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);  // the reset and the notice
    EXPECT_EQ(OmciMeFecPMHistoryDataIf::getManagedEntityInstance(kInstance), nullptr);
}

TEST_F(FecPm, RefreshThatFeedsIsReadInTheSameGet)
{
    startUp();
    create(kFec, kInstance);
    ON_CALL(hardware, refreshFecCounters).WillByDefault([](unsigned short instance, unsigned int statsAction) {
        const unsigned short seconds = statsAction == 2 ? 900 : 30;
        return OmciManagedEntitiesCore().updateTwdmFecStats(instance, {1, 2, 3, 4, seconds});
    });
    EXPECT_EQ(getNumber(kFec, kInstance, 0x0200), 900U);
    EXPECT_EQ(getNumber(kFec, kInstance, 0x0200, OMCI_ACTION_GET_CURRENT_DATA), 30U);
}

class GalPm : public PmTest
{};

TEST_F(GalPm, RefreshThatFeedsIsReadInTheSameGet)
{
    startUp();
    create(kGal, kInstance);
    ON_CALL(hardware, refreshGalEthernetPm).WillByDefault([](EnumOmciAction, unsigned short instance) {
        return OmciManagedEntitiesCore().updateGalEthPmHistData(instance, {31});
    });
    EXPECT_EQ(getNumber(kGal, kInstance, kFirstCounter), 31U);
}

class BridgePm : public PmTest
{};

TEST_F(BridgePm, NoFeedWritesIt)
{
    startUp();
    makeParents();
    for (const unsigned short classId : {51, 52}) {
        create(classId, kInstance);
        EthernetFrameExtendedCounters counters{};
        counters.dropEvents = counters.octets = 5;
        OmciManagedEntitiesCore().updateEthernetFrameExtendedPM(24, kUni, counters, counters);
        for (const attributeDefinition& definition : readable(classId)) {
            EXPECT_EQ(getNumber(classId, kInstance, definition.attributeMask), 0U);
        }
    }
}

}  // namespace
