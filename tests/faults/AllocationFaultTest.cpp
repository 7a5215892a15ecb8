// A session in which each allocation fails once in turn: every request is answered all the same, nothing is lost, and
// the MIB that is left uploads well-formed.

#include "FailingNew.h"
#include "Logger.h"
#include "ServiceSession.h"
#include "host/LogSink.h"
#include "model/Subject.h"

using namespace model;

namespace {

const ClassList& classes()
{
    static const ClassList list = readClassList(CLASS_LIST_DIRECTORY);
    return list;
}

/// What a session left behind.
struct Outcome
{
    std::size_t allocations = 0;
    bool failed = false;    ///< whether the allocation to fail was reached
    std::string complaint;  ///< of the first request that was not answered
    UploadedValues mib;     ///< after one more MIB reset
};

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Plays the session; its allocation number `failing` fails.
Outcome play(Subject& onu, std::size_t failing)
{
    Outcome outcome;
    for (const Request& request : serviceSession()) {
        const Bytes frame = onu.nextFrame(request);
        failingNew::failAfter(outcome.failed ? kNone : failing - outcome.allocations);
        const omci::Dispatcher::Reply reply = onu.handle(frame);
        outcome.allocations += failingNew::calls();
        outcome.failed = outcome.failed || failingNew::hasFailed();
        failingNew::disarm();
        const Bytes answer(reply.data, reply.data + reply.length);
        if (outcome.complaint.empty() && !isAnswerTo(request, onu.lastTransactionId(), answer)) {
            outcome.complaint = textOf(request) + ": " + hexOf(answer);
        }
    }
    onu.ask(ask(MIB_RESET, 2, 0));
    outcome.mib = onu.upload(classes(), true);
    return outcome;
}

/// The blocks that a session of an ONU of its own leaves.
std::ptrdiff_t blocksLeftBy(std::size_t failing)
{
    const std::size_t before = failingNew::blocks();
    {
        Subject onu(HardwareLayer::Silent);
        play(onu, failing);
    }
    return static_cast<std::ptrdiff_t>(failingNew::blocks()) - static_cast<std::ptrdiff_t>(before);
}

/// What an undisturbed session leaves, once all that is kept for the life of the process is there.
Outcome undisturbed()
{
    blocksLeftBy(kNone);
    Subject onu(HardwareLayer::Silent);
    return play(onu, kNone);
}

/// A frame that is dropped for the reason, and the ONU that drops it.
struct DroppedFrame
{
    omci::DropReason reason;
    Bytes frame;
    const char* mic = "none";
    bool takesBaselineOnly = false;
};

std::vector<DroppedFrame> droppedFrames()
{
    using omci::DropReason;
    constexpr std::uint8_t reserved = 0x80;
    constexpr std::uint8_t acknowledgement = 0x20;
    const Bytes request = frameOf(ask(GET, 256, 0, {0x80, 0}), 1);
    Bytes silent = frameOf({GET, false, false, 256, 0, {0x80, 0}}, 1);
    const auto withOctet = [&request](std::size_t index, unsigned int bits) {
        Bytes changed = request;
        changed[index] = static_cast<std::uint8_t>(changed[index] | bits);
        return changed;
    };
    const auto ofLength = [](Bytes frame, std::size_t length) {
        frame.resize(length);
        return frame;
    };
    return {{DropReason::TooShort, ofLength(request, 7)},
            {DropReason::UnknownDeviceId, withOctet(3, 0x33)},
            {DropReason::InvalidMessageType, withOctet(2, reserved)},
            {DropReason::Truncated, ofLength(silent, 39)},
            {DropReason::Oversized, ofLength(silent, 60)},
            {DropReason::WrongMic, request, "crc32"},
            {DropReason::NotARequest, withOctet(2, acknowledgement)},
            {DropReason::ExtendedRefused, frameOf({GET, true, true, 256, 0, {0x80, 0}}, 1), "none", true}};
}

}  // namespace

TEST(AllocationFault, EachOneOfADroppedFrameLeavesItDropped)
{
    Logger::getInstance(omci::kHostLoggerId)->setLevel(0);
    const std::vector<DroppedFrame> frames = droppedFrames();
    ASSERT_EQ(omci::kDropReasons, frames.size());
    for (const DroppedFrame& dropped : frames) {
        std::string problem;
        omci::Dispatcher dispatcher(*omci::Mic::parse(dropped.mic, problem));
        if (dropped.takesBaselineOnly) {
            dispatcher.takeBaselineOnly();
        }
        std::size_t handled = 0;
        bool failed = true;
        for (; failed; ++handled) {
            failingNew::failAfter(handled);
            const omci::Dispatcher::Reply reply = dispatcher.handle(dropped.frame.data(), dropped.frame.size());
            failed = failingNew::hasFailed();
            failingNew::disarm();
            EXPECT_EQ(0U, reply.length);
        }
        EXPECT_LT(1U, handled) << dropReasonName(dropped.reason) << ": no allocation failed";
        EXPECT_EQ(handled, dispatcher.statistics().dropped(dropped.reason)) << dropReasonName(dropped.reason);
    }
}

TEST(AllocationFault, EachOneOfASessionIsAnsweredAndTheMibResetsToItsStart)
{
    const Outcome sound = undisturbed();
    ASSERT_EQ("", sound.complaint);
    ASSERT_FALSE(sound.failed);
    ASSERT_LT(0U, sound.allocations);
    for (std::size_t failing = 0; failing < sound.allocations; ++failing) {
        Subject onu(HardwareLayer::Silent);
        const Outcome outcome = play(onu, failing);
        EXPECT_TRUE(outcome.failed) << "allocation " << failing;
        EXPECT_EQ("", outcome.complaint) << "allocation " << failing;
        EXPECT_EQ(sound.mib, outcome.mib) << "allocation " << failing;
    }
}

TEST(AllocationFault, EachOneOfASessionLosesNoMemory)
{
    const std::size_t allocations = undisturbed().allocations;
    ASSERT_EQ(0, blocksLeftBy(kNone));
    ASSERT_LT(0U, allocations);
    for (std::size_t failing = 0; failing < allocations; ++failing) {
        // What is made once and kept for the life of the process is not left a second time.
        if (blocksLeftBy(failing) != 0) {
            EXPECT_EQ(0, blocksLeftBy(failing)) << "allocation " << failing;
        }
    }
}
