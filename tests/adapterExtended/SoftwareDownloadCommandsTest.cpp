// Activate and commit, and the description of the images that reads follow.
#include <algorithm>
#include <thread>

#include "OmciMeSoftwareImageIf.h"
#include "SoftwareDownloadTest.h"

using ::testing::_;
using ::testing::InSequence;

class SoftwareImageActivate : public SoftwareDownloadTest
{
protected:
    static constexpr const char* kSelectNext = "/etc/init.d/rcBSP -select_next_app";
};

TEST_F(SoftwareImageActivate, SelectsTheOtherImage)
{
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
    EXPECT_EQ(activate(1), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(Sandbox::commands(), Texts{kSelectNext});
    EXPECT_EQ(log.texts(4), Texts{std::string("System call(") + kSelectNext + ")"});
    EXPECT_TRUE(log.has(6, "Image to activate(255)"));
    EXPECT_EQ(status(), 11U);
    EXPECT_TRUE(inProgress());
}

TEST_F(SoftwareImageActivate, ActiveImageNeedsOnlyTheReboot)
{
    EXPECT_EQ(activate(0), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_TRUE(Sandbox::commands().empty());
    EXPECT_EQ(log.texts(4), Texts{"Image(0) is already active, reboot required by ITU-G988"});
    EXPECT_EQ(status(), 11U);
}

TEST_F(SoftwareImageActivate, BarsEveryFurtherCommandUntilTheRestart)
{
    ASSERT_EQ(activate(0), 0);
    EXPECT_EQ(start(1000), -1);
    EXPECT_EQ(replied(), "1");
    EXPECT_TRUE(log.has(3, "SoftwareDownloadStatus(ACTIVATE SUCCESS) is not idle"));
    EXPECT_EQ(activate(1), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(log.texts(3).back(), "Command rejected; download is still in progress");
    EXPECT_EQ(commit(1), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(log.texts(5).back(), "System busy, download still in progress");
    EXPECT_EQ(status(), 11U);
}

TEST_F(SoftwareImageActivate, UnknownInstanceIsTheOltsSuccess)
{
    EXPECT_EQ(activate(2), -1);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(log.texts(3), Texts{"Instance(2) for Software Image not found"});
    EXPECT_EQ(status(), 11U);
    EXPECT_TRUE(Sandbox::commands().empty());
}

TEST_F(SoftwareImageActivate, DuringADownloadIsRefusedAndTheDownloadGoesOn)
{
    const Image image = imageOf(62);
    ASSERT_EQ(start(62), 0);
    ASSERT_EQ(section(0, Image(image.begin(), image.begin() + 31), true), 0);
    EXPECT_EQ(activate(1), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(section(0, Image(image.begin() + 31, image.end()), true), 0);
    EXPECT_EQ(end(crcOf(image), 62), 0);
}

TEST_F(SoftwareImageActivate, NullFrame)
{
    EXPECT_EQ(images().activateSoftwareImage(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
    EXPECT_EQ(status(), 0U);
}

class SoftwareImageCommit : public SoftwareDownloadTest
{
protected:
    static constexpr const char* kSelectRunning = "/etc/init.d/rcBSP -select_running_app";

    static unsigned char storedIsCommitted(unsigned short instance)
    {
        return static_cast<const OmciMeSoftwareImageImpl*>(OmciMeSoftwareImageIf::getManagedEntityInstance(instance))
            ->OmciMeSoftwareImageImpl::getIsCommitted(OMCI_ACTION_GET);
    }
};

TEST_F(SoftwareImageCommit, CommitsTheRunningImage)
{
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(0)).Times(1);
    EXPECT_EQ(commit(1), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(Sandbox::commands().front(), kSelectRunning);
    EXPECT_EQ(log.texts(5), Texts{"Committing image 1"});
    EXPECT_EQ(log.texts(4).front(), std::string("System call(") + kSelectRunning + ")");
    EXPECT_EQ(log.texts(3).front(), "SOFTWARE_UPGRADE: Commit completed on image 1");
    EXPECT_EQ(status(), 14U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(readsOfDescriptions(), 1U);
}

TEST_F(SoftwareImageCommit, FlagMovesToTheInstanceWhenTheFileCannotBeRead)
{
    ASSERT_EQ(storedIsCommitted(0), 1);
    std::filesystem::remove(Sandbox::realPath(kDescriptions));
    EXPECT_EQ(commit(1), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(storedIsCommitted(0), 0);
    EXPECT_EQ(storedIsCommitted(1), 1);
    EXPECT_EQ(log.texts(3).back(), std::string("Can't load file(") + kDescriptions + ")");
    EXPECT_EQ(commit(0), 0);
    EXPECT_EQ(storedIsCommitted(0), 1);
    EXPECT_EQ(storedIsCommitted(1), 0);
}

TEST_F(SoftwareImageCommit, FileHasTheLastWord)
{
    writeFile(kDescriptions, descriptions(0, 0));
    EXPECT_EQ(commit(1), 0);
    EXPECT_EQ(storedIsCommitted(0), 1);
    EXPECT_EQ(storedIsCommitted(1), 0);
}

TEST_F(SoftwareImageCommit, UnknownInstanceTakesTheFlagFromImage0)
{
    std::filesystem::remove(Sandbox::realPath(kDescriptions));
    EXPECT_EQ(commit(9), 0);
    EXPECT_EQ(replied(), "0");
    EXPECT_EQ(storedIsCommitted(0), 0);
    EXPECT_TRUE(log.has(3, "SOFTWARE_UPGRADE: Commit completed on image 9"));
}

TEST_F(SoftwareImageCommit, DuringADownloadIsRefused)
{
    ASSERT_EQ(start(1000), 0);
    Sandbox::clearCommands();
    EXPECT_EQ(commit(0), -1);
    EXPECT_EQ(replied(), "6");
    EXPECT_EQ(log.texts(5).back(), "System busy, download still in progress");
    EXPECT_TRUE(Sandbox::commands().empty());
    EXPECT_EQ(status(), 1U);
}

TEST_F(SoftwareImageCommit, NullFrame)
{
    EXPECT_EQ(images().commitSoftware(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
}

class SoftwareImageDescription : public SoftwareDownloadTest
{
protected:
    SoftwareImageDescription()
    {
        descriptionsMayBeRead();
        log.clear();
    }
};

TEST_F(SoftwareImageDescription, TwoReadsWithin2SecondsTouchTheFileOnce)
{
    EXPECT_EQ(getNumber(kClass, 0, kIsActive), 1U);
    writeFile(kDescriptions, descriptions(1, 1));
    EXPECT_EQ(getNumber(kClass, 0, kIsActive), 1U);
    EXPECT_EQ(getNumber(kClass, 1, kIsActive), 0U);
    EXPECT_EQ(readsOfDescriptions(), 1U);
}

TEST_F(SoftwareImageDescription, EachOfTheFourReadsGoesToTheFile)
{
    for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x1000}) {
        SCOPED_TRACE(mask);
        log.clear();
        descriptionsMayBeRead();
        get(kClass, 1, mask);
        EXPECT_EQ(readsOfDescriptions(), 1U);
    }
}

TEST_F(SoftwareImageDescription, ProductCodeAndHashAreNotOfTheFile)
{
    get(kClass, 1, 0x800);
    get(kClass, 1, 0x400);
    EXPECT_EQ(readsOfDescriptions(), 0U);
}

TEST_F(SoftwareImageDescription, VersionIsOfTheFile)
{
    std::vector<unsigned char> version = {'V', '1', '.', '1'};
    version.resize(14);
    EXPECT_EQ(get(kClass, 1, 0x8000, OMCI_ACTION_GET_CURRENT_DATA), version);
}

TEST_F(SoftwareImageDescription, ReadAfter2SecondsGoesToTheFileOnceMore)
{
    NorvikTimer::setTimeScale(100);
    EXPECT_EQ(getNumber(kClass, 0, kIsValid), 1U);
    writeFile(kDescriptions, "APP1_PART_SEL=1\nAPP1_VALID=5\nAPP2_PART_SEL=2\n");
    for (int attempt = 0; attempt < 5000 && getNumber(kClass, 0, kIsValid) != 5; ++attempt) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(getNumber(kClass, 0, kIsValid), 5U);
    EXPECT_TRUE(log.has(6, "Software version timer expired"));
}

TEST_F(SoftwareImageDescription, TimerTakes2Seconds)
{
    getNumber(kClass, 1, kIsValid);
    unsigned int longest = 0;
    for (const NorvikTimer::Running& timer : NorvikTimer::getRunningTimers()) {
        if (timer.handler == &OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler) {
            longest = std::max(longest, timer.millisecondsLeft);
        }
    }
    EXPECT_GT(longest, 1990U);
    EXPECT_LE(longest, 2000U);
}

TEST_F(SoftwareImageDescription, MissingFileLeavesTheValues)
{
    EXPECT_EQ(getNumber(kClass, 0, kIsActive), 1U);
    std::filesystem::remove(Sandbox::realPath(kDescriptions));
    descriptionsMayBeRead();
    EXPECT_EQ(getNumber(kClass, 0, kIsActive), 1U);
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kDescriptions + ")"));
}

TEST_F(SoftwareImageDescription, HasNoHardwareToApplyTo)
{
    EXPECT_EQ(images().applyConfigurationToHardwareForSet(0), 0);
    images().eraseAllManagedEntityInstances();
    EXPECT_NE(OmciMeSoftwareImageIf::getManagedEntityInstance(1), nullptr);
}
