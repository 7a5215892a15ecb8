#ifndef NRVK_TESTS_SUPPORT_MOCK_HARDWARE_H
#define NRVK_TESTS_SUPPORT_MOCK_HARDWARE_H

#include <gmock/gmock.h>

#include "OmciHardwareIfc.h"

/// The hardware layer as a mock. Construction and destruction are out of line: they are what makes a mock slow to
/// compile.
class MockHardware : public OmciHardwareIfc
{
public:
    MockHardware();
    ~MockHardware() override;

    MOCK_METHOD(int, resetDataPathConfiguration, (), (override));
    MOCK_METHOD(int, clearEthernetFrameExtendedPmCounters, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, reserved05, (), (override));
    MOCK_METHOD(int, refreshGemPortCounters, (unsigned short, unsigned short, unsigned int), (override));
    MOCK_METHOD(int, resetFecCounters, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, refreshFecCounters, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, findMacBridgePortByTp, (unsigned char, unsigned short, OmciMeMacBridgePortConfigurationDataIf**),
                (override));
    MOCK_METHOD(int, reserved10, (), (override));
    MOCK_METHOD(int, refreshAniOpticalSignalLevel, (unsigned short), (override));
    MOCK_METHOD(std::vector<unsigned char>, getRemoteDebugReply, (), (override));
    MOCK_METHOD(int, refreshAniTransmitOpticalLevel, (unsigned short), (override));
    MOCK_METHOD(int, refreshTwdmChannel, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, reserved15, (), (override));
    MOCK_METHOD(int, refreshTwdmOmciPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, refreshTwdmPhyLodsPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, refreshGalEthernetPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, refreshTwdmPloamPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, refreshTwdmTuningPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, refreshTwdmXgemPm, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, getStatusPortalMessage, (EnumOmciAction, unsigned short, unsigned char*), (override));
    MOCK_METHOD(int, refreshEthernetFrameCounters,
                (unsigned short, unsigned short, unsigned int, unsigned short, unsigned short), (override));
    MOCK_METHOD(int, refreshEthernetFrameCounters64,
                (unsigned short, unsigned short, unsigned int, unsigned short, unsigned short), (override));
    MOCK_METHOD(int, refreshVoipLineStatus, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(bool, endSoftwareImageDownload, (unsigned char*), (override));
    MOCK_METHOD(int, removeUniService, (OmciMePptpEthernetUniIf*), (override));
    MOCK_METHOD(int, reserved28, (), (override));
    MOCK_METHOD(int, removeGemInterworkingTp, (OmciMeGemInterworkingTpIf*), (override));
    MOCK_METHOD(int, removeMulticastGemInterworkingTp, (OmciMeMulticastGemInterworkingTpIf*), (override));
    MOCK_METHOD(int, removeTCont, (OmciMeTContIf*), (override));
    MOCK_METHOD(int, removeBridgePortService, (unsigned short), (override));
    MOCK_METHOD(int, removeMapperInterworkingTps, (OmciMeMapperServiceProfile802_1PIf*, unsigned short), (override));
    MOCK_METHOD(int, removeVeip, (OmciMeVirtualEthernetInterfacePointIf*), (override));
    MOCK_METHOD(int, removeVoipMediaProfile, (OmciMeVoipMediaProfileIf*), (override));
    MOCK_METHOD(int, removeSipUser, (OmciMeSipUserDataIf*), (override));
    MOCK_METHOD(int, removeSipAgent, (OmciMeSipAgentConfigDataIf*), (override));
    MOCK_METHOD(int, provisionGemInterworkingTp, (OmciMeGemInterworkingTpIf*), (override));
    MOCK_METHOD(int, provisionMulticastGemInterworkingTp, (OmciMeMulticastGemInterworkingTpIf*), (override));
    MOCK_METHOD(int, provisionBridgePort, (OmciMeMacBridgePortConfigurationDataIf*), (override));
    MOCK_METHOD(int, provisionMapper, (OmciMeMapperServiceProfile802_1PIf*), (override));
    MOCK_METHOD(int, provisionVeip, (OmciMeVirtualEthernetInterfacePointIf*), (override));
    MOCK_METHOD(int, provisionUniService, (OmciMePptpEthernetUniIf*), (override));
    MOCK_METHOD(int, reserved44, (), (override));
    MOCK_METHOD(int, provisionVoipVoiceCtp, (OmciMeVoipVoiceCTPIf*), (override));
    MOCK_METHOD(int, provisionSipAgent, (OmciMeSipAgentConfigDataIf*), (override));
    MOCK_METHOD(int, sendAttributeValueChange, (OmciMessage*), (override));
    MOCK_METHOD(unsigned int, provisionEvcAndEvcMap,
                (const std::string&, unsigned short, const std::string&, unsigned short, unsigned char, bool, bool),
                (override));
    MOCK_METHOD(int, setBatteryBackup, (unsigned char), (override));
    MOCK_METHOD(int, reserved50, (), (override));
    MOCK_METHOD(int, setUniAutodetection, (unsigned short, unsigned char), (override));
    MOCK_METHOD(int, setGemPortAdminState, (unsigned short, unsigned short, unsigned char), (override));
    MOCK_METHOD(int, setUniAdminState, (unsigned short, unsigned char), (override));
    MOCK_METHOD(unsigned char, getUniOperationalState, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(unsigned int, getUniLinkSpeed, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(unsigned char, getUniDuplex, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, setVideoAdminState, (unsigned short, unsigned char), (override));
    MOCK_METHOD(int, applyPotsUni, (unsigned short, unsigned int, unsigned char), (override));
    MOCK_METHOD(int, reserved59, (), (override));
    MOCK_METHOD(int, refreshPotsUni, (EnumOmciAction, unsigned short), (override));
    MOCK_METHOD(int, createPmInstance, (unsigned short, unsigned short), (override));
    MOCK_METHOD(int, deletePmInstance, (unsigned short, unsigned short), (override));
    MOCK_METHOD(int, sendRemoteDebugCommand, (const unsigned char*), (override));
    MOCK_METHOD(int, applyTwdmSystemProfile, (TwdmSystemProfile), (override));
    MOCK_METHOD(int, setTwdmChannelPartitionIndex, (unsigned short, unsigned char), (override));
    MOCK_METHOD(int, setTwdmChannelPartitionWaiverTimer, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, setTwdmDownstreamTuningTimer, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, setTwdmLodsProtectionTimer, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, setTwdmLodsReinitializationTimer, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, setTwdmUpstreamTuningTimer, (unsigned short, unsigned int), (override));
    MOCK_METHOD(int, applyVoipConfig, (unsigned short, unsigned int, unsigned int), (override));
    MOCK_METHOD(int, reserved72, (), (override));
    MOCK_METHOD(int, synchronizeTime, (), (override));
    MOCK_METHOD(int, testAni, (unsigned short), (override));
    MOCK_METHOD(int, testOnu, (unsigned short), (override));
    MOCK_METHOD(int, reserved76, (), (override));
    MOCK_METHOD(int, reserved77, (), (override));
    MOCK_METHOD(int, reserved78, (), (override));
    MOCK_METHOD(int, reserved79, (), (override));
    MOCK_METHOD(int, notifyMibUploadState, (unsigned char), (override));
    MOCK_METHOD(int, notifySoftwareDownloadStatus, (unsigned char), (override));
    MOCK_METHOD(unsigned char, resolveDot1agLayer2Entity, (unsigned short, unsigned char, unsigned short*), (override));
    MOCK_METHOD(int, setOltTimeOfDay, (unsigned int, unsigned long long, unsigned int), (override));
    MOCK_METHOD(int, notifyOltVendorId, (), (override));
    MOCK_METHOD(int, setOntTimeOfDay, (const time_t*), (override));
};

#endif
