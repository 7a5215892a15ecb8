// The text of an instance, to the letter: operators' scripts read it.
#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeAniGIf.h"
#include "OmciMeCardholderIf.h"
#include "OmciMeOnuDataIf.h"
#include "OmciMePortMappingPackageIf.h"

namespace {

class Dump : public LibraryTest
{};

TEST_F(Dump, ShowsHeaderDashesAndAlarmsWithMaskZero)
{
    OmciMeCardholderIf::createManagedEntityInstance(257, false);
    EXPECT_EQ(OmciMeCardholderIf::dumpAllME(257, 0), "Cardholder(5; 257)\n"
                                                     "----------\n"
                                                     "\n"
                                                     "  Active alarms\n"
                                                     "    No active alarms\n"
                                                     "\n"
                                                     "\n");
    EXPECT_TRUE(log.has(6, "Attribute mask(0x0)"));
}

TEST_F(Dump, AlignsValuesBehindTheLongestLabelOfTheClass)
{
    OmciMeAniGIf::createManagedEntityInstance(1025, false)->setSrIndication(1);
    const std::string text = OmciMeAniGIf::dumpAllME(1025, 0x8002);
    EXPECT_THAT(text, ::testing::HasSubstr("AniG(263; 1025)\n----\n"));
    EXPECT_THAT(text, ::testing::HasSubstr("\n  SR_INDICATION (1 byte)                  = 1\n"));
    EXPECT_THAT(text, ::testing::HasSubstr("\n  LOWER_TRANSMIT_POWER_THRESHOLD (1 byte) = 129\n"));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("TOTAL_TCONT_NUMBER")));
}

TEST_F(Dump, IntegersBehindOctetsAreHexadecimal)
{
    auto* holder = OmciMeCardholderIf::createManagedEntityInstance(257, false);
    holder->setActualPluginUnitType(47);
    holder->setArcInterval(47);
    unsigned char id[20] = {0x41, 0x0A};
    holder->setExpectedEquipmentId(id);
    const std::string text = OmciMeCardholderIf::dumpAllME(257, 0xFFFF);
    EXPECT_THAT(text, ::testing::ContainsRegex("ACTUAL_PLUGIN_UNIT_TYPE \\(1 byte\\) += 47\n"));
    EXPECT_THAT(text, ::testing::ContainsRegex("EXPECTED_EQUIPMENT_ID \\(20 bytes\\) += 41 0a 00 "));
    EXPECT_THAT(text, ::testing::ContainsRegex("ARC_INTERVAL \\(1 byte\\) += 2f\n"));
}

TEST_F(Dump, TablePrintsItsRowCount)
{
    auto* package = OmciMePortMappingPackageIf::createManagedEntityInstance(1, false);
    const unsigned char row[25] = {1};
    package->setCombinedPortTable(row);
    EXPECT_THAT(OmciMePortMappingPackageIf::dumpAllME(1, 0x40),
                ::testing::ContainsRegex("COMBINED_PORT_TABLE \\(25 bytes\\) += 1\n"));
}

TEST_F(Dump, AlarmsGoOutAsTheCharacterOfTheirNumber)
{
    auto* aniG = OmciMeAniGIf::createManagedEntityInstance(1025, false);
    aniG->updateAlarmsBitmap('A', true);
    aniG->updateAlarmsBitmap('b', true);
    EXPECT_THAT(OmciMeAniGIf::dumpAllME(1025, 0), ::testing::HasSubstr("  Active alarms\n    A\n    b\n\n\n"));
}

TEST_F(Dump, AllInstancesInAscendingOrder)
{
    OmciMeOnuDataIf::createManagedEntityInstance(9, false);
    OmciMeOnuDataIf::createManagedEntityInstance(2, false);
    const std::string all = OmciMeOnuDataIf::dumpAllME(0xFFFFFFFF, 0xFFFF);
    EXPECT_EQ(all, OmciMeOnuDataIf::dumpAllME(2, 0xFFFF) + OmciMeOnuDataIf::dumpAllME(9, 0xFFFF));
}

TEST_F(Dump, MissingInstanceIsEmptyText)
{
    EXPECT_EQ(OmciMeOnuDataIf::dumpAllME(5, 0xFFFF), "");
    EXPECT_TRUE(log.has(6, "Instance(5); Attribute mask(0xFFFF)"));
    EXPECT_TRUE(log.has(6, "Instance(5) not found"));
    EXPECT_EQ(OmciMeOnuDataIf::dumpAllME(0x10000, 0xFFFF), "") << "instance ids are 16 bits wide";
}

TEST_F(Dump, OfAdapterIsThatOfTheClass)
{
    OmciMeOnuDataIf::createManagedEntityInstance(0, false)->setMibDataSync(7);
    EXPECT_EQ(adapter(2).dumpME(0, 0xFFFF), OmciMeOnuDataIf::dumpAllME(0, 0xFFFF));
}

}  // namespace
