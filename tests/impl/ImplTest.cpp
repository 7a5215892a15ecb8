// The pattern of every class: defaults, getters, setters, tables, alarms.
#include <bitset>
#include <stdexcept>

#include "LibraryTest.h"
#include "OmciMeAniGIf.h"
#include "OmciMeCircuitPackIf.h"
#include "OmciMeOltGIf.h"
#include "OmciMeOntFeatureIf.h"
#include "OmciMePortMappingPackageIf.h"
#include "OmciMePriorityQueueIf.h"

namespace {

class Impl : public LibraryTest
{};

TEST_F(Impl, FreshInstanceHoldsItsDefaults)
{
    const auto* aniG = OmciMeAniGIf::createManagedEntityInstance(1025, false);
    EXPECT_EQ(aniG->getManagedEntityInstance(), 1025);
    EXPECT_FALSE(aniG->isCreatedByOlt());
    EXPECT_EQ(aniG->getSfThreshold(OMCI_ACTION_GET), 5);
    EXPECT_EQ(aniG->getLowerOpticalThreshold(OMCI_ACTION_GET), 255);
    EXPECT_EQ(aniG->getUpperTransmitPowerThreshold(OMCI_ACTION_GET), 129);
}

TEST_F(Impl, DefaultOfOctetsMayBeOtherThanZero)
{
    const auto* feature = OmciMeOntFeatureIf::createManagedEntityInstance(0, false);
    const unsigned char* mask = feature->getFeatureMask(OMCI_ACTION_GET);
    EXPECT_EQ(mask[0], 0x84);
    for (int i = 1; i < 25; ++i) {
        EXPECT_EQ(mask[i], 0) << i;
    }
    EXPECT_EQ(OmciMeOltGIf::createManagedEntityInstance(0, false)->getOltVendorId(OMCI_ACTION_GET), 0x20202020U);
}

TEST_F(Impl, GettersTakeAnyAction)
{
    auto* queue = OmciMePriorityQueueIf::createManagedEntityInstance(0x8000, false);
    queue->setRelatedPort(0x01000007);
    for (const int action : {0, 8, 9, 28, 200}) {
        EXPECT_EQ(queue->getRelatedPort(static_cast<EnumOmciAction>(action)), 0x01000007U);
    }
}

TEST_F(Impl, OctetSetterCopiesExactlyItsSize)
{
    auto* pack = OmciMeCircuitPackIf::createManagedEntityInstance(257, false);
    const unsigned char value[] = {'A', 'L', 'C', 'L', 'x', 'y'};
    EXPECT_EQ(pack->setVendorId(value), 0);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(pack->getVendorId(OMCI_ACTION_GET)), 4), "ALCL");
    EXPECT_EQ(pack->getAdministrativeState(OMCI_ACTION_GET), 0) << "the next member is untouched";
}

TEST_F(Impl, TableGetterYieldsTheNumberOfRows)
{
    auto* package = OmciMePortMappingPackageIf::createManagedEntityInstance(1, false);
    EXPECT_EQ(package->getCombinedPortTable(OMCI_ACTION_GET), 0U);
    const unsigned char row[25] = {1, 2, 3};
    EXPECT_EQ(package->setCombinedPortTable(row), 0);
    EXPECT_EQ(package->setCombinedPortTable(row), 0);
    EXPECT_EQ(package->getCombinedPortTable(OMCI_ACTION_GET), 2U);
}

TEST_F(Impl, InitEmptiesTablesAndClearsAlarms)
{
    auto* package = OmciMePortMappingPackageIf::createManagedEntityInstance(1, false);
    const unsigned char row[25] = {1};
    package->setCombinedPortTable(row);
    package->setMaxPorts(7);
    package->updateAlarmsBitmap(3, true);
    package->init();
    std::bitset<223> alarms;
    package->getAlarmsBitmap(alarms);
    EXPECT_EQ(package->getCombinedPortTable(OMCI_ACTION_GET), 0U);
    EXPECT_EQ(package->getMaxPorts(OMCI_ACTION_GET), 0);
    EXPECT_TRUE(alarms.none());
}

TEST_F(Impl, AlarmNumber222IsTheLast)
{
    auto* aniG = OmciMeAniGIf::createManagedEntityInstance(1025, false);
    aniG->updateAlarmsBitmap(222, true);
    std::bitset<223> alarms;
    aniG->getAlarmsBitmap(alarms);
    EXPECT_TRUE(alarms.test(222));
    EXPECT_EQ(alarms.count(), 1U);
    EXPECT_THROW(aniG->updateAlarmsBitmap(223, true), std::out_of_range);
    EXPECT_THROW(aniG->updateAlarmsBitmap(255, false), std::out_of_range);
}

TEST_F(Impl, AlarmsAreLoggedHighestFirst)
{
    auto* aniG = OmciMeAniGIf::createManagedEntityInstance(1025, false);
    aniG->updateAlarmsBitmap(0, true);
    EXPECT_TRUE(log.has(6, "Alarm number(0), State(hhu)"));
    std::bitset<223> alarms;
    aniG->getAlarmsBitmap(alarms);
    EXPECT_TRUE(log.has(6, "Alarm bitmap(" + std::string(222, '0') + "1)"));
}

TEST_F(Impl, OperationsLogUnderTheirOwnName)
{
    auto* aniG = OmciMeAniGIf::createManagedEntityInstance(1025, false);
    log.clear();
    aniG->setArc(1);
    aniG->getArc(OMCI_ACTION_GET);
    aniG->getDefaultArc();
    const std::vector<LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].function, "setArc");
    EXPECT_EQ(lines[0].text, "Instance(1025); Value(1)");
    EXPECT_EQ(lines[1].function, "getArc");
    EXPECT_EQ(lines[2].function, "getDefaultArc");
    for (const LogLine& line : lines) {
        EXPECT_EQ(line.level, 6);
        EXPECT_EQ(line.file, "src/impl/OmciMeAniGImpl.cpp");
    }
    EXPECT_LT(lines[1].line, lines[2].line);
    EXPECT_LT(lines[2].line, lines[0].line);
}

}  // namespace
