// A software upgrade in which each call of the library on files, shell and threads fails once in turn, each call on the
// hardware layer, each log line, and upgrades onto a disk that fills up.
#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <set>
#include <thread>

#include "HookedHardware.h"
#include "Logger.h"
#include "NorvikTimer.h"
#include "ServiceSession.h"
#include "SoftwareDownloadAccess.h"
#include "Upgrade.h"
#include "host/LogSink.h"
#include "implExtended/OmciMeSoftwareImageImplExtended.h"
#include "model/Subject.h"
#include "sandbox/Sandbox.h"
#include "sandbox/SandboxState.h"

using namespace model;

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// While the ONU is about a request of the OLT.
thread_local bool isAboutARequest = false;

/// What a process holds besides memory.
struct Holdings
{
    std::size_t descriptors;
    std::size_t threads;
    std::set<std::string> files;

    static std::size_t count(const char* directory)
    {
        const std::filesystem::directory_iterator entries(directory);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }
    static Holdings now()
    {
        const sandbox::OwnWork own;
        Holdings holdings{count("/proc/self/fd"), count("/proc/self/task"), {}};
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Sandbox::directory())) {
            holdings.files.insert(entry.path().string());
        }
        return holdings;
    }
    bool operator==(const Holdings& other) const
    {
        return descriptors == other.descriptors && threads == other.threads && files == other.files;
    }
};

void PrintTo(const Holdings& holdings, std::ostream* out)
{
    *out << holdings.descriptors << " descriptors, " << holdings.threads << " threads, files";
    for (const std::string& file : holdings.files) {
        *out << ' ' << file;
    }
}

/// An ONU on a board with two slots, and the OLT that upgrades it.
class UpgradedOnu
{
public:
    explicit UpgradedOnu(bool isExtended)
        : m_Onu(HardwareLayer::Silent),
          m_Upgrade([this](const Request& request) { return ask(request); }, [this] { restart(); }, m_Board, isExtended)
    {
        ::testing::DefaultValue<bool>::Set(true);
        nrvk::forgetSoftwareDownload();
        m_Board.connect();
        Sandbox::setFreeSpace(1U << 30);
        timePasses();
    }

    ~UpgradedOnu() { ::testing::DefaultValue<bool>::Clear(); }
    UpgradedOnu(const UpgradedOnu&) = delete;
    UpgradedOnu& operator=(const UpgradedOnu&) = delete;

    Upgrade& olt() { return m_Upgrade; }
    const SlotBoard& board() const { return m_Board; }
    void connectBoard() { m_Board.connect(); }
    /// The next read of an image's attributes goes to the file.
    static void timePasses() { OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler({}); }

    /// What the MIB says of the images and the board does not; empty when they agree.
    std::string disagreement()
    {
        std::string found;
        for (unsigned int instance = 0; instance < 2; ++instance) {
            timePasses();
            const SlotBoard::Slot slot = m_Board.slot(instance);
            const auto compare = [&](const char* what, bool ofMib, bool ofBoard) {
                found += ofMib == ofBoard ? "" : std::string(what) + " of image " + std::to_string(instance) + "; ";
            };
            compare("committed", m_Upgrade.isCommitted(instance), slot.isCommitted);
            compare("active", m_Upgrade.isActive(instance), slot.isActive);
            compare("valid", m_Upgrade.isValid(instance), slot.isValid);
        }
        return found;
    }
    /// Whether the MIB calls an image valid that is not.
    bool claimsTooMuch()
    {
        return (m_Upgrade.isValid(0) && !m_Board.slot(0).isValid) || (m_Upgrade.isValid(1) && !m_Board.slot(1).isValid);
    }

private:
    Bytes ask(const Request& request)
    {
        const Bytes frame = m_Onu.nextFrame(request);
        isAboutARequest = true;
        const omci::Dispatcher::Reply reply = m_Onu.handle(frame);
        isAboutARequest = false;
        const std::size_t head = request.isExtended ? 10 : 8;
        if (!request.wantsAnswer || reply.length < head) {
            return {};
        }
        const Bytes answer(reply.data, reply.data + reply.length);
        const bool isAnswer = isAnswerTo(request, m_Onu.lastTransactionId(), answer);
        return isAnswer ? Bytes(answer.begin() + static_cast<std::ptrdiff_t>(head), answer.end()) : Bytes();
    }
    void restart()
    {
        nrvk::forgetSoftwareDownload();
        m_Board.reboot();
        timePasses();
    }

    SlotBoard m_Board;
    Subject m_Onu;
    Upgrade m_Upgrade;
};

class DownloadFault : public ::testing::TestWithParam<bool>
{
protected:
    DownloadFault()
    {
        NorvikTimer::setTimeScale(0.01);
        // The timers' thread, which stays, and the files of an upgrade.
        UpgradedOnu onu(isExtended());
        EXPECT_TRUE(onu.olt().play(image())) << onu.olt().complaint();
        m_AtFirst = settled([](const Holdings& holdings) { return holdings.threads <= 2; });
    }
    ~DownloadFault() override { NorvikTimer::setTimeScale(1); }

    bool isExtended() const { return GetParam(); }
    Bytes image() const
    {
        Bytes image(isExtended() ? 1900 : 305);
        unsigned int value = 12345;
        for (std::uint8_t& octet : image) {
            value = value * 1103515245U + 12345U;
            octet = static_cast<std::uint8_t>(value >> 16);
        }
        return image;
    }

    std::vector<std::string> callsOfAnUpgrade() const
    {
        UpgradedOnu onu(isExtended());
        Sandbox::numberCalls();
        EXPECT_TRUE(onu.olt().play(image()));
        return Sandbox::numberedCalls();
    }

    /// Once the writer's thread, which detaches itself, has gone.
    template <typename IsSettled>
    static Holdings settled(IsSettled isSettled)
    {
        Holdings holdings = Holdings::now();
        for (int wait = 0; wait < 5000 && !isSettled(holdings); ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            holdings = Holdings::now();
        }
        return holdings;
    }

    /// After the fault: the MIB is true, the next upgrade goes through, nothing is left over.
    void expectRecovery(UpgradedOnu& onu)
    {
        EXPECT_EQ("", onu.olt().complaint());
        EXPECT_FALSE(onu.claimsTooMuch());
        EXPECT_EQ("", onu.disagreement());
        EXPECT_TRUE(onu.olt().play(image()));
        EXPECT_EQ("", onu.olt().complaint());
        EXPECT_EQ("", onu.disagreement());
        EXPECT_EQ(image(), SlotBoard::receivedImage());
        EXPECT_EQ(m_AtFirst, settled([this](const Holdings& holdings) { return holdings == m_AtFirst; }));
    }

private:
    Holdings m_AtFirst;
};

std::string formatName(const ::testing::TestParamInfo<bool>& info)
{
    return info.param ? "Extended" : "Baseline";
}

}  // namespace

TEST_P(DownloadFault, EachCallOfAnUpgradeFailsOnceAndTheNextUpgradeGoesThrough)
{
    const std::vector<std::string> calls = callsOfAnUpgrade();
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // A sanitizer owns the allocator.
    EXPECT_NE(calls.end(), std::find(calls.begin(), calls.end(), "calloc"));
#endif
    for (const char* expected : {"statvfs", "pthread_create", "open", "write", "close", "system", "fopen", "fgets",
                                 "fclose", "fstat", "fread"}) {
        EXPECT_NE(calls.end(), std::find(calls.begin(), calls.end(), expected)) << expected;
    }
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing) + ": " + calls[failing]);
        UpgradedOnu onu(isExtended());
        Sandbox::failCall(failing, EIO);
        onu.olt().play(image());
        ASSERT_LT(failing, Sandbox::numberedCalls().size());
        EXPECT_EQ(calls[failing], Sandbox::numberedCalls()[failing]);
        expectRecovery(onu);
    }
}

TEST_P(DownloadFault, DiskThatFillsUpIsNoSuccess)
{
    const std::size_t size = image().size();
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, size / 2, size - 1}) {
        SCOPED_TRACE("room for " + std::to_string(room) + " octets");
        UpgradedOnu onu(isExtended());
        Sandbox::setRoom(room);
        EXPECT_FALSE(onu.olt().play(image()));
        EXPECT_FALSE(onu.board().slot(1).isValid);
        Sandbox::setRoom(std::nullopt);
        expectRecovery(onu);
    }
    UpgradedOnu onu(isExtended());
    Sandbox::setRoom(size);
    EXPECT_TRUE(onu.olt().play(image()));
}

TEST_P(DownloadFault, DiskThatTellsAtTheCloseThatItIsFullIsNoSuccess)
{
    const std::vector<std::string> calls = callsOfAnUpgrade();
    const auto closing = std::find(calls.begin(), calls.end(), "close");
    ASSERT_NE(calls.end(), closing);
    UpgradedOnu full(isExtended());
    Sandbox::failCall(static_cast<std::size_t>(closing - calls.begin()), ENOSPC);
    EXPECT_FALSE(full.olt().play(image()));
    EXPECT_FALSE(full.board().slot(1).isValid);
    expectRecovery(full);
}

TEST_P(DownloadFault, StatusOfAnEarlierImageIsNotTakenForThatOfOneThatCouldNotBeVerified)
{
    UpgradedOnu onu(isExtended());
    ASSERT_TRUE(onu.olt().play(image()));
    Sandbox::numberCalls();
    ASSERT_TRUE(onu.olt().play(image()));
    const std::vector<std::string> calls = Sandbox::numberedCalls();
    const auto closing = std::find(calls.begin(), calls.end(), "close");
    const auto verify = std::find(closing, calls.end(), "system");
    ASSERT_NE(calls.end(), verify);
    // The one retry runs the script.
    Sandbox::clearCommands();
    Sandbox::failCall(static_cast<std::size_t>(verify - calls.begin()), ENOMEM);
    EXPECT_TRUE(onu.olt().play(image()));
    const std::vector<std::string> commands = Sandbox::commands();
    EXPECT_EQ(1, std::count_if(commands.begin(), commands.end(), [](const std::string& command) {
                  return command.find("verify_and_exec") != std::string::npos;
              }));
    expectRecovery(onu);
}

TEST_P(DownloadFault, EachCallOnTheHardwareThrowsOnceAndTheNextUpgradeGoesThrough)
{
    std::size_t failing = 0;
    for (bool hasThrown = true; hasThrown; ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing));
        UpgradedOnu onu(isExtended());
        {
            ThrowingHardware hardware(failing, ThrowingHardware::What::Exception);
            onu.olt().play(image());
            hasThrown = hardware.hasThrown();
        }
        ::testing::DefaultValue<bool>::Set(true);
        expectRecovery(onu);
    }
    // Transfer begun, check, transfer ended, committed.
    EXPECT_LT(4U, failing);
}

TEST_P(DownloadFault, EachCallOnTheHardwareAboutAnImageThatIsRefusedThrowsOnceAndTheNextUpgradeGoesThrough)
{
    std::size_t failing = 0;
    for (bool hasThrown = true; hasThrown; ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing));
        UpgradedOnu onu(isExtended());
        Sandbox::setRoom(0);
        Sandbox::setCommandHandler({});
        {
            ThrowingHardware hardware(failing, ThrowingHardware::What::SomethingElse);
            EXPECT_FALSE(onu.olt().play(image()));
            Sandbox::setRoom(std::nullopt);
            EXPECT_FALSE(onu.olt().play(image()));
            hasThrown = hardware.hasThrown();
        }
        ::testing::DefaultValue<bool>::Set(true);
        onu.connectBoard();
        expectRecovery(onu);
    }
    EXPECT_LT(4U, failing);
}

namespace {

/// Which line of those that may fail does so next.
std::atomic<std::size_t> linesBeforeFailure{kNone};
std::atomic<bool> hasLineFailed{false};

bool isWriting()
{
    char name[16] = "";
    pthread_getname_np(pthread_self(), name, sizeof name);
    return std::strcmp(name, "omciFlashWrite") == 0;
}

bool isAnswering()
{
    return isAboutARequest;
}

template <bool mayFail()>
void failOneLine(const Logger::Line&, void*)
{
    if (mayFail() && linesBeforeFailure-- == 0) {
        hasLineFailed = true;
        throw std::bad_alloc();
    }
}

class LogLineFault : public DownloadFault
{
protected:
    void expectUpgradeAfterEach(Logger::Observer failLine)
    {
        std::size_t failing = 0;
        for (hasLineFailed = true; hasLineFailed && failing < 1000; ++failing) {
            SCOPED_TRACE("line " + std::to_string(failing));
            UpgradedOnu onu(isExtended());
            hasLineFailed = false;
            linesBeforeFailure = failing;
            Logger::getInstance(omci::kLibraryLoggerId)->setObserver(failLine, nullptr);
            onu.olt().play(image());
            linesBeforeFailure = kNone;
            Logger::getInstance(omci::kLibraryLoggerId)->setObserver(nullptr, nullptr);
            expectRecovery(onu);
        }
        EXPECT_LT(1U, failing);
        EXPECT_FALSE(hasLineFailed);
    }
};

/// The writer does not know by which sections the image came.
class WriterFault : public LogLineFault
{};

}  // namespace

TEST_P(WriterFault, EachLogLineOfTheWriterFailsOnceAndTheNextUpgradeGoesThrough)
{
    expectUpgradeAfterEach(failOneLine<isWriting>);
}

TEST_P(LogLineFault, OfAnyRequestFailsOnceAndTheNextUpgradeGoesThrough)
{
    expectUpgradeAfterEach(failOneLine<isAnswering>);
}

INSTANTIATE_TEST_SUITE_P(Sections, DownloadFault, ::testing::Values(false, true), formatName);
INSTANTIATE_TEST_SUITE_P(Sections, LogLineFault, ::testing::Values(false, true), formatName);
INSTANTIATE_TEST_SUITE_P(Sections, WriterFault, ::testing::Values(false), formatName);
