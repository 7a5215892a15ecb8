// End software download: the check, the writer and the polls.
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <stdexcept>
#include <thread>

#include "OmciMeFactory.h"
#include "SoftwareDownloadTest.h"

using ::testing::_;
using ::testing::InSequence;
using ::testing::Return;

class SoftwareDownloadEnd : public SoftwareDownloadTest
{
protected:
    void transfer()
    {
        ASSERT_EQ(start(static_cast<unsigned int>(image.size())), 0);
        sendImage(image);
        log.clear();
        Sandbox::clearCommands();
    }
    int endWell() { return end(crcOf(image), static_cast<unsigned int>(image.size())); }
    /// The texts that a refused image leaves, whichever check failed.
    Texts reasons(int sectionError, unsigned int crc, unsigned int receivedCrc, unsigned int receivedSize) const
    {
        return {"Download failed for one of the following reasons:",
                "1) Download section error(" + std::to_string(sectionError) + ")",
                "2) Mismatch CRC-32(" + std::to_string(crc) + "; " + std::to_string(receivedCrc) + ")",
                "3) Mismatch image size(" + std::to_string(image.size()) + "; " + std::to_string(receivedSize) + ")",
                "4) Image is not valid"};
    }
    void expectRefused(const Texts& texts)
    {
        EXPECT_EQ(replied(), "1");
        EXPECT_EQ(log.texts(3), texts);
        EXPECT_EQ(status(), 6U);
        EXPECT_FALSE(inProgress());
        EXPECT_TRUE(Sandbox::commands().empty());
        log.clear();
        EXPECT_EQ(poll(), -1);
        EXPECT_EQ(replied(), "1");
        EXPECT_EQ(log.texts(3), Texts{"Command rejected when status = DOWNLOAD FAILURE"});
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
        ON_CALL(hardware, endSoftwareImageDownload).WillByDefault(Return(true));
        verifyScriptWrites({"0\n"});
        download(image);
        SoftwareDownloadState::waitForWriters();
        EXPECT_EQ(poll(), 1);
    }
    void expectFailureIsTold()
    {
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(1);
    }

    Image image = imageOf(5000);
    unsigned int size = 5000;
};

TEST_F(SoftwareDownloadEnd, NullFrameStopsTheTimerAllTheSame)
{
    ASSERT_EQ(start(1000), 0);
    log.clear();
    EXPECT_EQ(images().endSoftwareDownload(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    EXPECT_EQ(timersOfDownload(), 0U);
    EXPECT_TRUE(inProgress());
}

TEST_F(SoftwareDownloadEnd, ForTheOtherInstanceStopsTheTimerAllTheSame)
{
    transfer();
    EXPECT_EQ(end(crcOf(image), size, 0), -1);
    EXPECT_EQ(replied(), "5");
    EXPECT_EQ(log.texts(3), Texts{"Instance(1) under download, command received for instance(0)"});
    EXPECT_EQ(timersOfDownload(), 0U);
    EXPECT_EQ(status(), 4U);
    EXPECT_TRUE(inProgress());
}

TEST_F(SoftwareDownloadEnd, WrongCrcIsRefused)
{
    transfer();
    expectFailureIsTold();
    EXPECT_EQ(end(crcOf(image) + 1, size), -1);
    expectRefused(reasons(0, crcOf(image), crcOf(image) + 1, size));
}

TEST_F(SoftwareDownloadEnd, WrongSizeIsRefused)
{
    transfer();
    expectFailureIsTold();
    EXPECT_EQ(end(crcOf(image), size - 1), -1);
    expectRefused(reasons(0, crcOf(image), crcOf(image), size - 1));
}

TEST_F(SoftwareDownloadEnd, ImageThatTheHardwareDoesNotTakeIsRefused)
{
    transfer();
    expectFailureIsTold();
    EXPECT_CALL(hardware, endSoftwareImageDownload(_)).WillOnce(Return(false));
    EXPECT_EQ(endWell(), -1);
    expectRefused(reasons(0, crcOf(image), crcOf(image), size));
}

TEST_F(SoftwareDownloadEnd, ImageThatNobodyChecksIsRefused)
{
    transfer();
    removeHardware();
    EXPECT_EQ(endWell(), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
    EXPECT_EQ(status(), 6U);
}

TEST_F(SoftwareDownloadEnd, InAWindowThatHasGoneWrongIsRefused)
{
    ASSERT_EQ(start(size), 0);
    section(1, imageOf(31), false);
    log.clear();
    Sandbox::clearCommands();
    expectFailureIsTold();
    const unsigned int zeros = crcOf(Image(5000));
    EXPECT_EQ(end(zeros, size), -1);
    expectRefused(reasons(1, zeros, zeros, size));
}

TEST_F(SoftwareDownloadEnd, ShortImageFailsByItsCrcAlone)
{
    ASSERT_EQ(start(size), 0);
    ASSERT_EQ(section(0, Image(image.begin(), image.begin() + 31), true), 0);
    Image received(image.begin(), image.begin() + 31);
    received.resize(5000);
    log.clear();
    EXPECT_EQ(endWell(), -1);
    EXPECT_EQ(log.texts(3), reasons(0, crcOf(received), crcOf(image), size));
    ASSERT_EQ(start(size), 0);
    ASSERT_EQ(section(0, Image(image.begin(), image.begin() + 31), true), 0);
    EXPECT_EQ(end(crcOf(received), size), 0);
    EXPECT_EQ(replied(), "6");
}

TEST_F(SoftwareDownloadEnd, GoodImageIsWrittenAndItsDescriptionRead)
{
    std::string writer;
    Sandbox::setCommandHandler([&writer](const std::string& command) {
        if (command == kVerify) {
            char name[16] = "";
            pthread_getname_np(pthread_self(), name, sizeof name);
            writer = name;
            writeFile(kDescriptions, descriptions(0, 0) + "APP2_SW_VERSION=NEW\n");
            writeFile(kVerifyStatus, "0\nmore\n");
        }
        return 0;
    });
    transfer();
    {
        const InSequence order;
        EXPECT_CALL(hardware, endSoftwareImageDownload(_)).WillOnce(Return(true));
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(3)).Times(1);
    }
    EXPECT_EQ(endWell(), 0);
    EXPECT_EQ(replied(), "6");
    EXPECT_TRUE(log.has(5, "Download completed on image 1 (5000 bytes)"));
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(writer, "omciFlashWrite");
    EXPECT_EQ(readFile(kImageFile), image);
    EXPECT_TRUE(log.has(4, std::string("System call(") + kVerify + ")"));
    EXPECT_EQ(Sandbox::commands(), (Texts{kVerify, "/etc/init.d/rcBSP -reset_app_boot_cnt", kDropCaches}));
    EXPECT_EQ(readsOfDescriptions(), 1U);
    EXPECT_EQ(status(), 8U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(display()["Image size"], "0");
}

TEST_F(SoftwareDownloadEnd, PollsAfterTheWriteSucceedAsLongAsTheStatusStays)
{
    verifyScriptWrites({"0"});
    download(image);
    SoftwareDownloadState::waitForWriters();
    for (int attempt = 0; attempt < 3; ++attempt) {
        log.clear();
        EXPECT_EQ(poll(), 1);
        EXPECT_EQ(replied(), "0");
        EXPECT_EQ(log.texts(5), Texts{"Image store in FLASH successfully"});
    }
}

TEST_F(SoftwareDownloadEnd, WriterMakesTheFileForItsOwnerAndDoesNotTruncateIt)
{
    verifyScriptWrites({"0", "0"});
    download(image);
    SoftwareDownloadState::waitForWriters();
    struct stat file
    {};
    ASSERT_EQ(stat(Sandbox::realPath(kImageFile).c_str(), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, 0700U);
    const Image shorter = imageOf(100);
    download(shorter);
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(readFile(kImageFile).size(), image.size());
}

TEST_F(SoftwareDownloadEnd, MissingStatusFileIsRetriedFiveTimes)
{
    transfer();
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(3)).Times(1);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(1)).Times(1);
    EXPECT_EQ(endWell(), 0);
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(Sandbox::commands(), (Texts{kVerify, kVerify, kVerify, kVerify, kVerify, kDropCaches}));
    Texts lines;
    for (int attempt = 1; attempt <= 5; ++attempt) {
        lines.push_back(std::string("System call(") + kVerify + ") failed(). Retry(" + std::to_string(attempt) +
                        "/5).");
    }
    EXPECT_EQ(log.texts(3), lines);
    EXPECT_EQ(status(), 10U);
    EXPECT_FALSE(inProgress());
    log.clear();
    EXPECT_EQ(poll(), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(log.texts(3), Texts{"Command rejected; image write failed"});
}

TEST_F(SoftwareDownloadEnd, StatusFileThatComesLateIsTaken)
{
    verifyScriptWrites({"-", "-", "0\n"});
    transfer();
    EXPECT_EQ(endWell(), 0);
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(log.texts(3).size(), 2U + 2U);  // two retries, and the two lines of the descriptions
    EXPECT_EQ(status(), 8U);
}

TEST_F(SoftwareDownloadEnd, AnyOtherStatusFailsAtOnce)
{
    const std::pair<const char*, const char*> outcomes[] = {{"1\n", "1"},
                                                            {"", ""},
                                                            {"\n", ""},
                                                            {"00\n", "00"},
                                                            {"0 \n", "0 "},
                                                            {"0\r\n", "0\r"},
                                                            {"no space\n0\n", "no space"}};
    for (const auto& [text, line] : outcomes) {
        SCOPED_TRACE(text);
        verifyScriptWrites({text});
        transfer();
        EXPECT_EQ(endWell(), 0);
        SoftwareDownloadState::waitForWriters();
        EXPECT_EQ(Sandbox::commands(), (Texts{kVerify, kDropCaches}));
        EXPECT_EQ(log.texts(3), Texts{std::string("System call(") + kVerify + ") failed(" + line + ")"});
        EXPECT_EQ(status(), 10U);
        EXPECT_EQ(readsOfDescriptions(), 0U);
    }
}

TEST_F(SoftwareDownloadEnd, FileThatCannotBeMadeLeavesTheStatusAtAccepted)
{
    transfer();
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(3)).Times(1);
    ASSERT_TRUE(Sandbox::fail("open", EROFS, 1));
    EXPECT_EQ(endWell(), 0);
    EXPECT_EQ(replied(), "6");
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(log.texts(3),
              Texts{"Cannot create the file in the /tmp directory - errno(" + std::to_string(EROFS) + ")"});
    EXPECT_EQ(Sandbox::commands(), Texts{kDropCaches});
    EXPECT_EQ(status(), 5U);
    EXPECT_FALSE(inProgress());
    log.clear();
    EXPECT_EQ(poll(), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(log.texts(3), Texts{"Command rejected when status = DOWNLOAD SUCCESS"});
    EXPECT_EQ(start(100), 0);
}

TEST_F(SoftwareDownloadEnd, FileThatCannotBeWrittenLeavesTheStatusAtAccepted)
{
    transfer();
    ASSERT_TRUE(Sandbox::fail("write", ENOSPC, 1));
    EXPECT_EQ(endWell(), 0);
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(log.texts(3), Texts{"Cannot write ONT image in the file - errno(" + std::to_string(ENOSPC) + ")"});
    EXPECT_EQ(Sandbox::commands(), Texts{kDropCaches});
    EXPECT_EQ(status(), 5U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(start(100), 0);
}

TEST_F(SoftwareDownloadEnd, CheckThatThrowsDoesNotBarTheNextDownload)
{
    transfer();
    EXPECT_CALL(hardware, endSoftwareImageDownload(_)).WillOnce(::testing::Throw(std::runtime_error("flash")));
    EXPECT_THROW(endWell(), std::runtime_error);
    Adapter::timerHandler({});
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(start(100), 0);
}

TEST_F(SoftwareDownloadEnd, WriterThatCannotBeStartedLeavesTheTransfer)
{
    transfer();
    ASSERT_TRUE(Sandbox::fail("pthread_create", EAGAIN, 1));
    EXPECT_EQ(endWell(), EAGAIN);
    EXPECT_EQ(replied(), "none");
    EXPECT_EQ(log.texts(3), Texts{"pthread_create() failed(" + std::to_string(EAGAIN) + ")"});
    EXPECT_EQ(status(), 4U);
    EXPECT_TRUE(inProgress());
    verifyScriptWrites({"0"});
    EXPECT_EQ(endWell(), 0);
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(readFile(kImageFile), image);
}

TEST_F(SoftwareDownloadEnd, WriterWithoutParametersGivesUp)
{
    transfer();
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, nullptr, &Adapter::flashWriterCallback, nullptr), 0);
    for (int attempt = 0; attempt < 5000 && Sandbox::commands().empty(); ++attempt) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(Sandbox::commands(), Texts{kDropCaches});
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    EXPECT_EQ(status(), 4U);
    EXPECT_FALSE(inProgress());
}

/// A board whose verify script takes its time.
class SoftwareDownloadWrite : public SoftwareDownloadEnd
{
protected:
    SoftwareDownloadWrite()
    {
        Sandbox::setCommandHandler([this](const std::string& command) {
            if (command == kVerify) {
                std::unique_lock<std::mutex> lock(m_Mutex);
                m_Running = true;
                m_Changed.notify_all();
                m_Changed.wait(lock, [this] { return m_Ends; });
                writeFile(kVerifyStatus, "0\n");
            }
            return 0;
        });
    }
    ~SoftwareDownloadWrite() override
    {
        scriptEnds();
        SoftwareDownloadState::waitForWriters();
    }

    void scriptRuns()
    {
        std::unique_lock<std::mutex> lock(m_Mutex);
        m_Changed.wait(lock, [this] { return m_Running; });
    }
    void scriptEnds()
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Ends = true;
        m_Changed.notify_all();
    }

private:
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    bool m_Running = false;
    bool m_Ends = false;
};

TEST_F(SoftwareDownloadWrite, PollsFindItBusyAndChangeNothing)
{
    download(image);
    for (int attempt = 0; attempt < 100; ++attempt) {
        EXPECT_EQ(poll(), 0);
        EXPECT_EQ(replied(), "6");
    }
    scriptRuns();
    log.clear();
    EXPECT_EQ(poll(), 0);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(log.texts(7), Texts{"The system is busy writing the image in FLASH"});
    EXPECT_EQ(status(), 7U);
    scriptEnds();
    int result = 0;
    while ((result = poll()) == 0) {
        EXPECT_EQ(replied(), "6");
        std::this_thread::yield();
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(replied(), "0");
}

TEST_F(SoftwareDownloadWrite, NewImageIsDescribedWhenTheOltSeesSuccess)
{
    download(image);
    scriptRuns();
    writeFile(kDescriptions, "APP1_PART_SEL=1\nAPP2_PART_SEL=2\nAPP2_VALID=7\n");
    scriptEnds();
    while (poll() == 0) {
        std::this_thread::yield();
    }
    EXPECT_EQ(getNumber(kClass, 1, kIsValid), 7U);
}

TEST_F(SoftwareDownloadWrite, SecondStartIsRefused)
{
    download(image);
    scriptRuns();
    log.clear();
    EXPECT_EQ(start(100), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_EQ(log.texts(3), Texts{"SoftwareDownloadStatus(WRITE IN PROGRESS) is not idle"});
    scriptEnds();
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(readFile(kImageFile), image);
    EXPECT_EQ(poll(), 1);
    EXPECT_EQ(start(100), 0);
}

TEST_F(SoftwareDownloadWrite, SecondStartIsRefusedEvenAfterASectionOutOfPlace)
{
    download(image);
    scriptRuns();
    EXPECT_EQ(section(0, imageOf(31), true), -1);
    EXPECT_EQ(replied(), "5");
    EXPECT_EQ(status(), 2U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(start(100), -1);
    Adapter::timerHandler({});
    EXPECT_EQ(display()["Image size"], "5000");
    scriptEnds();
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(status(), 8U);
    EXPECT_EQ(start(100), 0);
}

TEST_F(SoftwareDownloadWrite, ActivateAndCommitFindItBusy)
{
    download(image);
    scriptRuns();
    EXPECT_EQ(activate(1), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(commit(1), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(status(), 7U);
}

TEST_F(SoftwareDownloadWrite, TimeOutsNeverFreeTheImage)
{
    std::atomic<bool> stop{false};
    std::thread timer([&stop] {
        while (!stop) {
            Adapter::timerHandler({});
            std::this_thread::yield();
        }
    });
    // The transfer itself may be given up; what passes its check is written as it is.
    int result = -1;
    for (int attempt = 0; attempt < 1000 && result != 0; ++attempt) {
        start(size);
        section(0, {}, false);
        result = end(crcOf(Image(5000)), size);
    }
    scriptEnds();
    SoftwareDownloadState::waitForWriters();
    stop = true;
    timer.join();
    if (result == 0) {
        EXPECT_EQ(readFile(kImageFile), Image(5000));
    }
    EXPECT_FALSE(inProgress());
}

TEST_F(SoftwareDownloadWrite, DestructionWaitsForTheWriter)
{
    download(image);
    scriptRuns();
    Adapter* adapterOfClass = &images();
    OmciMeFactory::getInstance()->unregisterManagedEntity(kClass);
    std::atomic<bool> destroyed{false};
    std::thread shutdown([&] {
        delete adapterOfClass;
        destroyed = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(destroyed);
    EXPECT_EQ(timersOfDownload(), 0U);
    scriptEnds();
    shutdown.join();
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(readFile(kImageFile), image);
    EXPECT_EQ(Sandbox::commands().back(), kDropCaches);
}

TEST_F(SoftwareDownloadWrite, SecondAdapterDoesNotTouchTheImage)
{
    download(image);
    scriptRuns();
    images().init();
    EXPECT_EQ(display()["Image size"], "5000");
    scriptEnds();
    SoftwareDownloadState::waitForWriters();
    EXPECT_EQ(poll(), 1);
}

TEST_F(SoftwareDownloadWrite, ForgettingWaitsForTheWriter)
{
    download(image);
    scriptRuns();
    std::atomic<bool> forgotten{false};
    std::thread restart([&] {
        nrvk::forgetSoftwareDownload();
        forgotten = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(forgotten);
    scriptEnds();
    restart.join();
    EXPECT_EQ(readFile(kImageFile), image);
    EXPECT_EQ(status(), 0U);
    EXPECT_EQ(start(100), 0);
}
