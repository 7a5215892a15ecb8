// Intervals of performance monitoring, and counters over them.
#include <gmock/gmock.h>

#include <utility>

#include "host/pm/IntervalClock.h"
#include "host/pm/IntervalCounters.h"
#include "host/pm/PmControlBlock.h"

using namespace omci;
using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::Pair;

namespace {

class PmClock : public ::testing::Test
{
protected:
    using Duration = IntervalClock::Duration;

    /// The steps that the time makes.
    std::vector<std::pair<Duration, std::uint64_t>> advance(Duration time)
    {
        std::vector<std::pair<Duration, std::uint64_t>> steps;
        clock.advance(time, [&](Duration stretch, std::uint64_t ended) { steps.emplace_back(stretch, ended); });
        return steps;
    }

    IntervalClock clock;
};

TEST_F(PmClock, IntervalsLastFifteenMinutes)
{
    EXPECT_THAT(advance(899s), ElementsAre(Pair(899s, 0U)));
    EXPECT_EQ(clock.untilEnd(), 1s);
    EXPECT_THAT(advance(1s), ElementsAre(Pair(1s, 1U)));
    EXPECT_EQ(clock.untilEnd(), 900s);
}

TEST_F(PmClock, TimeIsDividedAtTheEndOfEachInterval)
{
    advance(600s);
    EXPECT_THAT(advance(1300s), ElementsAre(Pair(300s, 1U), Pair(900s, 1U), Pair(100s, 0U)));
}

TEST_F(PmClock, NoTimeIsNoStep)
{
    EXPECT_THAT(advance(0s), ElementsAre());
}

TEST_F(PmClock, RestartBeginsAnIntervalThatWasNeverEnded)
{
    advance(600s);
    clock.restart();
    EXPECT_THAT(advance(600s), ElementsAre(Pair(600s, 0U)));
    EXPECT_THAT(advance(300s), ElementsAre(Pair(300s, 1U)));
}

TEST_F(PmClock, ShorterLengthEndsAnIntervalThatHasLastedThatLong)
{
    advance(600s);
    clock.setLength(60s);
    EXPECT_EQ(clock.untilEnd(), 0s);
    EXPECT_THAT(advance(0s), ElementsAre(Pair(0s, 1U)));
    EXPECT_THAT(advance(60s), ElementsAre(Pair(60s, 1U)));
}

TEST_F(PmClock, ManyIntervalsPassInOneStepAndTheLastByItself)
{
    clock.setLength(1s);
    EXPECT_THAT(advance(1000500ms), ElementsAre(Pair(999s, 999U), Pair(1s, 1U), Pair(500ms, 0U)));
    EXPECT_EQ(advance(100s).size(), 101U) << "as many as are told one by one";
}

TEST(PmCounters, AddGrowsTheRunningIntervalAndTheContinuousCount)
{
    IntervalCounters counters(2);
    counters.add(1, 5);
    counters.add(1, 6);
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(0, 11));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(0, 11));
    EXPECT_THAT(counters.values(PmView::History), ElementsAre(0, 0));
}

TEST(PmCounters, EndOfAnIntervalMakesItTheLastOne)
{
    IntervalCounters counters(1);
    counters.add(0, 5);
    counters.endInterval();
    counters.add(0, 2);
    EXPECT_THAT(counters.values(PmView::History), ElementsAre(5));
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(2));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(7));
    counters.endInterval();
    EXPECT_THAT(counters.values(PmView::History), ElementsAre(2));
}

TEST(PmCounters, FullCounterStaysFull)
{
    constexpr std::uint64_t full = ~std::uint64_t{0};
    IntervalCounters counters(1);
    counters.add(0, full - 1);
    counters.add(0, 5);
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(full));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(full));
}

TEST(PmCounters, ClearConcernsOneViewAndARangeOfCounters)
{
    IntervalCounters counters(3);
    for (std::size_t i = 0; i < 3; ++i) {
        counters.add(i, 9);
    }
    counters.clear(PmView::Current, 1, 1);
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(9, 0, 9));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(9, 9, 9));
    counters.clear(PmView::Continuous, 2, 100);
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(9, 9, 0));
    counters.clear(PmView::Current, 100, 1);
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(9, 0, 9));
}

TEST(PmCounters, RestartForgetsTheIntervalsAndNotTheContinuousCount)
{
    IntervalCounters counters(1);
    counters.add(0, 5);
    counters.endInterval();
    counters.add(0, 3);
    counters.restart();
    EXPECT_THAT(counters.values(PmView::History), ElementsAre(0));
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(0));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(8));
}

TEST(PmCounters, ReportReplacesTheRunningInterval)
{
    IntervalCounters counters(2);
    counters.add(0, 5);
    counters.endInterval();
    counters.report({70});
    EXPECT_THAT(counters.values(PmView::History), ElementsAre(5, 0));
    EXPECT_THAT(counters.values(PmView::Current), ElementsAre(70, 0));
    EXPECT_THAT(counters.values(PmView::Continuous), ElementsAre(70, 0));
}

TEST(PmControlBlockTest, FieldsAreInNetworkOrder)
{
    const unsigned char octets[16] = {0x12, 0x34, 0x00, 0x0B, 0x01, 0x02};
    const PmControlBlock block(octets);
    EXPECT_EQ(block.thresholdData(), 0x1234);
    EXPECT_EQ(block.parentClass(), 11);
    EXPECT_EQ(block.parentInstance(), 0x0102);
    EXPECT_FALSE(block.isContinuous());
    EXPECT_TRUE(block.counts(1));
    EXPECT_TRUE(block.alerts(14));
}

TEST(PmControlBlockTest, EachCounterHasABitAndAllTogetherHaveOne)
{
    unsigned char octets[16] = {};
    octets[6] = 0x20;  // counter 14
    octets[9] = 0x01;  // alert of counter 1
    octets[11] = 0x01;
    const PmControlBlock single(octets);
    EXPECT_FALSE(single.counts(14));
    EXPECT_TRUE(single.counts(13));
    EXPECT_FALSE(single.alerts(1));
    EXPECT_TRUE(single.alerts(2));
    EXPECT_TRUE(single.isContinuous());
    octets[6] = 0x40;
    octets[8] = 0x40;
    const PmControlBlock all(octets);
    for (unsigned counter = 1; counter <= 14; ++counter) {
        EXPECT_FALSE(all.counts(counter));
        EXPECT_FALSE(all.alerts(counter));
    }
    octets[6] = 0x80;  // a clear stops nothing
    EXPECT_TRUE(PmControlBlock(octets).counts(1));
}

}  // namespace
