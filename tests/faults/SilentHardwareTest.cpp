// A hardware layer that owes an answer: a refresh without a report, and a call that does not return.
#include <future>
#include <mutex>

#include "NorvikTimer.h"
#include "OmciManagedEntitiesCore.h"
#include "ServiceSession.h"
#include "Watchdog.h"
#include "host/Notifier.h"

using namespace model;

namespace {

constexpr std::chrono::seconds kLimit{120};
constexpr std::uint16_t kAniG = 263;
constexpr std::uint16_t kFirstAni = 1025;

Request askForLevel()
{
    return ask(GET, kAniG, kFirstAni, {0x00, 0x40});
}

unsigned int levelIn(const Bytes& answer)
{
    EXPECT_EQ(0, answer.at(8));
    return answer.at(11) * 256U + answer.at(12);
}

}  // namespace

TEST(SilentHardware, RefreshWithoutAReportLeavesTheLastValue)
{
    Subject onu(HardwareLayer::Silent);
    OmciManagedEntitiesCore core;
    core.updateAniGOpticalSignalLevel(kFirstAni, 0x1234);
    EXPECT_CALL(onu.hardwareLayer(), refreshAniOpticalSignalLevel(kFirstAni)).Times(3);
    EXPECT_EQ(0x1234U, levelIn(onu.ask(askForLevel())));
    EXPECT_EQ(0x1234U, levelIn(onu.ask(askForLevel())));
    // The answer comes late.
    core.updateAniGOpticalSignalLevel(kFirstAni, 0x2222);
    EXPECT_EQ(0x2222U, levelIn(onu.ask(askForLevel())));
}

TEST(SilentHardware, ReportAboutAnEntityThatHasGoneSinceIsTakenForNothing)
{
    constexpr std::uint16_t gemPortPm = 341;
    Subject onu(HardwareLayer::Silent);
    onu.ask(ask(CREATE, 268, 1, {3, 0xE9, 1, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    onu.ask(ask(CREATE, gemPortPm, 1, {0, 0}));
    EXPECT_EQ(0, onu.ask(ask(GET, gemPortPm, 1, {0x30, 0})).at(8));
    onu.ask(ask(DELETE, gemPortPm, 1));
    OmciManagedEntitiesCore().updateGemPortNetworkCtpPM(1, 1001, GemPortCounters{});
    constexpr std::uint8_t unknownInstance = 5;
    EXPECT_EQ(unknownInstance, onu.ask(ask(GET, gemPortPm, 1, {0x30, 0})).at(8));
    EXPECT_EQ(0, onu.ask(askForLevel()).at(8));
}

TEST(SilentHardware, CallThatDoesNotReturnHoldsUpRequestsButNoTimerAndNoAlarm)
{
    Watchdog watchdog(kLimit);
    Subject onu(HardwareLayer::Silent);
    std::promise<void> called;
    std::promise<void> released;
    EXPECT_CALL(onu.hardwareLayer(), refreshAniOpticalSignalLevel(kFirstAni)).WillOnce([&](unsigned short) {
        called.set_value();
        released.get_future().wait();
        return 0;
    });
    std::future<Bytes> answer = std::async(std::launch::async, [&onu] { return onu.ask(askForLevel()); });
    watchdog.note("the call");
    called.get_future().wait();

    watchdog.note("a timer");
    std::promise<void> fired;
    NorvikTimer timer([](sigval value) { static_cast<std::promise<void>*>(value.sival_ptr)->set_value(); }, &fired);
    timer.startOneShotTimer(1);
    fired.get_future().wait();

    watchdog.note("an alarm");
    unsigned int sent = 0;
    omci::Notifier notifier([&sent](const std::uint8_t*, std::size_t) { ++sent; }, omci::Mic());
    notifier.setMibKnown(true);
    EXPECT_TRUE(notifier.raiseAlarm(kAniG, kFirstAni, 0, true));
    EXPECT_EQ(1U, sent);

    EXPECT_EQ(std::future_status::timeout, answer.wait_for(std::chrono::seconds(0)));
    watchdog.note("the answer");
    released.set_value();
    EXPECT_EQ(0, answer.get().at(8));
    EXPECT_EQ(0, onu.ask(ask(GET, 256, 0, {0x80, 0})).at(8));
}
