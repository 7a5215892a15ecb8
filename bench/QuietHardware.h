#ifndef NRVK_BENCH_QUIET_HARDWARE_H
#define NRVK_BENCH_QUIET_HARDWARE_H

#include "OmciHardwareIfc.h"
#include "OmciManagedEntityRegistrar.h"

namespace bench {

/// A hardware layer that takes everything and does nothing, connected while it lives: what is measured with it is the
/// library's own work.
class QuietHardware : public OmciHardwareIfc
{
public:
    QuietHardware() { OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(this); }
    ~QuietHardware() override { OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(nullptr); }
    QuietHardware(const QuietHardware&) = delete;
    QuietHardware& operator=(const QuietHardware&) = delete;

    int resetDataPathConfiguration() override { return 0; }
    int clearEthernetFrameExtendedPmCounters(unsigned short, unsigned int) override { return 0; }
    int reserved05() override { return 0; }
    int refreshGemPortCounters(unsigned short, unsigned short, unsigned int) override { return 0; }
    int resetFecCounters(unsigned short, unsigned int) override { return 0; }
    int refreshFecCounters(unsigned short, unsigned int) override { return 0; }
    int findMacBridgePortByTp(unsigned char, unsigned short, OmciMeMacBridgePortConfigurationDataIf**) override
    {
        return 0;
    }
    int reserved10() override { return 0; }
    int refreshAniOpticalSignalLevel(unsigned short) override { return 0; }
    std::vector<unsigned char> getRemoteDebugReply() override { return {}; }
    int refreshAniTransmitOpticalLevel(unsigned short) override { return 0; }
    int refreshTwdmChannel(EnumOmciAction, unsigned short) override { return 0; }
    int reserved15() override { return 0; }
    int refreshTwdmOmciPm(EnumOmciAction, unsigned short) override { return 0; }
    int refreshTwdmPhyLodsPm(EnumOmciAction, unsigned short) override { return 0; }
    int refreshGalEthernetPm(EnumOmciAction, unsigned short) override { return 0; }
    int refreshTwdmPloamPm(EnumOmciAction, unsigned short) override { return 0; }
    int refreshTwdmTuningPm(EnumOmciAction, unsigned short) override { return 0; }
    int refreshTwdmXgemPm(EnumOmciAction, unsigned short) override { return 0; }
    int getStatusPortalMessage(EnumOmciAction, unsigned short, unsigned char*) override { return 0; }
    int refreshEthernetFrameCounters(unsigned short, unsigned short, unsigned int, unsigned short,
                                     unsigned short) override
    {
        return 0;
    }
    int refreshEthernetFrameCounters64(unsigned short, unsigned short, unsigned int, unsigned short,
                                       unsigned short) override
    {
        return 0;
    }
    int refreshVoipLineStatus(EnumOmciAction, unsigned short) override { return 0; }
    bool endSoftwareImageDownload(unsigned char*) override { return true; }
    int removeUniService(OmciMePptpEthernetUniIf*) override { return 0; }
    int reserved28() override { return 0; }
    int removeGemInterworkingTp(OmciMeGemInterworkingTpIf*) override { return 0; }
    int removeMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf*) override { return 0; }
    int removeTCont(OmciMeTContIf*) override { return 0; }
    int removeBridgePortService(unsigned short) override { return 0; }
    int removeMapperInterworkingTps(OmciMeMapperServiceProfile802_1PIf*, unsigned short) override { return 0; }
    int removeVeip(OmciMeVirtualEthernetInterfacePointIf*) override { return 0; }
    int removeVoipMediaProfile(OmciMeVoipMediaProfileIf*) override { return 0; }
    int removeSipUser(OmciMeSipUserDataIf*) override { return 0; }
    int removeSipAgent(OmciMeSipAgentConfigDataIf*) override { return 0; }
    int provisionGemInterworkingTp(OmciMeGemInterworkingTpIf*) override { return 0; }
    int provisionMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf*) override { return 0; }
    int provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf*) override { return 0; }
    int provisionMapper(OmciMeMapperServiceProfile802_1PIf*) override { return 0; }
    int provisionVeip(OmciMeVirtualEthernetInterfacePointIf*) override { return 0; }
    int provisionUniService(OmciMePptpEthernetUniIf*) override { return 0; }
    int reserved44() override { return 0; }
    int provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf*) override { return 0; }
    int provisionSipAgent(OmciMeSipAgentConfigDataIf*) override { return 0; }
    int sendAttributeValueChange(OmciMessage*) override { return 0; }
    unsigned int provisionEvcAndEvcMap(const std::string&, unsigned short, const std::string&, unsigned short,
                                       unsigned char, bool, bool) override
    {
        return 0;
    }
    int setBatteryBackup(unsigned char) override { return 0; }
    int reserved50() override { return 0; }
    int setUniAutodetection(unsigned short, unsigned char) override { return 0; }
    int setGemPortAdminState(unsigned short, unsigned short, unsigned char) override { return 0; }
    int setUniAdminState(unsigned short, unsigned char) override { return 0; }
    unsigned char getUniOperationalState(EnumOmciAction, unsigned short) override { return 0; }
    unsigned int getUniLinkSpeed(EnumOmciAction, unsigned short) override { return 0; }
    unsigned char getUniDuplex(EnumOmciAction, unsigned short) override { return 0; }
    int setVideoAdminState(unsigned short, unsigned char) override { return 0; }
    int applyPotsUni(unsigned short, unsigned int, unsigned char) override { return 0; }
    int reserved59() override { return 0; }
    int refreshPotsUni(EnumOmciAction, unsigned short) override { return 0; }
    int createPmInstance(unsigned short, unsigned short) override { return 0; }
    int deletePmInstance(unsigned short, unsigned short) override { return 0; }
    int sendRemoteDebugCommand(const unsigned char*) override { return 0; }
    int applyTwdmSystemProfile(TwdmSystemProfile) override { return 0; }
    int setTwdmChannelPartitionIndex(unsigned short, unsigned char) override { return 0; }
    int setTwdmChannelPartitionWaiverTimer(unsigned short, unsigned int) override { return 0; }
    int setTwdmDownstreamTuningTimer(unsigned short, unsigned int) override { return 0; }
    int setTwdmLodsProtectionTimer(unsigned short, unsigned int) override { return 0; }
    int setTwdmLodsReinitializationTimer(unsigned short, unsigned int) override { return 0; }
    int setTwdmUpstreamTuningTimer(unsigned short, unsigned int) override { return 0; }
    int applyVoipConfig(unsigned short, unsigned int, unsigned int) override { return 0; }
    int reserved72() override { return 0; }
    int synchronizeTime() override { return 0; }
    int testAni(unsigned short) override { return 0; }
    int testOnu(unsigned short) override { return 0; }
    int reserved76() override { return 0; }
    int reserved77() override { return 0; }
    int reserved78() override { return 0; }
    int reserved79() override { return 0; }
    int notifyMibUploadState(unsigned char) override { return 0; }
    int notifySoftwareDownloadStatus(unsigned char) override { return 0; }
    unsigned char resolveDot1agLayer2Entity(unsigned short, unsigned char, unsigned short*) override { return 0; }
    int setOltTimeOfDay(unsigned int, unsigned long long, unsigned int) override { return 0; }
    int notifyOltVendorId() override { return 0; }
    int setOntTimeOfDay(const time_t*) override { return 0; }
};

}  // namespace bench

#endif
