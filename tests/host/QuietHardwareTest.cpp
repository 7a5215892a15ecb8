// The hardware layer that a port begins with: hardware that is not there.

#include "host/QuietHardware.h"

#include <gtest/gtest.h>

namespace {

/// Called as the library calls it.
class QuietHardwareTest : public testing::Test
{
protected:
    OmciHardwareIfc& hardware() { return m_Quiet; }

private:
    omci::QuietHardware m_Quiet;
};

}  // namespace

TEST_F(QuietHardwareTest, ProvisioningIsTaken)
{
    EXPECT_EQ(0, hardware().removeUniService(nullptr));
    EXPECT_EQ(0, hardware().removeGemInterworkingTp(nullptr));
    EXPECT_EQ(0, hardware().removeMulticastGemInterworkingTp(nullptr));
    EXPECT_EQ(0, hardware().removeTCont(nullptr));
    EXPECT_EQ(0, hardware().removeBridgePortService(1));
    EXPECT_EQ(0, hardware().removeMapperInterworkingTps(nullptr, 1));
    EXPECT_EQ(0, hardware().removeVeip(nullptr));
    EXPECT_EQ(0, hardware().removeVoipMediaProfile(nullptr));
    EXPECT_EQ(0, hardware().removeSipUser(nullptr));
    EXPECT_EQ(0, hardware().removeSipAgent(nullptr));
    EXPECT_EQ(0, hardware().provisionGemInterworkingTp(nullptr));
    EXPECT_EQ(0, hardware().provisionMulticastGemInterworkingTp(nullptr));
    EXPECT_EQ(0, hardware().provisionBridgePort(nullptr));
    EXPECT_EQ(0, hardware().provisionMapper(nullptr));
    EXPECT_EQ(0, hardware().provisionVeip(nullptr));
    EXPECT_EQ(0, hardware().provisionUniService(nullptr));
    EXPECT_EQ(0, hardware().provisionVoipVoiceCtp(nullptr));
    EXPECT_EQ(0, hardware().provisionSipAgent(nullptr));
    EXPECT_EQ(0U, hardware().provisionEvcAndEvcMap("OMCI_1", 1, "OMCI_1", 1, 1, true, true));
    EXPECT_EQ(0, hardware().createPmInstance(1, 1));
    EXPECT_EQ(0, hardware().deletePmInstance(1, 1));
}

TEST_F(QuietHardwareTest, SettingsAreTaken)
{
    EXPECT_EQ(0, hardware().setBatteryBackup(1));
    EXPECT_EQ(0, hardware().setUniAutodetection(1, 1));
    EXPECT_EQ(0, hardware().setGemPortAdminState(1, 1, 1));
    EXPECT_EQ(0, hardware().setUniAdminState(1, 1));
    EXPECT_EQ(0, hardware().setVideoAdminState(1, 1));
    EXPECT_EQ(0, hardware().applyPotsUni(1, 1, 1));
    EXPECT_EQ(0, hardware().applyTwdmSystemProfile(TwdmSystemProfile{}));
    EXPECT_EQ(0, hardware().setTwdmChannelPartitionIndex(1, 1));
    EXPECT_EQ(0, hardware().setTwdmChannelPartitionWaiverTimer(1, 1));
    EXPECT_EQ(0, hardware().setTwdmDownstreamTuningTimer(1, 1));
    EXPECT_EQ(0, hardware().setTwdmLodsProtectionTimer(1, 1));
    EXPECT_EQ(0, hardware().setTwdmLodsReinitializationTimer(1, 1));
    EXPECT_EQ(0, hardware().setTwdmUpstreamTuningTimer(1, 1));
    EXPECT_EQ(0, hardware().applyVoipConfig(1, 1, 1));
    EXPECT_EQ(0, hardware().setOltTimeOfDay(1, 1, 1));
    EXPECT_EQ(0, hardware().setOntTimeOfDay(nullptr));
}

TEST_F(QuietHardwareTest, RefreshesAndResetsSucceed)
{
    EXPECT_EQ(0, hardware().resetDataPathConfiguration());
    EXPECT_EQ(0, hardware().clearEthernetFrameExtendedPmCounters(1, 1));
    EXPECT_EQ(0, hardware().refreshGemPortCounters(1, 1, 1));
    EXPECT_EQ(0, hardware().resetFecCounters(1, 1));
    EXPECT_EQ(0, hardware().refreshFecCounters(1, 1));
    EXPECT_EQ(0, hardware().refreshAniOpticalSignalLevel(1));
    EXPECT_EQ(0, hardware().refreshAniTransmitOpticalLevel(1));
    EXPECT_EQ(0, hardware().refreshTwdmChannel(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshTwdmOmciPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshTwdmPhyLodsPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshGalEthernetPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshTwdmPloamPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshTwdmTuningPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshTwdmXgemPm(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshEthernetFrameCounters(1, 1, 1, 1, 1));
    EXPECT_EQ(0, hardware().refreshEthernetFrameCounters64(1, 1, 1, 1, 1));
    EXPECT_EQ(0, hardware().refreshVoipLineStatus(OMCI_ACTION_GET, 1));
    EXPECT_EQ(0, hardware().refreshPotsUni(OMCI_ACTION_GET, 1));
}

TEST_F(QuietHardwareTest, NotificationsAndTestsAreTaken)
{
    EXPECT_EQ(0, hardware().sendAttributeValueChange(nullptr));
    EXPECT_EQ(0, hardware().sendRemoteDebugCommand(nullptr));
    EXPECT_EQ(0, hardware().synchronizeTime());
    EXPECT_EQ(0, hardware().testAni(1));
    EXPECT_EQ(0, hardware().testOnu(1));
    EXPECT_EQ(0, hardware().notifyMibUploadState(1));
    EXPECT_EQ(0, hardware().notifySoftwareDownloadStatus(1));
    EXPECT_EQ(0, hardware().notifyOltVendorId());
}

TEST_F(QuietHardwareTest, PlacesThatAreNotCalledSucceed)
{
    EXPECT_EQ(0, hardware().reserved05());
    EXPECT_EQ(0, hardware().reserved10());
    EXPECT_EQ(0, hardware().reserved15());
    EXPECT_EQ(0, hardware().reserved28());
    EXPECT_EQ(0, hardware().reserved44());
    EXPECT_EQ(0, hardware().reserved50());
    EXPECT_EQ(0, hardware().reserved59());
    EXPECT_EQ(0, hardware().reserved72());
    EXPECT_EQ(0, hardware().reserved76());
    EXPECT_EQ(0, hardware().reserved77());
    EXPECT_EQ(0, hardware().reserved78());
    EXPECT_EQ(0, hardware().reserved79());
}

TEST_F(QuietHardwareTest, EthernetPortsAreDown)
{
    constexpr unsigned char disabled = 1;
    EXPECT_EQ(disabled, hardware().getUniOperationalState(OMCI_ACTION_GET, 0x101));
    EXPECT_EQ(0U, hardware().getUniLinkSpeed(OMCI_ACTION_GET, 0x101));
    EXPECT_EQ(0, hardware().getUniDuplex(OMCI_ACTION_GET, 0x101));
}

TEST_F(QuietHardwareTest, NoImageFits)
{
    unsigned char image[1] = {};
    EXPECT_FALSE(hardware().endSoftwareImageDownload(image));
}

TEST_F(QuietHardwareTest, LooksUpNothing)
{
    OmciMeMacBridgePortConfigurationDataIf* port = nullptr;
    EXPECT_EQ(0, hardware().findMacBridgePortByTp(1, 0x101, &port));
    EXPECT_EQ(nullptr, port);
    unsigned short entity = 7;
    EXPECT_LT(4, hardware().resolveDot1agLayer2Entity(1, 1, &entity)) << "no logical port";
    EXPECT_EQ(7, entity);
}

TEST_F(QuietHardwareTest, HasNothingToSay)
{
    EXPECT_TRUE(hardware().getRemoteDebugReply().empty());
    unsigned char message[512] = {0x5A};
    EXPECT_EQ(0, hardware().getStatusPortalMessage(OMCI_ACTION_GET, 0, message));
    EXPECT_EQ(0x5A, message[0]);
}
