// A host that wants errors only: the operations of an adapter answer as they do when every line has a reader.
#include "LibraryTest.h"
#include "Logger.h"
#include "OmciMe.h"
#include "impl/Log.h"

namespace {

constexpr unsigned short kProtectionData = 279;
constexpr unsigned short kCardholder = 5;

using Bytes = std::vector<unsigned char>;

class DroppedLines : public LibraryTest
{
protected:
    DroppedLines()
    {
        create(kProtectionData, 1);
        nrvk::logger();
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
        Logger::getInstance(150)->setLevel(0);
    }
    ~DroppedLines() override { Logger::getInstance(150)->setLevel(6); }

    static OmciMe& me() { return adapter(kProtectionData); }

    static attributeDefinition of(unsigned short mask)
    {
        attributeDefinition definition{};
        definition.attributeMask = mask;
        return definition;
    }
};

TEST_F(DroppedLines, ValuesAreSetAndRead)
{
    EXPECT_EQ(set(kProtectionData, 1, 0x8000, Bytes{0x04, 0x01}), 0);
    EXPECT_EQ(get(kProtectionData, 1, 0x8000), (Bytes{0x04, 0x01}));
}

TEST_F(DroppedLines, NullPointersAreRefused)
{
    unsigned char buffer[8] = {};
    const attributeDefinition definition = of(0x8000);
    EXPECT_EQ(me().setAttribute(1, nullptr, buffer), -1);
    EXPECT_EQ(me().setAttribute(1, &definition, nullptr), -1);
    EXPECT_EQ(me().getAttribute(1, nullptr, buffer, OMCI_ACTION_GET), -1);
    EXPECT_EQ(me().getAttribute(1, &definition, nullptr, OMCI_ACTION_GET), -1);
    EXPECT_EQ(me().getFirstManagedEntityInstance(nullptr), -1);
    EXPECT_EQ(me().getNextManagedEntityInstance(nullptr), -1);
}

TEST_F(DroppedLines, MissingInstancesAreRefused)
{
    unsigned char buffer[8] = {};
    const attributeDefinition definition = of(0x8000);
    std::bitset<223> alarms;
    EXPECT_EQ(me().setAttribute(2, &definition, buffer), -1);
    EXPECT_EQ(me().getAttribute(2, &definition, buffer, OMCI_ACTION_GET), -1);
    EXPECT_EQ(me().findManagedEntityInstance(2), -1);
    EXPECT_FALSE(me().getAlarmsBitmap(2, alarms));
    EXPECT_EQ(me().updateAlarmsBitmap(2, 0, true), -1);
    EXPECT_EQ(me().deleteManagedEntityInstance(2, true), -1);
}

TEST_F(DroppedLines, UnknownAttributeFailsASetAndNotAGet)
{
    unsigned char buffer[8] = {0x5A};
    for (const unsigned short mask : std::vector<unsigned short>{0, 1, 0xC000}) {
        const attributeDefinition definition = of(mask);
        EXPECT_EQ(me().setAttribute(1, &definition, buffer), -1) << mask;
        EXPECT_EQ(me().getAttribute(1, &definition, buffer, OMCI_ACTION_GET), 0) << mask;
        EXPECT_EQ(buffer[0], 0x5A) << "nothing is written";
    }
}

TEST_F(DroppedLines, AlarmsAreKept)
{
    std::bitset<223> alarms;
    EXPECT_EQ(me().updateAlarmsBitmap(1, 3, true), 0);
    EXPECT_TRUE(me().getAlarmsBitmap(1, alarms));
    EXPECT_EQ(alarms.count(), 1U);
    EXPECT_TRUE(alarms.test(3));
}

TEST_F(DroppedLines, DumpIsWhole)
{
    EXPECT_NE(me().dumpME(1, 0x8000), "");
    EXPECT_EQ(me().dumpME(2, 0x8000), "");
    EXPECT_EQ(me().dumpME(0xFFFFFFFF, 0x8000), me().dumpME(1, 0x8000));
}

TEST_F(DroppedLines, WalkFindsEachInstance)
{
    unsigned short instance = 0;
    EXPECT_EQ(me().getFirstManagedEntityInstance(&instance), 0);
    EXPECT_EQ(instance, 1);
    EXPECT_EQ(me().getNextManagedEntityInstance(&instance), -1);
    me().eraseAllManagedEntityInstances();
    EXPECT_EQ(me().getFirstManagedEntityInstance(&instance), -1);
}

TEST_F(DroppedLines, ClassOfTheOnuRefusesTheOlt)
{
    EXPECT_EQ(adapter(kCardholder).createManagedEntityInstance(257, true), -1);
    EXPECT_EQ(adapter(kCardholder).deleteManagedEntityInstance(257, true), -1);
}

TEST_F(DroppedLines, ListsAreGivenAndNullPointersRefused)
{
    std::list<attributeDefinition> list;
    EXPECT_EQ(me().getAttributesListForGet(&list), 0);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(me().getAttributesListForGet(nullptr), -1);
}

}  // namespace
