// The status numbers of a software download, their words, flags and notifications; the display.
#include "SoftwareDownloadTest.h"

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::InSequence;

namespace {

struct StatusRow
{
    unsigned short number;
    const char* word;
    bool inProgress;
    std::vector<int> notifications;
};

const StatusRow kStatusRows[] = {
    {0, "IDLE", false, {}},
    {1, "DOWNLOAD STARTED SUCCESS", true, {}},
    {2, "DOWNLOAD START FAILED", false, {1}},
    {3, "DOWNLOAD IN PROGRESS", true, {2}},
    {4, "DOWNLOAD COMPLETE", true, {}},
    {5, "DOWNLOAD SUCCESS", true, {3}},
    {6, "DOWNLOAD FAILURE", false, {1}},
    {7, "WRITE IN PROGRESS", true, {}},
    {8, "WRITE SUCCESS", false, {}},
    {9, "WRITE ERROR", false, {}},
    {10, "ACTIVATE IN PROGRESS", false, {1}},
    {11, "ACTIVATE SUCCESS", true, {}},
    {12, "ACTIVATE FAILURE", false, {}},
    {13, "COMMIT SUCCESS", false, {}},
    {14, "COMMIT FAILURE", false, {0}},
    {15, "UNKNOWN", false, {}},
};

}  // namespace

class SoftwareDownloadStatus : public SoftwareDownloadTest
{};

TEST_F(SoftwareDownloadStatus, EachNumberHasItsWordFlagAndNotification)
{
    for (const StatusRow& row : kStatusRows) {
        SCOPED_TRACE(row.number);
        nrvk::forgetSoftwareDownload();
        std::vector<int> told;
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).WillRepeatedly([&told](unsigned char value) {
            told.push_back(value);
            return 0;
        });
        log.clear();
        EXPECT_EQ(Adapter::updateSoftwareDownloadStatus(row.number), 0);
        EXPECT_EQ(log.texts(6).front(), "Download status(" + std::to_string(row.number) + ")");
        EXPECT_EQ(told, row.notifications);
        EXPECT_EQ(status(), row.number);
        EXPECT_EQ(display()["Status"], std::to_string(row.number));
        EXPECT_EQ(display()["Word"], row.word);
        EXPECT_EQ(inProgress(), row.inProgress);
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
    }
}

TEST_F(SoftwareDownloadStatus, NumberAbove15IsRefusedAndChangesNothing)
{
    putStatus(4);
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
    log.clear();
    EXPECT_EQ(Adapter::updateSoftwareDownloadStatus(16), -1);
    EXPECT_EQ(log.texts(6), Texts{"Download status(16)"});
    EXPECT_EQ(log.texts(3), Texts{"Invalid download status(16)"});
    EXPECT_EQ(Adapter::updateSoftwareDownloadStatus(0x104), -1);
    EXPECT_EQ(status(), 4U);
    EXPECT_TRUE(inProgress());
}

TEST_F(SoftwareDownloadStatus, TransferIsReportedOnceUntilItEnds)
{
    for (const unsigned short ends : {2, 5, 6, 10}) {
        SCOPED_TRACE(ends);
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(1);
        EXPECT_CALL(hardware, notifySoftwareDownloadStatus(2)).Times(2);
        putStatus(3);
        putStatus(3);
        putStatus(ends);
        putStatus(3);
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
        nrvk::forgetSoftwareDownload();
    }
}

TEST_F(SoftwareDownloadStatus, StartedFlagKeepsTheTransferFromBeingReported)
{
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(_)).Times(0);
    Adapter::updateDownloadStartedFlag(1);
    EXPECT_TRUE(log.has(6, "Download started flag set to:(1)"));
    putStatus(3);
}

TEST_F(SoftwareDownloadStatus, IsStoredWithoutHardware)
{
    removeHardware();
    putStatus(6);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(status(), 6U);
}

TEST_F(SoftwareDownloadStatus, ReadIsLogged)
{
    putStatus(8);
    log.clear();
    EXPECT_EQ(Adapter::getSoftwareDownloadStatus(), 8);
    EXPECT_EQ(log.texts(6), Texts{"Download status(8)"});
}

TEST_F(SoftwareDownloadStatus, DisplayOfANewProcess)
{
    EXPECT_EQ(displayText(), "Instance under download           : 255\n\r"
                             "Upgrade in progress               : no\n\r"
                             "Multiple retransmission           : no\n\r"
                             "Window size used in last download : 127\n\r"
                             "RxOmciFifoDepthInBytes            : 0\n\r"
                             "Section counter                   : 0\n\r"
                             "Download section error            : no\n\r"
                             "Section with error                : 0\n\r"
                             "Image size                        : 0\n\r"
                             "Image offset                      : 0\n\r"
                             "Status                            : 0\n\r"
                             "Status                            : IDLE\n\r");
}

TEST_F(SoftwareDownloadStatus, DisplayInTheMiddleOfAWindow)
{
    images().updateRxOmciFifoDepthInBytes(1000000);
    ASSERT_EQ(start(1000, 7), 0);
    section(0, imageOf(31), false);
    section(1, imageOf(31), false);
    section(3, imageOf(31), false);
    EXPECT_EQ(displayText(), "Instance under download           : 1\n\r"
                             "Upgrade in progress               : yes\n\r"
                             "Multiple retransmission           : no\n\r"
                             "Window size used in last download : 7\n\r"
                             "RxOmciFifoDepthInBytes            : 1000000\n\r"
                             "Section counter                   : 3\n\r"
                             "Download section error            : yes\n\r"
                             "Section with error                : 2\n\r"
                             "Image size                        : 1000\n\r"
                             "Image offset                      : 62\n\r"
                             "Status                            : 3\n\r"
                             "Status                            : DOWNLOAD IN PROGRESS\n\r");
}

TEST_F(SoftwareDownloadStatus, DisplayWithoutAFileIsAnError)
{
    images().showSoftwareDownloadStatus(nullptr);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
}

TEST_F(SoftwareDownloadStatus, FifoDepthOfZeroIsIgnored)
{
    images().updateRxOmciFifoDepthInBytes(4000);
    images().updateRxOmciFifoDepthInBytes(0);
    EXPECT_TRUE(log.has(6, "RxOmciFifoDepthInBytes(4000)"));
    EXPECT_TRUE(log.has(6, "RxOmciFifoDepthInBytes(0)"));
    EXPECT_EQ(log.texts(3), Texts{"RxOmciFifoDepthInBytes cannot be equal to 0"});
    EXPECT_EQ(display()["RxOmciFifoDepthInBytes"], "4000");
}

TEST_F(SoftwareDownloadStatus, NewAdapterGivesTheDownloadUpAndKeepsTheStatus)
{
    ASSERT_EQ(start(1000), 0);
    Sandbox::clearCommands();
    images().init();
    EXPECT_EQ(Sandbox::commands(), Texts{kDropCaches});
    EXPECT_EQ(status(), 1U);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(display()["Word"], "DOWNLOAD STARTED SUCCESS");
}

TEST_F(SoftwareDownloadStatus, ForgottenDownloadIsThatOfANewProcess)
{
    const std::string fresh = displayText();
    images().updateRxOmciFifoDepthInBytes(4000);
    ASSERT_EQ(start(1000, 7), 0);
    section(0, imageOf(31), false);
    section(3, imageOf(31), false);
    ASSERT_NE(displayText(), fresh);
    Sandbox::clearCommands();
    nrvk::forgetSoftwareDownload();
    EXPECT_EQ(displayText(), fresh);
    EXPECT_EQ(timersOfDownload(), 0U);
    EXPECT_EQ(Sandbox::commands(), Texts{});
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(2));
    EXPECT_EQ(start(31), 0);
    EXPECT_EQ(section(0, imageOf(31), true), 0);
}

TEST_F(SoftwareDownloadStatus, ForgettingClearsAnActivatedImage)
{
    ASSERT_EQ(activate(1), 0);
    ASSERT_EQ(start(31), -1);
    nrvk::forgetSoftwareDownload();
    EXPECT_EQ(start(31), 0);
}

TEST_F(SoftwareDownloadStatus, HostReachesItThroughTheLibrary)
{
    EXPECT_EQ(nrvk::updateSoftwareDownloadStatus(3), 0);
    EXPECT_EQ(nrvk::getSoftwareDownloadStatus(), 3);
    EXPECT_EQ(nrvk::updateSoftwareDownloadStatus(16), -1);
    EXPECT_EQ(nrvk::getSoftwareDownloadStatus(), 3);
}

TEST_F(SoftwareDownloadStatus, BeginOfATransferIsToldOnceUntilTheHostClearsTheFlag)
{
    EXPECT_CALL(hardware, notifySoftwareDownloadStatus(2)).Times(2);
    nrvk::updateSoftwareDownloadStatus(3);
    nrvk::updateSoftwareDownloadStatus(3);
    nrvk::updateDownloadStartedFlag(0);
    nrvk::updateSoftwareDownloadStatus(3);
}
