#include "DataPathTest.h"
#include "OmciMeVlanTaggingFilterDataIf.h"

namespace {

class VlanFilter : public DataPathTest
{
protected:
    VlanFilter() { EXPECT_EQ(create(84, 3), 0); }

    static OmciMeVlanTaggingFilterDataIf& filter()
    {
        return *OmciMeVlanTaggingFilterDataIf::getManagedEntityInstance(3);
    }
};

TEST_F(VlanFilter, NumberOfEntriesProvisionsThePortThatTheHardwareFinds)
{
    knownPorts[{5, 3}] = &bridgePort(8, 3, 7);
    during = [](const std::string&) { EXPECT_EQ(filter().getNumberOfEntries(OMCI_ACTION_GET), 2); };
    EXPECT_EQ(set(84, 3, 0x2000, 2), 0);
    EXPECT_EQ(takeCalls(), (Calls{"findMacBridgePortByTp(5, 3)", "provisionBridgePort(8)"}));
    EXPECT_TRUE(log.has(6, "Number of entries(2)"));
}

TEST_F(VlanFilter, UnknownPortFailsTheSetAndTheValueStays)
{
    bridgePort(3, 3, 7);
    EXPECT_EQ(set(84, 3, 0x2000, 2), -1);
    EXPECT_EQ(takeCalls(), Calls{"findMacBridgePortByTp(5, 3)"});
    EXPECT_TRUE(log.has(3, "MAC bridge port config data(3) not found"));
    EXPECT_EQ(getNumber(84, 3, 0x2000), 2U);
}

TEST_F(VlanFilter, ListAndForwardOperationAloneReachNobody)
{
    knownPorts[{5, 3}] = &bridgePort(3, 3, 7);
    const std::vector<unsigned char> list(24, 0x12);
    EXPECT_EQ(set(84, 3, 0x8000, list), 0);
    EXPECT_EQ(set(84, 3, 0x4000, 16), 0);
    EXPECT_EQ(adapter(84).applyConfigurationToHardwareForSet(3), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(get(84, 3, 0x8000), list);
}

TEST_F(VlanFilter, NumberOfEntriesIsNotBounded)
{
    knownPorts[{5, 3}] = &bridgePort(3, 3, 7);
    EXPECT_EQ(set(84, 3, 0x2000, 255), 0);
    EXPECT_EQ(getNumber(84, 3, 0x2000), 255U);
}

TEST_F(VlanFilter, EraseRemovesTheServiceOfThePortOfItsId)
{
    bridgePort(3, 3, 7);
    EXPECT_EQ(filter().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeBridgePortService(3)"});
}

TEST_F(VlanFilter, EraseAfterThePortHasGoneCallsNothing)
{
    bridgePort(4, 3, 7);
    EXPECT_EQ(filter().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(VlanFilter, WithoutHardwareThereIsNoPort)
{
    bridgePort(3, 3, 7);
    removeHardware();
    log.clear();
    EXPECT_EQ(set(84, 3, 0x2000, 2), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data(3) not found"));
    EXPECT_EQ(getNumber(84, 3, 0x2000), 2U);
    EXPECT_EQ(filter().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

}  // namespace
