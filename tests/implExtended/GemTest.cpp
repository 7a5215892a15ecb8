#include "DataPathTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeTContIf.h"
#include "implExtended/OmciMeGemInterworkingTpImplExtended.h"

namespace {

constexpr unsigned short kCountedMasks[] = {0x8000, 0x4000, 0x2000, 0x1000, 0x200};

class GemInterworkingTp : public DataPathTest
{
protected:
    static void createWithAllAttributes()
    {
        ASSERT_EQ(create(266, 9), 0);
        for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x1000, 0x800, 0x200}) {
            ASSERT_EQ(set(266, 9, mask, 1), 0);
        }
    }
    static OmciMeGemInterworkingTpIf& tp() { return *OmciMeGemInterworkingTpIf::getManagedEntityInstance(9); }
};

class TCont : public DataPathTest
{
protected:
    static OmciMeTContIf& tCont(unsigned short allocId)
    {
        auto& entity = own<OmciMeTContIf>(262, 0x100);
        entity.setAllocId(allocId);
        return entity;
    }
};

TEST_F(GemInterworkingTp, IsProvisionedByTheFifthCountedAttribute)
{
    ASSERT_EQ(create(266, 9), 0);
    EXPECT_TRUE(log.has(6, "No. of SetByCreateAttrubutes (5)"));
    for (const unsigned short mask : kCountedMasks) {
        EXPECT_EQ(takeCalls(), Calls{}) << mask;
        EXPECT_EQ(set(266, 9, mask, 3), 0);
    }
    EXPECT_EQ(takeCalls(), Calls{"provisionGemInterworkingTp(9)"});
}

TEST_F(GemInterworkingTp, LastAttributeCanBeReadWhileItIsProvisioned)
{
    ASSERT_EQ(create(266, 9), 0);
    during = [](const std::string&) { EXPECT_EQ(tp().getGalProfilePointer(OMCI_ACTION_GET), 3); };
    for (const unsigned short mask : kCountedMasks) {
        set(266, 9, mask, 3);
    }
    EXPECT_EQ(takeCalls().size(), 1U);
}

TEST_F(GemInterworkingTp, LaterSetOnlyStores)
{
    createWithAllAttributes();
    takeCalls();
    for (const unsigned short mask : {0x1000, 0x200, 0x8000, 0x4000, 0x2000, 0x1000}) {
        EXPECT_EQ(set(266, 9, mask, 77), 0);
        EXPECT_EQ(getNumber(266, 9, mask), 77U);
    }
    EXPECT_EQ(adapter(266).applyConfigurationToHardwareForSet(9), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(GemInterworkingTp, LoopbackConfigAndPptpCounterDoNotCount)
{
    ASSERT_EQ(create(266, 9), 0);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(set(266, 9, 0x100, 1), 0);
        EXPECT_EQ(tp().setPptpCounter(4), 0);
    }
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(set(266, 9, 0x8000, 1), 0);
    }
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(set(266, 9, 0x8000, 1), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionGemInterworkingTp(9)"});
}

TEST_F(GemInterworkingTp, EachCountedAttributeLogsTheCount)
{
    ASSERT_EQ(create(266, 9), 0);
    char text[100];
    for (unsigned int count = 1; count <= 6; ++count) {
        set(266, 9, 0x4000, 1);
        const void* entity = static_cast<OmciMeGemInterworkingTpImplExtended*>(&tp());
        std::snprintf(text, sizeof text, "this(%p), No. of set_by_create attributes set so far(%u)", entity, count);
        EXPECT_TRUE(log.has(6, text)) << text;
    }
}

TEST_F(GemInterworkingTp, WithoutAnAdapterItNeedsMoreAttributesThanThereAre)
{
    OmciMeGemInterworkingTpImplExtended entity(9, true);
    EXPECT_TRUE(log.has(6, "No. of SetByCreateAttrubutes (65535)"));
    for (int i = 0; i < 1000; ++i) {
        entity.setGalProfilePointer(1);
    }
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(GemInterworkingTp, EraseRemovesIt)
{
    createWithAllAttributes();
    takeCalls();
    EXPECT_EQ(adapter(266).deleteManagedEntityInstance(9, true), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeGemInterworkingTp(9)"});
}

TEST_F(GemInterworkingTp, WithoutHardwareEachSkippedCallIsLogged)
{
    removeHardware();
    createWithAllAttributes();
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(tp().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(TCont, GoesWhileItsOldAllocIdCanStillBeRead)
{
    for (const unsigned short unassigned : {0x00FF, 0xFFFF}) {
        OmciMeTContIf& entity = tCont(300);
        takeCalls();
        during = [&](const std::string&) { EXPECT_EQ(entity.getAllocId(OMCI_ACTION_GET), 300); };
        EXPECT_EQ(set(262, 0x100, 0x8000, unassigned), 0);
        EXPECT_EQ(takeCalls(), Calls{"removeTCont(256)"});
        EXPECT_EQ(entity.getAllocId(OMCI_ACTION_GET), unassigned);
    }
}

TEST_F(TCont, SameUnassignedAllocIdAgainCallsNothing)
{
    for (const unsigned short unassigned : {0xFFFF, 0x00FF}) {
        tCont(unassigned);
        takeCalls();
        EXPECT_EQ(set(262, 0x100, 0x8000, unassigned), 0);
        EXPECT_EQ(takeCalls(), Calls{});
    }
}

TEST_F(TCont, OneUnassignedAllocIdForTheOtherIsAChange)
{
    tCont(0xFFFF);
    takeCalls();
    EXPECT_EQ(set(262, 0x100, 0x8000, 0x00FF), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeTCont(256)"});
}

TEST_F(TCont, AssignedAllocIdCallsNothing)
{
    OmciMeTContIf& entity = tCont(0xFFFF);
    for (const unsigned short allocId : {300, 301, 0xFE, 0x100, 0xFFFE}) {
        EXPECT_EQ(set(262, 0x100, 0x8000, allocId), 0);
        EXPECT_EQ(entity.getAllocId(OMCI_ACTION_GET), allocId);
    }
    EXPECT_EQ(set(262, 0x100, 0x2000, 2), 0);
    EXPECT_EQ(adapter(262).applyConfigurationToHardwareForSet(0x100), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(TCont, EraseRemovesAnAssignedOneOnly)
{
    const std::pair<unsigned short, Calls> cases[] = {
        {0xFF, {}}, {0xFFFF, {}}, {300, {"removeTCont(256)"}}, {0, {"removeTCont(256)"}}};
    for (const auto& [allocId, expected] : cases) {
        OmciMeTContIf& entity = tCont(allocId);
        takeCalls();
        EXPECT_EQ(entity.eraseConfigurationFromHardware(), 0);
        EXPECT_EQ(takeCalls(), expected) << allocId;
    }
}

TEST_F(TCont, WithoutHardwareTheAllocIdIsStored)
{
    OmciMeTContIf& entity = tCont(300);
    removeHardware();
    EXPECT_EQ(set(262, 0x100, 0x8000, 0xFFFF), 0);
    EXPECT_EQ(entity.getAllocId(OMCI_ACTION_GET), 0xFFFF);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

using Texts = OmciManagedEntitiesCore::AttributeValues;

std::string text(Texts& values, unsigned int row)
{
    return reinterpret_cast<const char*>(values[row]);
}

class TrafficManagement : public DataPathTest
{
protected:
    /// Eight T-CONTs of eight queues and one Ethernet UNI of two, as the totals come out of the board's counts.
    TrafficManagement()
    {
        OmciManagedEntitiesCore::TOTAL_UPSTREAM_PRIORITY_QUEUES = 64;
        OmciManagedEntitiesCore::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER = 64;
    }
};

TEST_F(TrafficManagement, RelatedPortCountsDownWithinATContAndUpWithinAUni)
{
    const std::pair<unsigned char, const char*> cases[] = {
        {0, "16777223"}, {7, "16777216"}, {8, "16842759"}, {64, "16842752"}, {65, "16842753"}};
    for (const auto& [index, expected] : cases) {
        Texts values{};
        OmciManagedEntitiesCore::updatePriorityQueue(index, values, "");
        EXPECT_EQ(text(values, 5), expected) << +index;
    }
}

TEST_F(TrafficManagement, EightSchedulersShareATCont)
{
    for (unsigned char index = 0; index < 64; ++index) {
        Texts values{};
        OmciManagedEntitiesCore::updateTrafficScheduler(index, values, "");
        EXPECT_EQ(text(values, 0), std::to_string(256 + index / 8)) << +index;
    }
    Texts values{};
    OmciManagedEntitiesCore::updateTrafficScheduler(64, values, "");
    EXPECT_EQ(text(values, 0), "0");
}

TEST_F(TrafficManagement, UpstreamInstancesCarryTheTopBit)
{
    using Core = OmciManagedEntitiesCore;
    EXPECT_EQ(Core::instanceTCont(7), 0x107);
    EXPECT_EQ(Core::instanceTrafficScheduler(63), 0x803F);
    EXPECT_EQ(Core::instancePriorityQueue(0), 0x8000);
    EXPECT_EQ(Core::instancePriorityQueue(63), 0x803F);
    EXPECT_EQ(Core::instancePriorityQueue(64), 0);
    EXPECT_EQ(Core::instancePriorityQueue(65), 1);
}

}  // namespace
