// PM of Ethernet ports: the control block, the parents and the refreshes that need one.
#include "OmciManagedEntitiesCore.h"
#include "OmciMePptpEthernetUniIf.h"
#include "OmciMeVirtualEthernetInterfacePointIf.h"
#include "PmTest.h"

namespace {

constexpr unsigned short kExtended = 334;
constexpr unsigned short kExtended64Bit = 425;
constexpr unsigned short kUpstream = 322;
constexpr unsigned short kDownstream = 321;
constexpr unsigned short kControlBlock = 0x4000;
constexpr unsigned short kOctets = 0x1000;

using Bytes = std::vector<unsigned char>;

class ExtendedEthernetPm : public PmTest
{
protected:
    void SetUp() override
    {
        create(kExtended, kInstance);
        create(kExtended64Bit, kInstance);
        for (const unsigned short uni : {0x0101, 0x0102}) {
            OmciMePptpEthernetUniIf::createManagedEntityInstance(uni, false);
        }
        calls.clear();
        log.clear();
    }

    static Bytes block(unsigned short parentClass, unsigned char high, unsigned char low)
    {
        Bytes bytes(16);
        bytes[2] = static_cast<unsigned char>(parentClass >> 8);
        bytes[3] = static_cast<unsigned char>(parentClass);
        bytes[4] = high;
        bytes[5] = low;
        return bytes;
    }

    static Bytes continuous()
    {
        Bytes bytes(16);
        bytes[11] = 0x01;
        return bytes;
    }

    /// Parent class, UNI and VEIP as the 64-bit adapter tells them, from its two calls.
    Calls parentsOf64Bit(const Bytes& controlBlock)
    {
        EXPECT_EQ(set(kExtended64Bit, kInstance, kControlBlock, controlBlock), 0);
        return callsOfGet(kExtended64Bit, kControlBlock, OMCI_ACTION_GET);
    }

    static Calls refreshes64Bit(unsigned short parentClass, unsigned short uni, unsigned short veip)
    {
        return {callText("refreshEthernetFrameCounters", 425, kInstance, 2, parentClass, uni),
                callText("refreshEthernetFrameCounters64", 425, kInstance, 2, parentClass, veip)};
    }
};

TEST_F(ExtendedEthernetPm, ThirtyTwoBitParentIsMadeOfOneByteTwice)
{
    EXPECT_EQ(set(kExtended, kInstance, kControlBlock, block(11, 0x01, 0x02)), 0);
    EXPECT_EQ(log.texts(3), std::vector<std::string>());  // UNI 0x0101
    EXPECT_TRUE(log.has(6, "Parent instance(257)"));
    EXPECT_EQ(set(kExtended, kInstance, kControlBlock, block(11, 0x02, 0x01)), 0);
    EXPECT_EQ(log.texts(3),
              std::vector<std::string>{"Me instance 514 is not available in the OMCI_PPTPETHERNETUNI class"});
}

TEST_F(ExtendedEthernetPm, SixtyFourBitParentIsReadWhole)
{
    EXPECT_EQ(parentsOf64Bit(block(11, 0x01, 0x02)), refreshes64Bit(11, 0x0102, 0xFFFF));
    EXPECT_EQ(log.texts(3), std::vector<std::string>());
}

TEST_F(ExtendedEthernetPm, MissingUniIsLoggedAndTheFormerParentStays)
{
    EXPECT_EQ(parentsOf64Bit(block(11, 0x01, 0x02)), refreshes64Bit(11, 0x0102, 0xFFFF));
    EXPECT_EQ(parentsOf64Bit(block(11, 0x01, 0x09)), refreshes64Bit(11, 0x0102, 0xFFFF));
    EXPECT_EQ(log.texts(3),
              std::vector<std::string>{"Me instance 265 is not available in the OMCI_PPTPETHERNETUNI class"});
}

TEST_F(ExtendedEthernetPm, VeipNeedNotExist)
{
    EXPECT_EQ(parentsOf64Bit(block(329, 0x02, 0x01)), refreshes64Bit(329, 0xFFFF, 0x0201));
    EXPECT_EQ(log.texts(3), std::vector<std::string>());
    EXPECT_TRUE(log.has(6, "Instance(513) not found"));
}

TEST_F(ExtendedEthernetPm, UniAndVeipAreKeptApart)
{
    EXPECT_EQ(parentsOf64Bit(block(11, 0x01, 0x01)), refreshes64Bit(11, 0x0101, 0xFFFF));
    EXPECT_EQ(parentsOf64Bit(block(329, 0x02, 0x01)), refreshes64Bit(329, 0x0101, 0x0201));
}

TEST_F(ExtendedEthernetPm, OtherParentClassIsLoggedOnly)
{
    EXPECT_EQ(set(kExtended, kInstance, kControlBlock, block(329, 0x01, 0x01)), 0);
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Me class 329 is not a OMCI_PPTPETHERNETUNI class"});
    log.clear();
    EXPECT_EQ(parentsOf64Bit(block(47, 0x01, 0x01)), refreshes64Bit(47, 0xFFFF, 0xFFFF));
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Me class 47 is not a OMCI_PPTPETHERNETUNI class"});
}

TEST_F(ExtendedEthernetPm, ClearBitAsksForAClearOfTheRunningInterval)
{
    Bytes bytes = block(11, 0x01, 0x01);
    bytes[6] = 0x80;
    for (const unsigned short classId : {kExtended, kExtended64Bit}) {
        calls.clear();
        EXPECT_EQ(set(classId, kInstance, kControlBlock, bytes), 0);
        EXPECT_EQ(calls, Calls{"clearEthernetFrameExtendedPmCounters(257,1)"});
    }
}

TEST_F(ExtendedEthernetPm, ClearOfContinuousCountersTellsZero)
{
    Bytes bytes = continuous();
    bytes[6] = 0xFF;
    set(kExtended, kInstance, kControlBlock, bytes);
    EXPECT_EQ(calls, Calls{"clearEthernetFrameExtendedPmCounters(257,0)"});
}

TEST_F(ExtendedEthernetPm, OnlyTheTopBitClears)
{
    Bytes bytes(16, 0xFF);
    bytes[6] = 0x7F;
    set(kExtended, kInstance, kControlBlock, bytes);
    set(kExtended64Bit, kInstance, kControlBlock, bytes);
    EXPECT_EQ(calls, Calls());
}

TEST_F(ExtendedEthernetPm, ClearLeavesTheStoredCounters)
{
    OmciManagedEntitiesCore core;
    startUp();
    create(kExtended, 0x0281);
    EthernetFrameExtendedCounters counters{};
    counters.octets = 77;
    core.updateEthernetFrameExtendedPM(kExtended, 0x0281, counters, {});
    Bytes bytes(16);
    bytes[6] = 0x80;
    set(kExtended, 0x0281, kControlBlock, bytes);
    EXPECT_EQ(getNumber(kExtended, 0x0281, kOctets), 77U);
}

TEST_F(ExtendedEthernetPm, ClearWithoutHardwareStillStores)
{
    removeHardware();
    Bytes bytes(16);
    bytes[6] = 0x80;
    EXPECT_EQ(set(kExtended, kInstance, kControlBlock, bytes), 0);
    EXPECT_EQ(get(kExtended, kInstance, kControlBlock), bytes);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 3U);  // the clear, and the two refreshes of the get
}

TEST_F(ExtendedEthernetPm, ContinuousAccumulationTellsZeroForEveryAction)
{
    set(kExtended, kInstance, kControlBlock, continuous());
    set(kExtended64Bit, kInstance, kControlBlock, continuous());
    for (const EnumOmciAction action : kActions) {
        EXPECT_EQ(callsOfGet(kExtended, kOctets, action).back(), "refreshEthernetFrameCounters(334,257,0,0,0)");
        EXPECT_EQ(callsOfGet(kExtended64Bit, kOctets, action),
                  (Calls{"refreshEthernetFrameCounters(425,257,0,0,65535)",
                         "refreshEthernetFrameCounters64(425,257,0,0,65535)",
                         "refreshEthernetFrameCounters(425,257,0,0,0)"}));
    }
}

TEST_F(ExtendedEthernetPm, AdaptersRefreshIgnoresContinuousAccumulationIn32Bits)
{
    set(kExtended, kInstance, kControlBlock, continuous());
    EXPECT_EQ(callsOfGet(kExtended, kOctets, OMCI_ACTION_GET),
              (Calls{"refreshEthernetFrameCounters(334,257,2,0,0)", "refreshEthernetFrameCounters(334,257,2,0,0)",
                     "refreshEthernetFrameCounters(334,257,0,0,0)"}));
}

TEST_F(ExtendedEthernetPm, MissingInstanceIsRefreshedOnceIn32BitsAndNeverIn64)
{
    for (const EnumOmciAction action : kActions) {
        const attributeDefinition octets = definitionOf(kExtended, kOctets);
        unsigned char buffer[16] = {};
        calls.clear();
        EXPECT_EQ(adapter(kExtended).getAttribute(9, &octets, buffer, action), -1);
        const Calls expected = action == OMCI_ACTION_GET ? Calls{"refreshEthernetFrameCounters(334,9,2,0,0)"}
                               : action == OMCI_ACTION_GET_CURRENT_DATA
                                   ? Calls{"refreshEthernetFrameCounters(334,9,1,0,0)"}
                                   : Calls();
        EXPECT_EQ(calls, expected);
        calls.clear();
        EXPECT_EQ(adapter(kExtended64Bit).getAttribute(9, &octets, buffer, action), -1);
        EXPECT_EQ(calls, Calls());
    }
}

TEST_F(ExtendedEthernetPm, RefreshThatFeedsIsReadInTheSameGet)
{
    startUp();
    create(kExtended64Bit, 0x0281);
    ON_CALL(hardware, refreshEthernetFrameCounters)
        .WillByDefault(
            [](unsigned short classId, unsigned short instance, unsigned int, unsigned short, unsigned short) {
                EthernetFrameExtendedCounters counters{};
                counters.octets = 0x123456789AULL;
                return OmciManagedEntitiesCore().updateEthernetFrameExtendedPM(classId, instance, counters, {});
            });
    EXPECT_EQ(getNumber(kExtended64Bit, 0x0281, kOctets), 0x123456789AULL);
}

TEST_F(ExtendedEthernetPm, WholeGetRefreshesTwiceForEachAttributeAndOnceMoreForEachCounter)
{
    for (const unsigned short classId : {kExtended, kExtended64Bit}) {
        calls.clear();
        const std::list<attributeDefinition> attributes = readable(classId);
        ASSERT_EQ(attributes.size(), 16U);
        for (const attributeDefinition& definition : attributes) {
            get(classId, kInstance, definition.attributeMask);
        }
        EXPECT_EQ(calls.size(), 2 * 16U + 14U) << classId;
    }
}

TEST_F(ExtendedEthernetPm, DeletedInstanceStaysInThePicture)
{
    startUp();
    for (const unsigned short classId : {kExtended, kExtended64Bit}) {
        create(classId, 0x0333);
        log.clear();
        adapter(classId).deleteManagedEntityInstance(0x0333, true);
        EXPECT_TRUE(log.has(4, "Managed entity(" + std::to_string(classId) + "; 819) already configured"));
        EXPECT_EQ(timesInPicture(classId, 0x0333), 1);
    }
}

class BridgePortPm : public PmTest
{
protected:
    void SetUp() override
    {
        makeParents();
        create(kUpstream, kInstance);
        create(kDownstream, kInstance);
        calls.clear();
        log.clear();
    }

    static int read(unsigned short classId, unsigned short mask, unsigned short instance = kInstance)
    {
        const attributeDefinition definition = definitionOf(classId, mask);
        unsigned char buffer[16] = {};
        return adapter(classId).getAttribute(instance, &definition, buffer, OMCI_ACTION_GET);
    }
};

TEST_F(BridgePortPm, OctetsAloneRefreshNothing)
{
    EXPECT_EQ(read(kUpstream, kOctets), 0);
    EXPECT_EQ(calls, Calls());
    EXPECT_EQ(read(kUpstream, kIntervalEndTime), 0);
    EXPECT_EQ(calls, Calls{"refreshEthernetFrameCounters(322,258,2,0,0)"});
}

TEST_F(BridgePortPm, WholeGetRefreshesOnce)
{
    for (const unsigned short classId : {kUpstream, kDownstream}) {
        calls.clear();
        for (const attributeDefinition& definition : readable(classId)) {
            EXPECT_EQ(read(classId, definition.attributeMask), 0);
        }
        EXPECT_EQ(calls, Calls{callText("refreshEthernetFrameCounters", classId, kUni, 2, 0, 0)});
    }
}

TEST_F(BridgePortPm, MissingBridgePortFailsTheIntervalEndTimeOnly)
{
    create(kUpstream, 9);
    calls.clear();
    EXPECT_EQ(read(kUpstream, kIntervalEndTime, 9), -1);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data(9) not found"));
    EXPECT_EQ(read(kUpstream, kOctets, 9), 0);
    EXPECT_EQ(calls, Calls());
}

TEST_F(BridgePortPm, BridgePortOfAnotherTpFails)
{
    OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(kInstance)->setTpType(3);
    calls.clear();
    EXPECT_EQ(read(kDownstream, kIntervalEndTime), -1);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data(257) Association type is not PPPTP UNI(3)"));
    EXPECT_EQ(calls, Calls());
}

TEST_F(BridgePortPm, NullDefinitionFailsWithoutARefresh)
{
    unsigned char buffer[16] = {};
    EXPECT_EQ(adapter(kUpstream).getAttribute(kInstance, nullptr, buffer, OMCI_ACTION_GET), -1);
    EXPECT_EQ(calls, Calls());
}

TEST_F(BridgePortPm, FeedOfTheUniIsReadBack)
{
    OmciMePptpEthernetUniIf::createManagedEntityInstance(kUni, false);
    ON_CALL(hardware, refreshEthernetFrameCounters)
        .WillByDefault([](unsigned short classId, unsigned short uni, unsigned int, unsigned short, unsigned short) {
            EthernetFrameExtendedCounters upstream{};
            EthernetFrameExtendedCounters downstream{};
            upstream.octets = 11;
            downstream.octets = 22;
            return OmciManagedEntitiesCore().updateEthernetFrameExtendedPM(classId, uni, upstream, downstream);
        });
    EXPECT_EQ(read(kUpstream, kIntervalEndTime), 0);
    EXPECT_EQ(getNumber(kUpstream, kInstance, kOctets), 11U);
    EXPECT_EQ(getNumber(kDownstream, kInstance, kOctets), 22U);
}

}  // namespace
