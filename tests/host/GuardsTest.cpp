// What must end well even when the log line about it fails.
#include <atomic>
#include <chrono>
#include <new>
#include <stdexcept>
#include <thread>

#include "DispatcherFixture.h"
#include "omci_host/NorvikTimer.h"

using namespace omci;

namespace {

/// While one lives, no line of the host can be logged.
class NoMemoryForLogLines
{
public:
    NoMemoryForLogLines()
    {
        Logger::getInstance(kHostLoggerId)
            ->setObserver([](const Logger::Line&, void*) { throw std::bad_alloc(); }, nullptr);
    }
    ~NoMemoryForLogLines() { Logger::getInstance(kHostLoggerId)->setObserver(nullptr, nullptr); }
    NoMemoryForLogLines(const NoMemoryForLogLines&) = delete;
    NoMemoryForLogLines& operator=(const NoMemoryForLogLines&) = delete;
};

/// A class whose instances come, take no value, and cannot be taken away again.
class StubbornMe : public FakeMe
{
public:
    using FakeMe::FakeMe;

    int setAttribute(unsigned short, const attributeDefinition*, const unsigned char*) const override { return -1; }
    int deleteManagedEntityInstance(unsigned short, bool) const override { throw std::runtime_error("busy"); }
};

class Guards : public DispatcherTest
{
protected:
    NoMemoryForLogLines noMemory;
};

}  // namespace

TEST_F(Guards, DropsAFrameThatItCannotLog)
{
    const Bytes tooShort(3);
    EXPECT_TRUE(handle(tooShort).empty());
    EXPECT_EQ(1U, dispatcher.statistics().dropped(DropReason::TooShort));
}

TEST_F(Guards, AnswersARequestWhoseFailureItCannotLog)
{
    FakeMe me{100, {attribute(0x8000, 1, R)}};
    me.add(1);
    me.throws = true;
    EXPECT_EQ(padded("01"), ask(MessageType::Get, 100, 1, "8000"));
}

TEST_F(Guards, AnswersACreateThatCanNeitherBeDoneNorUndoneNorLogged)
{
    StubbornMe me{100, {attribute(0x8000, 1, R | C)}};
    me.creatable = true;
    EXPECT_EQ(padded("038000"), ask(MessageType::Create, 100, 1, "42"));
}

TEST_F(Guards, KeepTheTimersGoingWhenAHandlerThrows)
{
    std::atomic<bool> fired{false};
    NorvikTimer broken([](sigval) { throw std::runtime_error("handler"); }, nullptr);
    NorvikTimer brokenOtherwise([](sigval) { throw 1; }, nullptr);
    NorvikTimer sound([](sigval argument) { *static_cast<std::atomic<bool>*>(argument.sival_ptr) = true; }, &fired);
    broken.startOneShotTimer(1);
    brokenOtherwise.startOneShotTimer(1);
    sound.startOneShotTimer(5);
    for (int wait = 0; wait < 10000 && !fired; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(fired);
}
