// The adapter of any class: bytes on the wire's side, typed attributes on the entity's.
#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "OmciMeGemPortPMHistoryDataIf.h"
#include "OmciMePortMappingPackageIf.h"
#include "OmciMePptpVideoAniIf.h"
#include "OmciMePriorityQueueIf.h"
#include "OmciMeProtectionDataIf.h"

namespace {

constexpr unsigned short kProtectionData = 279;
constexpr unsigned short kCardholder = 5;
constexpr unsigned short kGemPortNetworkCtp = 268;

using Bytes = std::vector<unsigned char>;

class Adapter : public LibraryTest
{
protected:
    int setMask(unsigned short mask, const unsigned char* buffer)
    {
        attributeDefinition definition{};
        definition.attributeMask = mask;
        return adapter(kProtectionData).setAttribute(1, &definition, buffer);
    }

    int getMask(unsigned short mask, unsigned char* buffer)
    {
        attributeDefinition definition{};
        definition.attributeMask = mask;
        return adapter(kProtectionData).getAttribute(1, &definition, buffer, OMCI_ACTION_GET);
    }
};

TEST_F(Adapter, RegistersItselfWithTheFactory)
{
    OmciMe& me = adapter(kProtectionData);
    EXPECT_EQ(OmciMeFactory::getInstance()->getManagedEntity(kProtectionData), &me);
    EXPECT_EQ(me.getManagedEntityClassId(), kProtectionData);
    EXPECT_EQ(me.getManagedEntityName(), "PROTECTIONDATA");
    EXPECT_THAT(log.texts(6), ::testing::Contains(::testing::StartsWith("this(0x")));
}

TEST_F(Adapter, ClassOfTheOltIsCreatedAndDeleted)
{
    OmciMe& me = adapter(kProtectionData);
    EXPECT_EQ(me.createManagedEntityInstance(1, true), 0);
    EXPECT_TRUE(log.has(6, "Instance(1), createdByOLt(1)"));
    EXPECT_TRUE(OmciMeProtectionDataIf::getManagedEntityInstance(1)->isCreatedByOlt());
    EXPECT_EQ(me.findManagedEntityInstance(1), 0);
    EXPECT_EQ(me.deleteManagedEntityInstance(1, true), 0);
    EXPECT_EQ(me.findManagedEntityInstance(1), -1);
    EXPECT_TRUE(log.has(3, "Instance(1) not found"));
}

TEST_F(Adapter, DeleteIgnoresWhoAsks)
{
    OmciMe& me = adapter(kProtectionData);
    me.createManagedEntityInstance(1, true);
    EXPECT_EQ(me.deleteManagedEntityInstance(1, false), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getManagedEntityInstance(1), nullptr);
}

TEST_F(Adapter, DeleteOfAMissingInstanceFails)
{
    EXPECT_EQ(adapter(kProtectionData).deleteManagedEntityInstance(4, true), -1);
    EXPECT_TRUE(log.has(3, "Failed to delete instance(4)"));
}

TEST_F(Adapter, DeleteOfTheOnusOwnSucceedsAndLeavesIt)
{
    OmciMeProtectionDataIf::createManagedEntityInstance(1, false);
    EXPECT_EQ(adapter(kProtectionData).deleteManagedEntityInstance(1, true), 0);
    EXPECT_NE(OmciMeProtectionDataIf::getManagedEntityInstance(1), nullptr);
}

TEST_F(Adapter, ClassOfTheOnuRefusesCreateAndDelete)
{
    OmciMe& me = adapter(kCardholder);
    EXPECT_EQ(me.createManagedEntityInstance(257, true), -1);
    EXPECT_TRUE(log.has(3, "Instances of this managed entity can be created only by ONT"));
    EXPECT_EQ(me.createManagedEntityInstance(257, false), -1) << "whoever asks";
    EXPECT_EQ(me.deleteManagedEntityInstance(257, true), -1);
    EXPECT_TRUE(log.has(3, "Instances of this managed entity can be deleted only by ONT"));
}

TEST_F(Adapter, NumbersAreBigEndian)
{
    create(kProtectionData, 1);
    EXPECT_EQ(set(kProtectionData, 1, 0x8000, Bytes{0x04, 0x01}), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getManagedEntityInstance(1)->getWorkingAniGPointer(OMCI_ACTION_GET), 0x0401);
    EXPECT_EQ(get(kProtectionData, 1, 0x8000), (Bytes{0x04, 0x01}));

    OmciMePriorityQueueIf::createManagedEntityInstance(0x8000, false);
    EXPECT_EQ(set(277, 0x8000, 0x0400, Bytes{1, 2, 3, 4}), 0);
    EXPECT_EQ(OmciMePriorityQueueIf::getFirstManagedEntityInstance()->getRelatedPort(OMCI_ACTION_GET), 0x01020304U);

    create(426, 1);
    EXPECT_EQ(set(426, 1, 0x0004, Bytes{1, 2, 3, 4, 5, 6, 7, 8}), 0);
    EXPECT_EQ(get(426, 1, 0x0004), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(Adapter, FiveByteCounterIsA32BitNumberWithALeadingZero)
{
    create(kGemPortNetworkCtp, 1);
    set(kGemPortNetworkCtp, 1, 0x8000, 5ULL);
    create(267, 1);
    OmciMeGemPortPMHistoryDataIf::getManagedEntityInstance(1)->setReceivedPackets(0xA1B2C3D4);
    EXPECT_EQ(get(267, 1, 0x0800), (Bytes{0, 0xA1, 0xB2, 0xC3, 0xD4}));
}

TEST_F(Adapter, OneByteVideoThresholdMovesTwoBytes)
{
    auto* ani = OmciMePptpVideoAniIf::createManagedEntityInstance(1281, false);
    const attributeDefinition definition = definitionOf(90, 0x0002);
    EXPECT_EQ(definition.attributeSize, 1);
    const unsigned char value[8] = {0x12, 0x34};
    EXPECT_EQ(adapter(90).setAttribute(1281, &definition, value), 0);
    unsigned char read[8] = {};
    EXPECT_EQ(adapter(90).getAttribute(1281, &definition, read, OMCI_ACTION_GET), 0);
    EXPECT_EQ(read[0], 0x12);
    EXPECT_EQ(read[1], 0x34);
    EXPECT_EQ(ani->getVideoLowerOpticalThreshold(OMCI_ACTION_GET), 0x1234);
}

TEST_F(Adapter, TableOfTwoRowsReadsAsTwo)
{
    auto* package = OmciMePortMappingPackageIf::createManagedEntityInstance(1, false);
    const unsigned char row[25] = {9};
    package->setCombinedPortTable(row);
    package->setCombinedPortTable(row);
    EXPECT_EQ(get(297, 1, 0x0040), (Bytes{0, 0, 0, 2}));
}

TEST_F(Adapter, NullPointersAreRefused)
{
    create(kProtectionData, 1);
    unsigned char buffer[16] = {};
    const attributeDefinition definition = definitionOf(kProtectionData, 0x8000);
    const OmciMe& me = adapter(kProtectionData);
    EXPECT_EQ(me.setAttribute(1, nullptr, buffer), -1);
    EXPECT_EQ(me.setAttribute(1, &definition, nullptr), -1);
    EXPECT_EQ(me.getAttribute(1, nullptr, buffer, OMCI_ACTION_GET), -1);
    EXPECT_EQ(me.getAttribute(1, &definition, nullptr, OMCI_ACTION_GET), -1);
    EXPECT_THAT(log.texts(3), ::testing::Each(::testing::StartsWith("NULL 'attributeDefinition(")));
    EXPECT_EQ(log.texts(3).size(), 4U);
}

TEST_F(Adapter, MissingInstanceFailsSetAndGet)
{
    unsigned char buffer[16] = {};
    EXPECT_EQ(setMask(0x8000, buffer), -1);
    EXPECT_EQ(getMask(0x8000, buffer), -1);
    EXPECT_EQ(log.count(3, "Instance(1) not found"), 2U);
}

TEST_F(Adapter, UnknownMaskFailsTheSetButNotTheGet)
{
    create(kProtectionData, 1);
    unsigned char buffer[16] = {0xEE, 0xEE};
    for (const unsigned short mask : {0x0200, 0x0001, 0xC000, 0x0000}) {
        EXPECT_EQ(setMask(mask, buffer), -1) << mask;
        EXPECT_EQ(getMask(mask, buffer), 0) << mask;
    }
    EXPECT_EQ(buffer[0], 0xEE) << "nothing is written";
    EXPECT_EQ(log.count(3, "Attribute mask(0x200) not supported"), 2U);
}

TEST_F(Adapter, OnuGHasNoMaskForItsThirteenthAttribute)
{
    startUp();
    attributeDefinition definition{};
    definition.attributeMask = 0x0008;
    const unsigned char value[8] = {1, 2};
    EXPECT_EQ(adapter(256).setAttribute(0, &definition, value), -1);
    EXPECT_TRUE(log.has(3, "Attribute mask(0x8) not supported"));
}

TEST_F(Adapter, ApplyOfAPlainClassDoesNotEvenLookForTheInstance)
{
    EXPECT_EQ(adapter(kProtectionData).applyConfigurationToHardwareForSet(77), 0);
    EXPECT_TRUE(log.has(6, "Instance(77);"));
}

TEST_F(Adapter, AlarmsGoToTheInstance)
{
    create(kGemPortNetworkCtp, 1);
    const OmciMe& me = adapter(kGemPortNetworkCtp);
    EXPECT_EQ(me.updateAlarmsBitmap(1, 0, true), 0);
    EXPECT_TRUE(log.has(6, "Instance(1); Alarm(0; 1)"));
    std::bitset<223> alarms;
    EXPECT_TRUE(me.getAlarmsBitmap(1, alarms));
    EXPECT_TRUE(alarms.test(0));
    EXPECT_TRUE(log.has(6, "Number of active alarms(1)"));
    EXPECT_EQ(me.updateAlarmsBitmap(2, 0, true), -1);
    EXPECT_FALSE(me.getAlarmsBitmap(2, alarms));
    EXPECT_EQ(log.count(3, "Instance(2) not found"), 2U);
}

TEST_F(Adapter, WalkByIdEndsWithoutFailure)
{
    const OmciMe& me = adapter(kProtectionData);
    unsigned short instance = 99;
    EXPECT_EQ(me.getFirstManagedEntityInstance(nullptr), -1);
    EXPECT_EQ(me.getNextManagedEntityInstance(nullptr), -1);
    EXPECT_EQ(log.count(3, "NULL pointer"), 2U);
    EXPECT_EQ(me.getFirstManagedEntityInstance(&instance), -1);
    EXPECT_EQ(instance, 99);
    create(kProtectionData, 3);
    create(kProtectionData, 0xFFFF);
    EXPECT_EQ(me.getFirstManagedEntityInstance(&instance), 0);
    EXPECT_EQ(instance, 3);
    EXPECT_TRUE(log.has(6, "Return instance(3)"));
    EXPECT_EQ(me.getNextManagedEntityInstance(&instance), 0);
    EXPECT_EQ(instance, 0xFFFF);
    EXPECT_EQ(me.getNextManagedEntityInstance(&instance), -1);
    EXPECT_TRUE(log.has(6, "Reached end of list"));
}

TEST_F(Adapter, LogsCarryTheClasssOwnFile)
{
    create(kProtectionData, 1);
    log.clear();
    get(kProtectionData, 1, 0x8000);
    const std::vector<LogLine> lines = log.lines();
    const auto entry =
        std::find_if(lines.begin(), lines.end(), [](const LogLine& l) { return l.function == "getAttribute"; });
    ASSERT_NE(entry, lines.end());
    EXPECT_EQ(entry->file, "src/adapter/OmciMeProtectionDataAdapter.cpp");
}

}  // namespace
