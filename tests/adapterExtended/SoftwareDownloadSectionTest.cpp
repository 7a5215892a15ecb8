// Download section: windows, errors, retransmission and the end of the image.
#include <atomic>
#include <thread>

#include "SoftwareDownloadTest.h"

using ::testing::_;

class SoftwareDownloadSection : public SoftwareDownloadTest
{
protected:
    Image part(std::size_t offset, std::size_t bytes) const
    {
        const auto begin = image.begin() + static_cast<std::ptrdiff_t>(offset);
        return {begin, begin + static_cast<std::ptrdiff_t>(bytes)};
    }
    Image sectionOf(std::size_t number) const { return part(number * 31, 31); }
    std::string offset() const { return display()["Image offset"]; }

    /// What the hardware's check finds in the storage.
    Image stored(std::size_t bytes)
    {
        Image found;
        EXPECT_CALL(hardware, endSoftwareImageDownload(_)).WillOnce([&](const unsigned char* storage) {
            found.assign(storage, storage + bytes);
            return false;
        });
        end(0, 0);
        return found;
    }

    Image image = imageOf(31 * 32);
};

TEST_F(SoftwareDownloadSection, NullFrameRestartsTheTimerAllTheSame)
{
    EXPECT_EQ(images().downloadSection(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    EXPECT_EQ(timersOfDownload(), 1U);
}

TEST_F(SoftwareDownloadSection, WithoutAcknowledgeRequestGetsNoReply)
{
    ASSERT_EQ(start(992), 0);
    EXPECT_EQ(section(0, sectionOf(0), false), 1);
    EXPECT_EQ(replied(), "none");
    EXPECT_EQ(status(), 3U);
    EXPECT_EQ(offset(), "31");
    EXPECT_EQ(display()["Section counter"], "1");
}

TEST_F(SoftwareDownloadSection, LastOfTheWindowIsAnsweredWithItsNumber)
{
    ASSERT_EQ(start(992), 0);
    EXPECT_EQ(section(0, sectionOf(0), false), 1);
    EXPECT_EQ(section(1, sectionOf(1), true), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(repliedValue(), 1U);
    EXPECT_EQ(display()["Section counter"], "0");
    EXPECT_EQ(offset(), "62");
}

TEST_F(SoftwareDownloadSection, HardwareHearsOfTheFirstOnly)
{
    ASSERT_EQ(start(992), 0);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(2)).Times(1);
    EXPECT_EQ(section(0, sectionOf(0), false), 1);
    EXPECT_EQ(section(1, sectionOf(1), false), 1);
    EXPECT_EQ(log.count(6, "Download status(3)"), 2U);
}

TEST_F(SoftwareDownloadSection, WithoutHardwareIsTaken)
{
    ASSERT_EQ(start(992), 0);
    log.clear();
    removeHardware();
    EXPECT_EQ(section(0, sectionOf(0), true), 0);
    EXPECT_EQ(section(0, sectionOf(1), true), 0);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
}

TEST_F(SoftwareDownloadSection, ImageArrivesBitExactInBothFormats)
{
    for (const omci::Format each : {omci::Format::Baseline, omci::Format::Extended}) {
        format = each;
        image = imageOf(100003);
        ASSERT_EQ(start(100003), 0);
        sendImage(image);
        EXPECT_EQ(status(), 4U);
        EXPECT_EQ(stored(100003), image);
    }
}

TEST_F(SoftwareDownloadSection, GapIsReportedAtTheEndOfTheWindow)
{
    ASSERT_EQ(start(992), 0);
    section(0, sectionOf(0), true);
    log.clear();
    EXPECT_EQ(section(0, sectionOf(1), false), 1);
    EXPECT_EQ(section(2, sectionOf(3), false), 1);
    EXPECT_EQ(replied(), "none");
    EXPECT_EQ(log.texts(3), Texts{"Received unexpected section number: expected(1), actual(2)"});
    EXPECT_EQ(section(3, sectionOf(4), false), 1);
    EXPECT_EQ(section(4, sectionOf(5), true), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(repliedValue(), 1U);
    EXPECT_EQ(log.texts(3).back(), "Download error in section 1");
    EXPECT_EQ(log.texts(3).size(), 2U);
    EXPECT_EQ(offset(), "31");
    EXPECT_EQ(display()["Section counter"], "0");
    EXPECT_EQ(display()["Download section error"], "no");
    EXPECT_TRUE(inProgress());
}

TEST_F(SoftwareDownloadSection, CounterAdvancesInAWindowThatHasGoneWrong)
{
    ASSERT_EQ(start(992), 0);
    section(5, sectionOf(0), false);
    EXPECT_EQ(display()["Section counter"], "1");
    section(1, sectionOf(1), false);
    EXPECT_EQ(display()["Section counter"], "2");
    EXPECT_EQ(offset(), "0");
    EXPECT_EQ(display()["Section with error"], "0");
}

TEST_F(SoftwareDownloadSection, RefusedWindowIsSentAgainAnyNumberOfTimes)
{
    ASSERT_EQ(start(93), 0);
    for (int attempt = 0; attempt < 5; ++attempt) {
        EXPECT_EQ(section(0, sectionOf(9), false), 1);
        EXPECT_EQ(section(2, sectionOf(9), true), -1);
        EXPECT_EQ(repliedValue(), 1U);
    }
    image.resize(93);
    sendImage(image);
    EXPECT_EQ(stored(93), image);
}

TEST_F(SoftwareDownloadSection, WrongFirstWithAcknowledgeRequestShowsAsMultipleRetransmission)
{
    ASSERT_EQ(start(992), 0);
    EXPECT_EQ(section(3, sectionOf(0), true), -1);
    EXPECT_EQ(repliedValue(), 0U);
    EXPECT_EQ(display()["Multiple retransmission"], "yes");
    EXPECT_EQ(section(0, sectionOf(0), false), 1);
    EXPECT_EQ(display()["Multiple retransmission"], "no");
    EXPECT_EQ(section(3, sectionOf(0), true), -1);
    EXPECT_EQ(display()["Multiple retransmission"], "no");
}

TEST_F(SoftwareDownloadSection, PaddingOfTheLastBaselineSectionIsNotCopied)
{
    image = imageOf(40);
    ASSERT_EQ(start(40), 0);
    section(0, part(0, 31), false);
    EXPECT_EQ(section(1, part(31, 9), true), 0);
    EXPECT_EQ(offset(), "62");
    EXPECT_EQ(status(), 4U);
    EXPECT_TRUE(log.has(4, "Download image completed"));
    EXPECT_TRUE(log.has(6, "Download status(4)"));
    EXPECT_EQ(stored(40), image);
}

TEST_F(SoftwareDownloadSection, LastExtendedSectionMayBeShort)
{
    format = omci::Format::Extended;
    image = imageOf(1970);
    ASSERT_EQ(start(1970), 0);
    section(0, part(0, 1965), false);
    EXPECT_EQ(section(1, part(1965, 5), true), 0);
    EXPECT_EQ(offset(), "1970");
    EXPECT_EQ(status(), 4U);
    EXPECT_EQ(stored(1970), image);
}

TEST_F(SoftwareDownloadSection, ExtendedSectionBeyondTheImageIsRefused)
{
    format = omci::Format::Extended;
    ASSERT_EQ(start(100), 0);
    ASSERT_EQ(section(0, part(0, 60), true), 0);
    log.clear();
    EXPECT_EQ(section(0, part(60, 41), true), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(repliedValue(), 0U);
    EXPECT_EQ(log.texts(3),
              (Texts{"Overflow image received : expected(100), actual(60)", "Download error in section 0"}));
    EXPECT_EQ(log.texts(4), Texts{"Download image completed"});
    EXPECT_EQ(status(), 4U);
    EXPECT_EQ(offset(), "60");
    Image expected = part(0, 60);
    expected.resize(100);
    EXPECT_EQ(stored(100), expected);
}

TEST_F(SoftwareDownloadSection, BaselineSectionAfterThePaddedLastIsRefused)
{
    ASSERT_EQ(start(40), 0);
    section(0, sectionOf(0), false);
    section(1, sectionOf(1), false);
    putStatus(3);
    log.clear();
    EXPECT_EQ(section(2, sectionOf(2), false), 1);
    EXPECT_EQ(log.texts(3), Texts{"Overflow image received : expected(40), actual(62)"});
    EXPECT_EQ(display()["Section with error"], "2");
    EXPECT_EQ(display()["Download section error"], "yes");
}

TEST_F(SoftwareDownloadSection, ExtendedSectionBehindAPaddedImageIsRefused)
{
    ASSERT_EQ(start(40), 0);
    section(0, sectionOf(0), false);
    section(1, sectionOf(1), true);
    putStatus(3);
    format = omci::Format::Extended;
    EXPECT_EQ(section(0, part(0, 1), true), -1);
    EXPECT_EQ(replied(), "1");
}

TEST_F(SoftwareDownloadSection, BaselineSectionAtTheVeryEndOfTheImageCopiesNothing)
{
    image = imageOf(62);
    ASSERT_EQ(start(62), 0);
    sendImage(image);
    putStatus(3);
    EXPECT_EQ(section(0, imageOf(31), true), 0);
    EXPECT_EQ(status(), 4U);
    EXPECT_EQ(stored(62), image);
}

TEST_F(SoftwareDownloadSection, EmptySectionTakesNoRoom)
{
    format = omci::Format::Extended;
    ASSERT_EQ(start(100), 0);
    EXPECT_EQ(section(0, {}, false), 1);
    EXPECT_EQ(offset(), "0");
    EXPECT_EQ(status(), 3U);
    OmciFrame bare = requestFrame(omci::MessageType::DownloadSection, kClass, 1, {}, format, true);
    EXPECT_EQ(bare.getMessageContentLength(), 0);
    // No section number either, which reads as 0 and is not the second section's.
    EXPECT_EQ(images().downloadSection(&bare), -1);
    EXPECT_EQ(offset(), "0");
    bare = requestFrame(omci::MessageType::DownloadSection, kClass, 1, {}, format, true);
    EXPECT_EQ(images().downloadSection(&bare), 0);
    EXPECT_EQ(offset(), "0");
    EXPECT_EQ(status(), 3U);
}

TEST_F(SoftwareDownloadSection, WindowOfMoreThan256SectionsDoesNotWrap)
{
    image = imageOf(31 * 300);
    ASSERT_EQ(start(31 * 300), 0);
    for (unsigned int number = 0; number < 256; ++number) {
        ASSERT_EQ(section(static_cast<unsigned char>(number), sectionOf(number), false), 1);
    }
    log.clear();
    EXPECT_EQ(section(0, sectionOf(256), false), 1);
    EXPECT_EQ(log.texts(3), Texts{"Received unexpected section number: expected(256), actual(0)"});
}

TEST_F(SoftwareDownloadSection, AfterTheLastByteIsAConflict)
{
    ASSERT_EQ(start(31), 0);
    ASSERT_EQ(section(0, sectionOf(0), true), 0);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(1);
    log.clear();
    EXPECT_EQ(section(0, sectionOf(0), true), -1);
    EXPECT_EQ(replied(), "5");
    EXPECT_EQ(repliedValue(), 0U);
    EXPECT_EQ(log.texts(3), Texts{"Status = DOWNLOAD COMPLETE not allowed"});
    EXPECT_EQ(status(), 2U);
    EXPECT_FALSE(inProgress());
}

TEST_F(SoftwareDownloadSection, ForTheOtherInstanceEndsTheDownload)
{
    ASSERT_EQ(start(992), 0);
    section(0, sectionOf(0), false);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(2);
    log.clear();
    EXPECT_EQ(section(7, sectionOf(1), false, 0), -1);
    EXPECT_EQ(replied(), "none");
    EXPECT_EQ(log.texts(3), Texts{"Instance(1) under download, command received for instance(0)"});
    EXPECT_EQ(status(), 2U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(timersOfDownload(), 1U);
    EXPECT_EQ(section(7, sectionOf(1), true, 0x101), -1);
    EXPECT_EQ(replied(), "5");
    EXPECT_EQ(repliedValue(), 7U);
    EXPECT_EQ(log.texts(3).back(), "Instance(1) under download, command received for instance(257)");
}

TEST_F(SoftwareDownloadSection, WithoutADownloadIsAConflict)
{
    ASSERT_EQ(start(0), -1);
    log.clear();
    EXPECT_EQ(section(0, sectionOf(0), true), -1);
    EXPECT_EQ(replied(), "5");
    EXPECT_EQ(log.texts(3), Texts{"Software download is not in progress"});
    EXPECT_EQ(status(), 2U);
}

TEST_F(SoftwareDownloadSection, CheckForConflictTellsWithoutChangingAnything)
{
    EXPECT_EQ(Adapter::checkForConflictDownloadSection(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    ASSERT_EQ(start(992), 0);
    log.clear();
    OmciFrame frame = sectionFrame(0, sectionOf(0), true);
    EXPECT_EQ(Adapter::checkForConflictDownloadSection(&frame), 0);
    EXPECT_TRUE(log.texts(3).empty());
    frame = sectionFrame(0, sectionOf(0), true, 0);
    EXPECT_EQ(Adapter::checkForConflictDownloadSection(&frame), -1);
    EXPECT_EQ(status(), 1U);
}

class SoftwareDownloadTimeOut : public SoftwareDownloadSection
{
protected:
    static bool waitFor(const std::function<bool()>& condition)
    {
        for (int attempt = 0; attempt < 5000; ++attempt) {
            if (condition()) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }
};

TEST_F(SoftwareDownloadTimeOut, AbandonsTheDownloadAndKeepsTheStatus)
{
    NorvikTimer::setTimeScale(1000);
    ASSERT_EQ(start(992), 0);
    section(0, sectionOf(0), false);
    Sandbox::clearCommands();
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(0);
    ASSERT_TRUE(waitFor([] { return Sandbox::commands() == Texts{kDropCaches}; }));
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(status(), 3U);
    EXPECT_EQ(display()["Image size"], "0");
    EXPECT_EQ(offset(), "0");
    ::testing::Mock::VerifyAndClearExpectations(&hardware);
    EXPECT_EQ(section(1, sectionOf(1), true), -1);
    EXPECT_EQ(replied(), "5");
}

TEST_F(SoftwareDownloadTimeOut, NextDownloadIsPossible)
{
    ASSERT_EQ(start(992), 0);
    section(0, sectionOf(0), false);
    Adapter::timerHandler({});
    ASSERT_EQ(start(31), 0);
    ASSERT_EQ(section(0, sectionOf(0), true), 0);
    EXPECT_EQ(stored(31), sectionOf(0));
}

TEST_F(SoftwareDownloadTimeOut, EverySectionPutsItOff)
{
    ASSERT_EQ(start(992), 0);
    images().endSoftwareDownload(nullptr);
    EXPECT_EQ(timersOfDownload(), 0U);
    section(0, sectionOf(0), false);
    EXPECT_EQ(timersOfDownload(), 1U);
}

TEST_F(SoftwareDownloadTimeOut, DuringSectionsNeverFreesTheImageUnderACopy)
{
    std::atomic<bool> stop{false};
    std::thread timer([&stop] {
        while (!stop) {
            Adapter::timerHandler({});
            std::this_thread::yield();
        }
    });
    format = omci::Format::Extended;
    image = imageOf(1965 * 8);
    int taken = 0;
    for (int round = 0; round < 100; ++round) {
        start(1965 * 8);
        for (unsigned char number = 0; number < 8; ++number) {
            taken += section(number, part(number * 1965U, 1965), false) == 1 ? 1 : 0;
        }
    }
    stop = true;
    timer.join();
    EXPECT_GT(taken, 0);
    Adapter::timerHandler({});
    EXPECT_FALSE(inProgress());
    ASSERT_EQ(start(1965 * 8), 0);
    sendImage(image);
    EXPECT_EQ(stored(1965 * 8), image);
}
