// Threshold crossing alerts, on the library's own MIB.
#include <algorithm>
#include <set>
#include <string>

#include "LibraryTest.h"
#include "OmciMe.h"
#include "host/pm/ThresholdAlerts.h"
#include "host/pm/ThresholdCrossings.h"

using namespace omci;

namespace {

constexpr unsigned short kInstance = 0x0101;
constexpr unsigned short kData = 5;
constexpr unsigned short kPointer = 0x4000;

class PmThresholds : public LibraryTest
{
protected:
    /// A PM entity that points at the threshold data, whatever its class has for that.
    static void createPm(unsigned short classId, unsigned short data = kData)
    {
        ASSERT_EQ(create(classId, kInstance), 0) << classId;
        if (hasControlBlock(classId)) {
            std::vector<unsigned char> block(16);
            block[0] = static_cast<unsigned char>(data >> 8);
            block[1] = static_cast<unsigned char>(data);
            ASSERT_EQ(set(classId, kInstance, kPointer, block), 0);
        } else {
            ASSERT_EQ(set(classId, kInstance, kPointer, data), 0) << classId;
        }
    }

    static bool hasControlBlock(unsigned short classId) { return classId == 334 || classId == 425; }

    /// All fourteen thresholds, of both widths, at the value.
    static void createData(unsigned short instance, unsigned long long value)
    {
        for (const unsigned short classId : {273, 274, 426}) {
            create(classId, instance);
            std::list<attributeDefinition> attributes;
            adapter(classId).getAttributesListForGet(&attributes);
            for (const attributeDefinition& attribute : attributes) {
                set(classId, instance, attribute.attributeMask, value);
            }
        }
    }

    using Values = std::vector<std::uint64_t>;

    std::vector<std::string> events;
    ThresholdCrossings crossings{[this](unsigned short classId, unsigned short instance, unsigned alarm, bool state) {
        events.push_back(std::to_string(classId) + "/" + std::to_string(instance) + "/" + std::to_string(alarm) +
                         (state ? "+" : "-"));
        return adapter(classId).updateAlarmsBitmap(instance, static_cast<unsigned char>(alarm), state) == 0;
    }};
};

TEST_F(PmThresholds, EveryAlertOfEveryClassIsRaisedAtItsThresholdAndNotBelow)
{
    createData(kData, 100);
    for (const unsigned short classId : classesWithThresholdAlerts()) {
        createPm(classId);
        ASSERT_FALSE(thresholdAlertsOf(classId).empty()) << classId;
        for (const ThresholdAlert& alert : thresholdAlertsOf(classId)) {
            Values counters(14);
            counters[alert.counter - 1U] = 99;
            events.clear();
            crossings.check(classId, kInstance, counters);
            EXPECT_TRUE(events.empty()) << classId;
            counters[alert.counter - 1U] = 100;
            crossings.check(classId, kInstance, counters);
            EXPECT_EQ(events,
                      std::vector<std::string>{std::to_string(classId) + "/257/" + std::to_string(alert.alarm) + "+"});
        }
    }
}

TEST_F(PmThresholds, EachAlertHasItsOwnAlarmAndItsOwnThreshold)
{
    for (const unsigned short classId : classesWithThresholdAlerts()) {
        std::set<unsigned> alarms;
        std::set<unsigned> thresholds;
        for (const ThresholdAlert& alert : thresholdAlertsOf(classId)) {
            EXPECT_TRUE(alarms.insert(alert.alarm).second) << classId;
            EXPECT_TRUE(thresholds.insert(alert.threshold).second) << classId;
            EXPECT_LE(alert.threshold, 14);
        }
    }
}

TEST_F(PmThresholds, ZeroAndDanglingPointersSetNone)
{
    createData(kData, 1);
    const Values high(14, 1'000'000);
    for (const unsigned short classId : classesWithThresholdAlerts()) {
        createPm(classId, 0);
        crossings.check(classId, kInstance, high);
        adapter(classId).deleteManagedEntityInstance(kInstance, true);
        createPm(classId, kData + 1);
        crossings.check(classId, kInstance, high);
    }
    EXPECT_TRUE(events.empty());
}

TEST_F(PmThresholds, ThresholdDataOfInstanceZeroIsNoThreshold)
{
    createData(0, 1);
    createPm(312, 0);
    crossings.check(312, kInstance, Values(14, 5));
    EXPECT_TRUE(events.empty());
}

TEST_F(PmThresholds, ThresholdOfZeroIsNone)
{
    createData(kData, 0);
    createPm(312);
    crossings.check(312, kInstance, Values(14, 5));
    EXPECT_TRUE(events.empty());
}

TEST_F(PmThresholds, FirstSevenComeFromOneEntityAndTheRestFromTheOther)
{
    create(273, kData);
    set(273, kData, 0x0200, 70);
    create(274, kData);
    set(274, kData, 0x8000, 80);
    const ThresholdSettings settings{kData, false, std::nullopt};
    EXPECT_EQ(thresholdValue(settings, 7), 70U);
    EXPECT_EQ(thresholdValue(settings, 8), 80U);
    EXPECT_EQ(thresholdValue(settings, 6), std::nullopt);
    EXPECT_EQ(thresholdValue(settings, 0), std::nullopt);
    EXPECT_EQ(thresholdValue(settings, 15), std::nullopt);
    adapter(274).deleteManagedEntityInstance(kData, true);
    EXPECT_EQ(thresholdValue(settings, 8), std::nullopt);
}

TEST_F(PmThresholds, EndOfTheIntervalClearsButWhatIsContinuous)
{
    createData(kData, 10);
    createPm(312);
    createPm(334);
    std::vector<unsigned char> block(16);
    block[1] = kData;
    block[11] = 1;
    create(425, kInstance);
    set(425, kInstance, kPointer, block);
    for (const unsigned short classId : {312, 334, 425}) {
        crossings.check(classId, kInstance, Values{10});
    }
    events.clear();
    crossings.endInterval();
    EXPECT_EQ(events, (std::vector<std::string>{"312/257/0-", "334/257/1-"}));
    EXPECT_EQ(crossings.raised(), (std::set<ThresholdCrossings::Alert>{{425, kInstance, 1}}));
    crossings.clear(425, kInstance);
    EXPECT_EQ(events.back(), "425/257/1-");
    EXPECT_TRUE(crossings.raised().empty());
}

TEST_F(PmThresholds, ReadingThresholdsAsksNothingOfTheHardware)
{
    createData(kData, 10);
    EXPECT_CALL(hardware, refreshEthernetFrameCounters).Times(0);
    EXPECT_CALL(hardware, refreshEthernetFrameCounters64).Times(0);
    createPm(425);
    crossings.check(425, kInstance, Values(14, 10));
    EXPECT_EQ(crossings.raised().size(), 4U);
}

TEST_F(PmThresholds, MissingEntitiesClassesAndCountersCrossNothing)
{
    createData(kData, 10);
    crossings.check(312, kInstance, Values(14, 10));
    crossings.check(11, kInstance, Values(14, 10));
    createPm(312);
    crossings.check(312, kInstance, {});
    EXPECT_TRUE(events.empty());
}

}  // namespace
