#include "hardware/Optics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace std::chrono_literals;

namespace {
int signedLevel(unsigned short level)
{
    return static_cast<short>(level);
}
}  // namespace

TEST(Optics, FirstMonitorPeriodShowsTheNominalLevels)
{
    for (const auto uptime : {0s, 1s, 59s}) {
        const optics::Levels levels = optics::levelsAfter(uptime, {});
        EXPECT_EQ(-10000, signedLevel(levels.received));
        EXPECT_EQ(1000, signedLevel(levels.transmitted));
    }
}

TEST(Optics, LevelsDriftByLittleStepsWithinATenthOfADecibel)
{
    int received = -10000;
    int lowest = received;
    int highest = received;
    for (auto uptime = 0s; uptime < 24h; uptime += optics::kMonitorPeriod) {
        const int now = signedLevel(optics::levelsAfter(uptime, {}).received);
        EXPECT_LE(std::abs(now - received), 6);
        received = now;
        lowest = std::min(lowest, now);
        highest = std::max(highest, now);
    }
    EXPECT_EQ(-10060, lowest);
    EXPECT_EQ(-9940, highest);
}

TEST(Optics, FixedLevelStaysWhileTheOtherDrifts)
{
    optics::FixedLevels fixed;
    fixed.received = 5;
    const optics::Levels levels = optics::levelsAfter(5 * optics::kMonitorPeriod, fixed);
    EXPECT_EQ(5, levels.received);
    EXPECT_NE(1000, signedLevel(levels.transmitted));
}

TEST(Optics, ReadingsAreThoseOfAWarmModule)
{
    for (auto uptime = 0s; uptime < 24h; uptime += optics::kMonitorPeriod) {
        const optics::ModuleReadings readings = optics::readingsAfter(uptime);
        EXPECT_EQ(165, readings.voltage);
        EXPECT_NEAR(6000, readings.bias, 70);
        EXPECT_NEAR(42 * 256, readings.temperature, 3 * 256);
    }
}
