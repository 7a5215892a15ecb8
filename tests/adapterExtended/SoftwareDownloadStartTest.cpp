// Start software download.
#include <sys/resource.h>

#include <cerrno>
#include <cstdlib>

#include "OmciMeSoftwareImageIf.h"
#include "SoftwareDownloadTest.h"

using ::testing::_;

namespace {

/// The process may have so many octets of memory for as long as this lives.
class MemoryLimit
{
public:
    explicit MemoryLimit(rlim_t octets)
    {
        getrlimit(RLIMIT_AS, &m_Before);
        const rlimit limit{octets, m_Before.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &m_Before); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

    /// Emulators of another processor take the limit and do not keep it.
    bool isKept(std::size_t tooMany) const
    {
        void* volatile block = std::malloc(tooMany);
        std::free(block);
        return block == nullptr;
    }

private:
    rlimit m_Before{};
};

}  // namespace

class SoftwareDownloadStart : public SoftwareDownloadTest
{
protected:
    /// A refused start: status 2, result 1, one notification of failure, the text last but one; and the next one is
    /// accepted.
    void expectRefused(const std::string& text)
    {
        EXPECT_EQ(replied(), "1");
        EXPECT_EQ(status(), 2U);
        EXPECT_FALSE(inProgress());
        EXPECT_EQ(timersOfDownload(), 0U);
        const Texts errors = log.texts(3);
        ASSERT_GE(errors.size(), 2U);
        EXPECT_EQ(errors[errors.size() - 2], text);
        EXPECT_EQ(errors.back(), "checkForConflictStartDownload() failed");
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
        EXPECT_EQ(start(100), 0);
        EXPECT_EQ(status(), 1U);
    }
    void expectFailureIsTold() { EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(1); }
};

TEST_F(SoftwareDownloadStart, IsAccepted)
{
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
    EXPECT_EQ(start(1000, 20), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(repliedValue(), 20U);
    EXPECT_EQ(status(), 1U);
    EXPECT_TRUE(inProgress());
    EXPECT_EQ(display()["Instance under download"], "1");
    EXPECT_EQ(display()["Image size"], "1000");
    EXPECT_EQ(log.texts(3).back(), "SOFTWARE_UPGRADE: Download started on image 1");
    EXPECT_TRUE(log.has(4, "Window size in use for software download(20)"));
    EXPECT_TRUE(log.has(6, "Image size(1000) to download"));
    EXPECT_TRUE(log.has(6, "Download status(1)"));
}

TEST_F(SoftwareDownloadStart, DropsThePageCacheBeforeAndAfterItMakesRoom)
{
    ASSERT_EQ(start(1000), 0);
    EXPECT_EQ(Sandbox::commands(), (Texts{kDropCaches, kDropCaches}));
}

TEST_F(SoftwareDownloadStart, StartsTheInactivityTimer)
{
    ASSERT_EQ(start(1000), 0);
    ASSERT_EQ(timersOfDownload(), 1U);
    for (const NorvikTimer::Running& timer : NorvikTimer::getRunningTimers()) {
        if (timer.handler == &Adapter::timerHandler) {
            EXPECT_GT(timer.millisecondsLeft, 29900U);
            EXPECT_LE(timer.millisecondsLeft, 30000U);
        }
    }
}

TEST_F(SoftwareDownloadStart, NullFrame)
{
    EXPECT_EQ(images().startSoftwareDownload(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    EXPECT_EQ(status(), 0U);
}

TEST_F(SoftwareDownloadStart, NullArgumentsOfTheCheck)
{
    OmciFrame frame = startFrame(1000);
    EXPECT_EQ(Adapter::checkForConflictStartDownload(nullptr, &frame), -1);
    EXPECT_EQ(replyContents(frame)[0], 1);
    EXPECT_EQ(Adapter::checkForConflictStartDownload(OmciMeSoftwareImageIf::getManagedEntityInstance(1), nullptr), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(SoftwareDownloadStart, UnknownInstanceGetsNoReply)
{
    for (const unsigned short instance : {2, 0x100, 0x101}) {
        SCOPED_TRACE(instance);
        log.clear();
        EXPECT_EQ(start(1000, 15, instance), -1);
        EXPECT_EQ(replied(), "none");
        EXPECT_EQ(log.texts(3),
                  Texts{"Instance(" + std::to_string(instance & 0xFF) + ") for Software Image not found"});
        EXPECT_EQ(status(), 0U);
    }
}

TEST_F(SoftwareDownloadStart, ActiveImageIsRefused)
{
    writeFile(kDescriptions, descriptions(1, 0));
    descriptionsMayBeRead();
    expectFailureIsTold();
    EXPECT_EQ(start(1000, 15, 0), -1);
    writeFile(kDescriptions, descriptions(0, 0));
    descriptionsMayBeRead();
    expectRefused("Instance(0) is active");
}

TEST_F(SoftwareDownloadStart, CommittedImageIsRefused)
{
    writeFile(kDescriptions, descriptions(0, 1));
    descriptionsMayBeRead();
    expectFailureIsTold();
    EXPECT_EQ(start(1000, 15, 0), -1);
    writeFile(kDescriptions, descriptions(0, 0));
    descriptionsMayBeRead();
    expectRefused("Instance(0) is committed");
}

TEST_F(SoftwareDownloadStart, ImageOfNoSizeIsRefused)
{
    expectFailureIsTold();
    EXPECT_EQ(start(0), -1);
    EXPECT_TRUE(Sandbox::commands().empty());
    expectRefused("Image size is 0");
}

TEST_F(SoftwareDownloadStart, RoomForThreeImagesIsEnough)
{
    Sandbox::setFreeSpace(3000);
    EXPECT_EQ(start(1000), 0);
}

TEST_F(SoftwareDownloadStart, LessRoomThanForThreeImagesIsRefused)
{
    Sandbox::setFreeSpace(2999);
    expectFailureIsTold();
    EXPECT_EQ(start(1000), -1);
    expectRefused("Available memory space(2999) is insufficient memory to download image size 3000");
}

TEST_F(SoftwareDownloadStart, LargestSizeIsRefused)
{
    expectFailureIsTold();
    EXPECT_EQ(start(0xFFFFFFFF), -1);
    expectRefused("Available memory space(1073741824) is insufficient memory to download image size 4294967293");
}

TEST_F(SoftwareDownloadStart, FreeSpaceIsCountedOn32Bits)
{
    Sandbox::setFreeSpace(0x100000000ULL + 2999);
    expectFailureIsTold();
    EXPECT_EQ(start(1000), -1);
    expectRefused("Available memory space(2999) is insufficient memory to download image size 3000");
}

TEST_F(SoftwareDownloadStart, FileSystemThatDoesNotTellItsSpaceIsRefused)
{
    ASSERT_TRUE(Sandbox::fail("statvfs", EACCES, 1));
    expectFailureIsTold();
    EXPECT_EQ(start(1000), -1);
    expectRefused("statvfs failed for /tmp partition status=-1 errno=" + std::to_string(EACCES));
}

TEST_F(SoftwareDownloadStart, ImageThatMemoryCannotHoldIsRefused)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer owns the allocator";
#endif
    // Tripled on 32 bits, it asks for 2 bytes of disk and 1.3 GiB of memory.
    constexpr unsigned int imageSize = 0x55555556;
    Sandbox::setFreeSpace(0xFFFFFFFF);
    const MemoryLimit oneGigabyte(1U << 30);
    if (!oneGigabyte.isKept(imageSize)) {
        GTEST_SKIP() << "no limit to memory here";
    }
    expectFailureIsTold();
    EXPECT_EQ(start(imageSize), -1);
    expectRefused("Available memory space(4294967295) is insufficient memory to download image size 2");
}

TEST_F(SoftwareDownloadStart, RunningDownloadIsLeftAlone)
{
    const Image image = imageOf(100);
    ASSERT_EQ(start(100), 0);
    ASSERT_EQ(section(0, Image(image.begin(), image.begin() + 31), true), 0);
    Sandbox::clearCommands();
    log.clear();
    EXPECT_EQ(start(5000, 3, 0), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(log.texts(3), Texts{"SoftwareDownloadStatus(DOWNLOAD IN PROGRESS) is not idle"});
    EXPECT_TRUE(Sandbox::commands().empty());
    EXPECT_EQ(display()["Instance under download"], "1");
    EXPECT_EQ(display()["Image size"], "100");
    EXPECT_EQ(display()["Image offset"], "31");
    EXPECT_EQ(section(0, Image(image.begin() + 31, image.begin() + 62), true), 0);
}

TEST_F(SoftwareDownloadStart, NothingIsKeptOfADownloadThatBrokeOff)
{
    ASSERT_EQ(start(1000), 0);
    section(0, imageOf(31), true);
    section(0, imageOf(31), false);
    section(5, imageOf(31), false);
    section(0, imageOf(31), false, 0);
    ASSERT_FALSE(inProgress());
    download(imageOf(50));
    EXPECT_EQ(replied(), "6");
}

struct WindowRow
{
    unsigned int fifoDepth;
    omci::Format format;
    unsigned char proposed;
    unsigned char used;
    int supported;
};

class SoftwareDownloadWindow : public SoftwareDownloadStart, public ::testing::WithParamInterface<WindowRow>
{};

TEST_P(SoftwareDownloadWindow, NeverExceedsFifoAndProposal)
{
    const WindowRow& row = GetParam();
    if (row.fifoDepth != 0) {
        images().updateRxOmciFifoDepthInBytes(row.fifoDepth);
    }
    format = row.format;
    ASSERT_EQ(start(1000, row.proposed), 0);
    EXPECT_EQ(repliedValue(), row.used);
    EXPECT_TRUE(log.has(5, "OLT recommended window size:" + std::to_string(row.proposed) +
                               " ONT supported window size:" + std::to_string(row.supported)));
}

constexpr auto kBaseline = omci::Format::Baseline;
constexpr auto kExtended = omci::Format::Extended;
INSTANTIATE_TEST_SUITE_P(Rows, SoftwareDownloadWindow,
                         ::testing::Values(
                             // Not told, or below the reserve: the OLT decides, up to 254.
                             WindowRow{0, kBaseline, 255, 254, 255}, WindowRow{0, kBaseline, 100, 100, 255},
                             WindowRow{0, kExtended, 255, 254, 255}, WindowRow{0, kExtended, 0, 0, 255},
                             WindowRow{1975, kBaseline, 255, 254, 255},
                             // The reserve alone.
                             WindowRow{1976, kBaseline, 255, 0, 0}, WindowRow{1976, kExtended, 9, 0, 0},
                             // One section, two sections: minus one on the wire.
                             WindowRow{1976 + 48, kBaseline, 255, 0, 1}, WindowRow{1976 + 95, kBaseline, 255, 0, 1},
                             WindowRow{1976 + 96, kBaseline, 255, 1, 2}, WindowRow{1976 + 96, kBaseline, 0, 0, 2},
                             WindowRow{1976 * 2, kExtended, 255, 0, 1}, WindowRow{1976 * 5, kExtended, 255, 3, 4},
                             WindowRow{1976 * 5, kExtended, 2, 2, 4},
                             // Capped, after the low 16 bits were taken.
                             WindowRow{2000000, kBaseline, 255, 254, 255}, WindowRow{2000000, kBaseline, 254, 254, 255},
                             WindowRow{2000000, kBaseline, 31, 31, 255},
                             WindowRow{(65536 + 247) * 8, kBaseline, 255, 0, 0}),
                         [](const auto& named) {
                             const WindowRow& row = named.param;
                             return "FifoOf" + std::to_string(row.fifoDepth) +
                                    (row.format == kBaseline ? "BaselineProposed" : "ExtendedProposed") +
                                    std::to_string(row.proposed);
                         });
