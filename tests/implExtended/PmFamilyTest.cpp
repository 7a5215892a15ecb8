// What all PM entities share, class by class.
#include <bitset>
#include <functional>
#include <set>

#include "OmciManagedEntitiesCore.h"
#include "PmTest.h"

namespace {

using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;

enum class IntervalEndTime
{
    Stored,
    Counter,
    CounterOnGet
};
enum class Thresholds
{
    Stored,
    Dropped,
    ControlBlock
};
/// Whether the instance enters the registrar's picture; Tried: the start-up table has no row for the class.
enum class Entry
{
    None,
    Made,
    Tried
};
enum class Announced
{
    No,
    Yes
};
enum class AlarmUpload
{
    No,
    Yes
};

/// The refreshes that the read of one attribute causes.
using Refreshes = std::function<Calls(EnumOmciAction action, unsigned short mask)>;

/// The value for an adapter's refresh; 0 for none.
unsigned int statsActionOf(EnumOmciAction action)
{
    return action == OMCI_ACTION_GET ? 2 : action == OMCI_ACTION_GET_CURRENT_DATA ? 1 : 0;
}

/// The value for a refresh of the extended Ethernet entities without continuous accumulation.
unsigned int extendedStatsActionOf(EnumOmciAction action)
{
    return action == OMCI_ACTION_SET || action == OMCI_ACTION_GET_CURRENT_DATA ? 1 : 2;
}

constexpr unsigned short kId = 0x0101;

bool isCounter(unsigned short mask)
{
    return mask <= 0x2000;
}

const Refreshes never = [](EnumOmciAction, unsigned short) { return Calls(); };

Refreshes byAction(const char* operation)
{
    return [operation](EnumOmciAction action, unsigned short mask) {
        return isCounter(mask) ? Calls{callText(operation, action, kId)} : Calls();
    };
}

Refreshes ofGemPort(unsigned short classId)
{
    return [classId](EnumOmciAction action, unsigned short) {
        const unsigned int statsAction = statsActionOf(action);
        return statsAction != 0 ? Calls{callText("refreshGemPortCounters", classId, 1234, statsAction)} : Calls();
    };
}

Refreshes ofBridgePort(unsigned short classId)
{
    return [classId](EnumOmciAction action, unsigned short mask) {
        const unsigned int statsAction = statsActionOf(action);
        return statsAction != 0 && mask == 0x8000
                   ? Calls{callText("refreshEthernetFrameCounters", classId, 0x0102, statsAction, 0, 0)}
                   : Calls();
    };
}

Calls ethernetPort(EnumOmciAction action, unsigned short)
{
    const unsigned int statsAction = statsActionOf(action);
    return statsAction != 0 ? Calls{callText("refreshEthernetFrameCounters", 24, kId, statsAction, 0, 0)} : Calls();
}

Calls fec(EnumOmciAction action, unsigned short)
{
    const unsigned int statsAction = statsActionOf(action);
    return statsAction != 0 ? Calls{callText("refreshFecCounters", kId, statsAction)} : Calls();
}

Calls extended(EnumOmciAction action, unsigned short mask)
{
    Calls calls;
    if (const unsigned int statsAction = statsActionOf(action)) {
        calls.assign(2, callText("refreshEthernetFrameCounters", 334, kId, statsAction, 0, 0));
    }
    if (isCounter(mask)) {
        calls.push_back(callText("refreshEthernetFrameCounters", 334, kId, extendedStatsActionOf(action), 0, 0));
    }
    return calls;
}

Calls extended64Bit(EnumOmciAction action, unsigned short mask)
{
    const unsigned int statsAction = extendedStatsActionOf(action);
    Calls calls = {callText("refreshEthernetFrameCounters", 425, kId, statsAction, 0, 0xFFFF),
                   callText("refreshEthernetFrameCounters64", 425, kId, statsAction, 0, 0xFFFF)};
    if (isCounter(mask)) {
        calls.push_back(callText("refreshEthernetFrameCounters", 425, kId, statsAction, 0, 0));
    }
    return calls;
}

struct Row
{
    unsigned short classId;
    Refreshes refreshes;
    Announced announced;
    Entry entry;
    IntervalEndTime intervalEndTime;
    Thresholds thresholds;
    AlarmUpload alarmUpload;
    int applyResult;  // 0 also for classes without a binding to the hardware
};

std::vector<Row> family()
{
    const auto plain = [](unsigned short classId) {
        return Row{classId,         never, Announced::No, Entry::None, IntervalEndTime::Stored, Thresholds::Stored,
                   AlarmUpload::No, 0};
    };
    const auto voice = [](unsigned short classId) {
        return Row{classId,          never, Announced::No, Entry::None, IntervalEndTime::Stored, Thresholds::Dropped,
                   AlarmUpload::Yes, 0};
    };
    const auto twdm = [](unsigned short classId, const char* operation) {
        return Row{classId,
                   byAction(operation),
                   Announced::No,
                   Entry::Tried,
                   IntervalEndTime::Stored,
                   Thresholds::Stored,
                   AlarmUpload::Yes,
                   -1};
    };
    constexpr auto yes = Announced::Yes;
    constexpr auto no = Announced::No;
    constexpr auto stored = IntervalEndTime::Stored;
    constexpr auto kept = Thresholds::Stored;
    constexpr auto block = Thresholds::ControlBlock;
    constexpr auto alarms = AlarmUpload::Yes;
    constexpr auto noAlarms = AlarmUpload::No;
    return {
        {334, extended, yes, Entry::Made, stored, block, alarms, -1},
        {425, extended64Bit, yes, Entry::Made, stored, block, alarms, -1},
        {322, ofBridgePort(322), yes, Entry::None, IntervalEndTime::Counter, kept, noAlarms, -1},
        {321, ofBridgePort(321), yes, Entry::None, IntervalEndTime::Counter, kept, noAlarms, -1},
        {24, ethernetPort, no, Entry::None, stored, kept, noAlarms, -1},
        plain(89),
        {341, ofGemPort(341), no, Entry::None, IntervalEndTime::CounterOnGet, kept, noAlarms, -1},
        {267, ofGemPort(267), yes, Entry::None, IntervalEndTime::CounterOnGet, kept, noAlarms, -1},
        {312, fec, yes, Entry::Made, stored, kept, alarms, -1},
        {276, byAction("refreshGalEthernetPm"), no, Entry::Made, stored, kept, noAlarms, -1},
        plain(51),
        plain(52),
        twdm(65406, "refreshTwdmPhyLodsPm"),
        twdm(65407, "refreshTwdmXgemPm"),
        twdm(65408, "refreshTwdmPloamPm"),
        twdm(65409, "refreshTwdmPloamPm"),
        twdm(65410, "refreshTwdmPloamPm"),
        twdm(65411, "refreshTwdmTuningPm"),
        twdm(65412, "refreshTwdmTuningPm"),
        twdm(65413, "refreshTwdmTuningPm"),
        twdm(65414, "refreshTwdmOmciPm"),
        voice(140),
        voice(144),
        voice(151),
        voice(152),
        {65404, never, no, Entry::Tried, stored, kept, alarms, -1},
        plain(135),
        plain(65423),
        plain(342),
        plain(343),
        plain(65424),
    };
}

class PmFamily : public PmTest, public ::testing::WithParamInterface<Row>
{
protected:
    void SetUp() override
    {
        makeParents();
        ASSERT_EQ(create(me.classId, kInstance), 0);
    }

    unsigned int expectedIntervalEndTime(EnumOmciAction action) const
    {
        switch (me.intervalEndTime) {
        case IntervalEndTime::Counter:
            return Interval::getIntervalCounter();
        case IntervalEndTime::CounterOnGet:
            return action == OMCI_ACTION_GET ? Interval::getIntervalCounter() : 0U;
        case IntervalEndTime::Stored:
            break;
        }
        return 0;
    }

    const Row me = GetParam();
};

TEST_P(PmFamily, EveryAttributeRefreshesAsItsClassHasIt)
{
    for (const EnumOmciAction action : kActions) {
        for (const attributeDefinition& definition : readable(me.classId)) {
            EXPECT_EQ(callsOfGet(me.classId, definition.attributeMask, action),
                      me.refreshes(action, definition.attributeMask))
                << "action " << action << ", mask " << definition.attributeMask;
        }
    }
}

TEST_P(PmFamily, IntervalEndTimeIsStoredOrTheSharedCounter)
{
    for (const unsigned char counter : {0, 1, 7, 255}) {
        Interval::setIntervalCounter(counter);
        for (const EnumOmciAction action : kActions) {
            EXPECT_EQ(getNumber(me.classId, kInstance, kIntervalEndTime, action), expectedIntervalEndTime(action))
                << "counter " << +counter << ", action " << action;
        }
    }
}

TEST_P(PmFamily, ThresholdsAreStoredOrDropped)
{
    if (me.thresholds == Thresholds::ControlBlock) {
        std::vector<unsigned char> block(16, 0x5A);
        EXPECT_EQ(set(me.classId, kInstance, kThresholds, block), 0);
        EXPECT_EQ(get(me.classId, kInstance, kThresholds), block);
        return;
    }
    EXPECT_EQ(getNumber(me.classId, kInstance, kThresholds), 0U);
    EXPECT_EQ(set(me.classId, kInstance, kThresholds, 0xABCD), 0);
    EXPECT_EQ(getNumber(me.classId, kInstance, kThresholds), me.thresholds == Thresholds::Dropped ? 0U : 0xABCDU);
}

TEST_P(PmFamily, NewEntityReadsZeroInEveryCounter)
{
    // Of the operational PM these are gauges, all ones while nobody knows them.
    const std::set<unsigned short> gauges = {0x0800, 0x0400, 0x0200, 0x0100, 0x0080};
    for (const attributeDefinition& definition : readable(me.classId)) {
        const bool gauge = me.classId == 65424 && gauges.count(definition.attributeMask) != 0;
        const std::size_t size = definition.isTableAttribute != 0 ? 4 : definition.attributeSize;
        EXPECT_EQ(get(me.classId, kInstance, definition.attributeMask),
                  std::vector<unsigned char>(size, gauge ? 0xFF : 0))
            << definition.attributeMask;
    }
}

TEST_P(PmFamily, HardwareLearnsOfAnInstanceThatIsAnnounced)
{
    calls.clear();
    EXPECT_EQ(create(me.classId, kInstance + 1), 0);
    EXPECT_EQ(calls, me.announced == Announced::Yes ? Calls{callText("createPmInstance", me.classId, kInstance + 1)}
                                                    : Calls());
}

TEST_P(PmFamily, HardwareForgetsADeletedInstanceAfterTheStoreHas)
{
    Calls expected;
    if (me.classId == 312) {
        expected.push_back("resetFecCounters(312,3)");
    }
    if (me.announced == Announced::Yes) {
        expected.push_back(callText("deletePmInstance", me.classId, kInstance));
    }
    bool known = true;
    ON_CALL(hardware, deletePmInstance).WillByDefault([&](unsigned short classId, unsigned short instance) {
        known = adapter(classId).findManagedEntityInstance(instance) == 0;
        calls.push_back(callText("deletePmInstance", classId, instance));
        return 0;
    });
    calls.clear();
    EXPECT_EQ(adapter(me.classId).deleteManagedEntityInstance(kInstance, true), 0);
    EXPECT_EQ(calls, expected);
    EXPECT_EQ(known, me.announced == Announced::No);
}

TEST_P(PmFamily, DeleteOfAMissingInstanceIsNotTold)
{
    calls.clear();
    EXPECT_EQ(adapter(me.classId).deleteManagedEntityInstance(kInstance + 1, true), -1);
    EXPECT_EQ(calls, Calls());
}

TEST_P(PmFamily, ApplyReachesNoHardware)
{
    calls.clear();
    EXPECT_EQ(adapter(me.classId).applyConfigurationToHardwareForSet(kInstance), me.applyResult);
    EXPECT_EQ(calls, Calls());
}

TEST_P(PmFamily, AlarmsAreSetByTheHost)
{
    EXPECT_EQ(adapter(me.classId).isPartOfAlarmsUpload(), me.alarmUpload == AlarmUpload::Yes);
    EXPECT_EQ(adapter(me.classId).updateAlarmsBitmap(kInstance, 222, true), 0);
    std::bitset<223> alarms;
    EXPECT_TRUE(adapter(me.classId).getAlarmsBitmap(kInstance, alarms));
    EXPECT_TRUE(alarms.test(222));
    EXPECT_EQ(alarms.count(), 1U);
}

TEST_P(PmFamily, MissingHardwareSkipsTheCallsAndReadsTheStore)
{
    removeHardware();
    for (const EnumOmciAction action : kActions) {
        for (const attributeDefinition& definition : readable(me.classId)) {
            log.clear();
            const std::size_t skipped = me.refreshes(action, definition.attributeMask).size();
            get(me.classId, kInstance, definition.attributeMask, action);
            // Both kinds of parent are one question.
            EXPECT_EQ(log.count(3, "Detected NULL pointer"), me.classId == 425 ? skipped - 1 : skipped);
        }
    }
    EXPECT_EQ(create(me.classId, kInstance + 1), 0);
    EXPECT_EQ(adapter(me.classId).deleteManagedEntityInstance(kInstance + 1, true), 0);
    EXPECT_EQ(calls.size(), me.announced == Announced::Yes ? 1U : 0U);  // of SetUp
}

TEST_P(PmFamily, InstanceEntersThePictureWhenTheStartUpTableHasItsClass)
{
    startUp();
    log.clear();
    EXPECT_EQ(create(me.classId, 0x0333), 0);
    EXPECT_EQ(timesInPicture(me.classId, 0x0333), me.entry == Entry::Made ? 1 : 0);
    const std::string name = std::to_string(me.classId) + "; 819";
    EXPECT_EQ(log.count(4, "Managed entity(" + name + ") not supported"), me.entry == Entry::Tried ? 1U : 0U);
    EXPECT_EQ(log.has(6, "Managed entity(" + name + ") to add"), me.entry != Entry::None);
}

TEST_P(PmFamily, SecondCreateOfAnInstanceAddsNothingToThePicture)
{
    startUp();
    ASSERT_EQ(create(me.classId, 0x0333), 0);
    adapter(me.classId).deleteManagedEntityInstance(0x0333, true);
    log.clear();
    ASSERT_EQ(create(me.classId, 0x0333), 0);
    const bool entered = me.entry == Entry::Made;
    EXPECT_EQ(timesInPicture(me.classId, 0x0333), entered ? 1 : 0);
    EXPECT_EQ(log.has(4, "Managed entity(" + std::to_string(me.classId) + "; 819) already configured"), entered);
}

TEST_P(PmFamily, GetCurrentDataWithoutAFrameFails)
{
    EXPECT_EQ(adapter(me.classId).getCurrentData(nullptr), -1);
}

INSTANTIATE_TEST_SUITE_P(Classes, PmFamily, ::testing::ValuesIn(family()),
                         [](const ::testing::TestParamInfo<Row>& row) { return std::to_string(row.param.classId); });

class IntervalCounter : public PmTest
{};

TEST_F(IntervalCounter, WrapsAt255)
{
    Interval::setIntervalCounter(255);
    Interval::incrementIntervalCounter();
    EXPECT_EQ(Interval::getIntervalCounter(), 0);
    Interval::incrementIntervalCounter();
    EXPECT_EQ(Interval::getIntervalCounter(), 1);
}

TEST_F(IntervalCounter, ResetStoresZero)
{
    Interval::setIntervalCounter(77);
    EXPECT_EQ(Interval::getIntervalCounter(), 77);
    Interval::resetIntervalCounter();
    EXPECT_EQ(Interval::getIntervalCounter(), 0);
}

class ThresholdData : public PmTest
{};

TEST_F(ThresholdData, ReachesNoHardware)
{
    for (const unsigned short classId : {273, 274, 426}) {
        ASSERT_EQ(create(classId, 1), 0);
        for (const attributeDefinition& definition : readable(classId)) {
            EXPECT_EQ(set(classId, 1, definition.attributeMask, 0x01020304), 0);
            EXPECT_EQ(getNumber(classId, 1, definition.attributeMask), 0x01020304U);
        }
        EXPECT_EQ(adapter(classId).applyConfigurationToHardwareForSet(1), -1);
        EXPECT_EQ(adapter(classId).deleteManagedEntityInstance(1, true), 0);
    }
    EXPECT_EQ(calls, Calls());
}

TEST_F(ThresholdData, Of64BitsStartsAtTheLargestValue)
{
    ASSERT_EQ(create(426, 1), 0);
    const std::list<attributeDefinition> thresholds = readable(426);
    EXPECT_EQ(thresholds.size(), 14U);
    for (const attributeDefinition& definition : thresholds) {
        EXPECT_EQ(getNumber(426, 1, definition.attributeMask), 0xFFFFFFFFFFFFFFFFU);
    }
}

}  // namespace
