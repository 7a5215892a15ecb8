#ifndef ONT_OMCI_MANAGED_ENTITY_OMCI_HARDWARE_IFC_H
#define ONT_OMCI_MANAGED_ENTITY_OMCI_HARDWARE_IFC_H

#include <ctime>
#include <string>
#include <vector>

#include "StatusRecords.h"
#include "attributeDefinition.h"

class OmciMessage;
class OmciMeExtendedVlanTaggingOperationConfigurationDataIf;
class OmciMeGemInterworkingTpIf;
class OmciMeMacBridgePortConfigurationDataIf;
class OmciMeMapperServiceProfile802_1PIf;
class OmciMeMulticastGemInterworkingTpIf;
class OmciMePptpEthernetUniIf;
class OmciMeSipAgentConfigDataIf;
class OmciMeSipUserDataIf;
class OmciMeTContIf;
class OmciMeVirtualEthernetInterfacePointIf;
class OmciMeVoipMediaProfileIf;
class OmciMeVoipVoiceCTPIf;

/// The one boundary through which the library drives the ONU's data path, voice stack, optical front end and counters.
///
/// The hardware layer derives from it and hands one object to OmciManagedEntityRegistrar::setOmciHardwareIfc; the
/// library never deletes it. The order of the virtual operations is the binary contract.
///
/// What may be queued, so that no Set waits for the chip, and what must be done when the call returns:
///
/// - May be queued, in the order of the calls: provision, remove, set (but for the clock), apply,
///   resetDataPathConfiguration, testAni and testOnu. The library pushes a change and ignores the result. It hands over
///   an entity or its instance number; what else is needed is read during the call, through the getters and stores
///   (action OMCI_ACTION_GET), for the next message may change it, and an entity pointer is good only as long as the
///   instance exists. Later calls about the same entity mean the later state, so that the order counts. A test's result
///   is a message of its own. provisionEvcAndEvcMap answers at once whether it takes the work.
/// - At once, for the reply is made from it: get, find, resolve and endSoftwareImageDownload, whose result is used; and
///   refresh, which is answered through the matching update entry of OmciManagedEntitiesCore before it returns, from
///   what the hardware layer has at hand. Without an answer the last value is read.
/// - At once, for the OLT relies on it with its next message: sendRemoteDebugCommand (getRemoteDebugReply follows),
///   createPmInstance, clearEthernetFrameExtendedPmCounters and resetFecCounters (the next refresh reports the new
///   count), synchronizeTime, setOltTimeOfDay and setOntTimeOfDay (a time that waits is wrong).
/// - At once, for what is handed over ends with the call: sendAttributeValueChange; so does the text of
///   sendRemoteDebugCommand and the image of endSoftwareImageDownload.
/// - deletePmInstance and the notify calls tell something; what comes of it may take its time.
///
/// Calls come on the thread that called the library, normally the OMCI thread, with no lock of the library's held
/// except inside a MIB reset of the ONU's own and the swap of the IP host instances. A call that does not return holds
/// up that thread, and with it every request; timers go on, and so does what other threads report.
///
/// From inside a call the update entries of OmciManagedEntitiesCore, those of the registrar and the host's alarms may
/// be used, on the same and on other entities; so may the reset and the swap, which know their own thread. Not so the
/// registrar's mutex, which that thread may hold already, and the deletion of the entity that the call is about.
///
/// A call may throw. The request then ends with a processing error; what it had changed by then stays changed. Three
/// are taken more lightly: notifyMibUploadState, a refresh during a MIB upload, which costs that value, and what the
/// thread that writes an image calls, which changes nothing for the image.
class OmciHardwareIfc
{
public:
    virtual ~OmciHardwareIfc() = default;

    /// The MIB was reset: forget all provisioning.
    virtual int resetDataPathConfiguration() = 0;
    /// Sets the counters of an extended Ethernet frame PM entity (G.988 9.3.32 and 9.3.34, classes 334 and 425) back to
    /// 0, as its control block asks. `statsAction`: 0 those since the entity was made, 1 those of the running interval.
    virtual int clearEthernetFrameExtendedPmCounters(unsigned short instance, unsigned int statsAction) = 0;
    virtual int reserved05() = 0;  ///< never called
    /// Keyed by GEM port id, not by instance. `classId` is 341 or 267. `statsAction`: 2 for a Get, 1 for get current
    /// data, 0 none.
    virtual int refreshGemPortCounters(unsigned short classId, unsigned short portId, unsigned int statsAction) = 0;
    /// FEC PM history data (G.988 9.2.9, class 312) is gone: its counters begin at 0. `mode` is 3.
    virtual int resetFecCounters(unsigned short classId, unsigned int mode) = 0;
    /// Answered through updateTwdmFecStats. `statsAction`: 2 for a Get, 1 for get current data.
    virtual int refreshFecCounters(unsigned short instance, unsigned int statsAction) = 0;
    /// `kind`: 1 a PPTP Ethernet UNI, 4 an IP host, 5 a VLAN tagging filter. `*port` is null on entry and stays null
    /// when there is no such bridge port.
    virtual int findMacBridgePortByTp(unsigned char kind, unsigned short instance,
                                      OmciMeMacBridgePortConfigurationDataIf** port) = 0;
    virtual int reserved10() = 0;  ///< never called
    /// Answered through updateAniGOpticalSignalLevel.
    virtual int refreshAniOpticalSignalLevel(unsigned short instance) = 0;
    /// The reply to the last remote debug command, of any length.
    virtual std::vector<unsigned char> getRemoteDebugReply() = 0;
    /// Answered through updateAniGTransmitOpticalLevel.
    virtual int refreshAniTransmitOpticalLevel(unsigned short instance) = 0;
    /// Answered through updateTwdmChannel.
    virtual int refreshTwdmChannel(EnumOmciAction action, unsigned short instance) = 0;
    virtual int reserved15() = 0;  ///< never called
    /// Class 65414. Answered through updateTwdmOmciStats. `action` tells a Get (last interval) from get current data
    /// (running interval); so in the other refreshes of PM.
    virtual int refreshTwdmOmciPm(EnumOmciAction action, unsigned short instance) = 0;
    /// Class 65406. Answered through updateTwdmPhyLodsStats.
    virtual int refreshTwdmPhyLodsPm(EnumOmciAction action, unsigned short instance) = 0;
    /// GAL Ethernet PM history data (G.988 9.2.8, class 276). Answered through updateGalEthPmHistData.
    virtual int refreshGalEthernetPm(EnumOmciAction action, unsigned short instance) = 0;
    /// Classes 65408 to 65410. Answered through updateTwdmPloamStats, with all three parts.
    virtual int refreshTwdmPloamPm(EnumOmciAction action, unsigned short instance) = 0;
    /// Classes 65411 to 65413. Answered through updateTwdmTuningStats, with all three parts.
    virtual int refreshTwdmTuningPm(EnumOmciAction action, unsigned short instance) = 0;
    /// Class 65407. Answered through updateTwdmXgemStats.
    virtual int refreshTwdmXgemPm(EnumOmciAction action, unsigned short instance) = 0;
    /// `buffer` is 512 zeroed bytes; the text of 256 bytes starts at byte 18.
    virtual int getStatusPortalMessage(EnumOmciAction action, unsigned short instance, unsigned char* buffer) = 0;
    /// `classId` is 24, 321, 322, 334 or 425. Answered through updateEthernetFrameExtendedPM.
    virtual int refreshEthernetFrameCounters(unsigned short classId, unsigned short instance, unsigned int statsAction,
                                             unsigned short parentClass, unsigned short parentInstance) = 0;
    /// Answered through updateVeipExtendedPM.
    virtual int refreshEthernetFrameCounters64(unsigned short classId, unsigned short instance,
                                               unsigned int statsAction, unsigned short parentClass,
                                               unsigned short parentInstance) = 0;
    /// Answered through updateVoipLineStatus.
    virtual int refreshVoipLineStatus(EnumOmciAction action, unsigned short instance) = 0;
    /// Whether the received image fits this hardware. The storage stays the library's.
    virtual bool endSoftwareImageDownload(unsigned char* imageStorage) = 0;
    /// The port carries no service any more: it was locked, its bridge port has gone, or its VLAN rules have changed
    /// and come again by provisionUniService (PPTP Ethernet UNI, G.988 9.5.1, class 11).
    virtual int removeUniService(OmciMePptpEthernetUniIf* uni) = 0;
    virtual int reserved28() = 0;  ///< never called
    /// GEM interworking termination point (G.988 9.2.4, class 266).
    virtual int removeGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp) = 0;
    /// Multicast GEM interworking termination point (G.988 9.2.5, class 281).
    virtual int removeMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp) = 0;
    /// The T-CONT (G.988 9.2.2, class 262) loses its alloc-ID, which can still be read during the call.
    virtual int removeTCont(OmciMeTContIf* tCont) = 0;
    /// `instance` of a bridge port, or of a mapper.
    virtual int removeBridgePortService(unsigned short instance) = 0;
    /// The mapper (G.988 9.3.10, class 130) leads to no GEM interworking TP any more. `defaultTpPointer` is the pointer
    /// of a new mapper, 65535.
    virtual int removeMapperInterworkingTps(OmciMeMapperServiceProfile802_1PIf* mapper,
                                            unsigned short defaultTpPointer) = 0;
    /// Virtual Ethernet interface point (G.988 9.5.5, class 329), locked.
    virtual int removeVeip(OmciMeVirtualEthernetInterfacePointIf* veip) = 0;
    /// VoIP media profile (G.988 9.9.5, class 142).
    virtual int removeVoipMediaProfile(OmciMeVoipMediaProfileIf* profile) = 0;
    /// SIP user data (G.988 9.9.2, class 153).
    virtual int removeSipUser(OmciMeSipUserDataIf* user) = 0;
    /// SIP agent config data (G.988 9.9.3, class 150).
    virtual int removeSipAgent(OmciMeSipAgentConfigDataIf* agent) = 0;
    /// GEM interworking termination point (G.988 9.2.4, class 266), after the last attribute of its create.
    virtual int provisionGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp) = 0;
    /// Multicast GEM interworking termination point (G.988 9.2.5, class 281), with its first group.
    virtual int provisionMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp) = 0;
    /// MAC bridge port configuration data (G.988 9.3.4, class 47): once with its TP pointer, and again with a VLAN
    /// filter or VLAN rules.
    virtual int provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf* port) = 0;
    /// The pointers in force before this change can be read by getOldInterworkingTpForPbit during the call.
    virtual int provisionMapper(OmciMeMapperServiceProfile802_1PIf* mapper) = 0;
    /// Virtual Ethernet interface point (G.988 9.5.5, class 329), unlocked.
    virtual int provisionVeip(OmciMeVirtualEthernetInterfacePointIf* veip) = 0;
    /// The service of an unlocked Ethernet port (PPTP Ethernet UNI, G.988 9.5.1, class 11). Its VLAN rules can be read
    /// during the call: ExtendedVlanTaggingAccess.h.
    virtual int provisionUniService(OmciMePptpEthernetUniIf* uni) = 0;
    virtual int reserved44() = 0;  ///< never called
    /// The line of a VoIP voice CTP (G.988 9.9.4, class 139) is complete; what it points at is read through the stores.
    virtual int provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf* voiceCtp) = 0;
    /// SIP agent config data (G.988 9.9.3, class 150).
    virtual int provisionSipAgent(OmciMeSipAgentConfigDataIf* agent) = 0;
    /// `message` is the library's and goes after the call.
    virtual int sendAttributeValueChange(OmciMessage* message) = 0;
    /// VLANs: 0xFFFF for none. The result is what sendEvcAndEvcMapToTmb gives back; `request` is passed through from
    /// there.
    virtual unsigned int provisionEvcAndEvcMap(const std::string& evcName, unsigned short evcVlan,
                                               const std::string& evcMapName, unsigned short matchVlan,
                                               unsigned char priority, bool noTagRemoved, bool request) = 0;
    /// Attribute BatteryBackup of ONU-G (G.988 9.1.1, class 256): 1 on, 0 off.
    virtual int setBatteryBackup(unsigned char value) = 0;
    virtual int reserved50() = 0;  ///< never called
    /// Attribute AutodetectionConfig of an Ethernet port (G.988 9.5.1, class 11), as G.988 codes rate and duplex.
    virtual int setUniAutodetection(unsigned short instance, unsigned char value) = 0;
    /// `instance` of the interworking TP; `state` 0 unlocked, 1 locked.
    virtual int setGemPortAdminState(unsigned short instance, unsigned short portId, unsigned char state) = 0;
    /// `state` 0 unlocked, 1 locked.
    virtual int setUniAdminState(unsigned short instance, unsigned char state) = 0;
    /// 0 enabled, 1 disabled; goes to the OLT as it stands.
    virtual unsigned char getUniOperationalState(EnumOmciAction action, unsigned short instance) = 0;
    /// Mbit/s.
    virtual unsigned int getUniLinkSpeed(EnumOmciAction action, unsigned short instance) = 0;
    /// 0 half duplex, 1 full duplex.
    virtual unsigned char getUniDuplex(EnumOmciAction action, unsigned short instance) = 0;
    /// `state` 0 on, 1 off.
    virtual int setVideoAdminState(unsigned short instance, unsigned char state) = 0;
    /// `word` holds administrative state, impedance, transmission path and receive gain, in memory order.
    virtual int applyPotsUni(unsigned short instance, unsigned int word, unsigned char txGain) = 0;
    virtual int reserved59() = 0;  ///< never called
    /// Answered through updatePptpPotsUniCallAttributes.
    virtual int refreshPotsUni(EnumOmciAction action, unsigned short instance) = 0;
    /// The OLT has created a performance monitoring entity: begin to count for it.
    virtual int createPmInstance(unsigned short classId, unsigned short instance) = 0;
    /// The OLT has deleted it.
    virtual int deletePmInstance(unsigned short classId, unsigned short instance) = 0;
    /// `command` is as long as the Command attribute of ONU remote debug (class 158).
    virtual int sendRemoteDebugCommand(const unsigned char* command) = 0;
    /// The six values of TWDM system profile (class 65401), after a Set that changed one. Times in milliseconds.
    virtual int applyTwdmSystemProfile(TwdmSystemProfile profile) = 0;
    /// @{

    /// One value of TWDM system profile (class 65401), as it is set. Times in milliseconds.
    virtual int setTwdmChannelPartitionIndex(unsigned short instance, unsigned char value) = 0;
    virtual int setTwdmChannelPartitionWaiverTimer(unsigned short instance, unsigned int value) = 0;
    virtual int setTwdmDownstreamTuningTimer(unsigned short instance, unsigned int value) = 0;
    virtual int setTwdmLodsProtectionTimer(unsigned short instance, unsigned int value) = 0;
    virtual int setTwdmLodsReinitializationTimer(unsigned short instance, unsigned int value) = 0;
    virtual int setTwdmUpstreamTuningTimer(unsigned short instance, unsigned int value) = 0;
    /// @}
    /// Packed values of VoIP config data (class 138), in memory order.
    virtual int applyVoipConfig(unsigned short instance, unsigned int word1, unsigned int word2) = 0;
    virtual int reserved72() = 0;  ///< never called
    /// The OLT has synchronized the time (G.988 9.1.1): intervals of performance monitoring begin again.
    virtual int synchronizeTime() = 0;
    /// Starts a self-test of ANI-G (G.988 9.2.1, class 263); its outcome goes to the OLT as a test result with this
    /// transaction id.
    virtual int testAni(unsigned short transactionId) = 0;
    /// The same for ONU-G (class 256).
    virtual int testOnu(unsigned short transactionId) = 0;
    virtual int reserved76() = 0;  ///< never called
    virtual int reserved77() = 0;  ///< never called
    virtual int reserved78() = 0;  ///< never called
    virtual int reserved79() = 0;  ///< never called
    /// 3 a MIB upload was accepted, 4 its last frame was asked for.
    virtual int notifyMibUploadState(unsigned char state) = 0;
    /// 0 committed, 1 failed, 2 transfer begun, 3 transfer ended well.
    virtual int notifySoftwareDownloadStatus(unsigned char status) = 0;
    /// The logical port number, 0 to 4; above 4 is failure. `*bridgeServiceProfile` takes the MAC bridge service
    /// profile.
    virtual unsigned char resolveDot1agLayer2Entity(unsigned short layer2EntityPointer, unsigned char layer2Type,
                                                    unsigned short* bridgeServiceProfile) = 0;
    /// The three fields of the OLT's time of day information, each in the byte order of the wire.
    virtual int setOltTimeOfDay(unsigned int superFrameCounter, unsigned long long seconds,
                                unsigned int nanoseconds) = 0;
    /// OLT-G has stored a new vendor id.
    virtual int notifyOltVendorId() = 0;
    /// The time of day of ONT system (class 65300), local, if time_t holds it. `time` is good during the call only.
    virtual int setOntTimeOfDay(const time_t* time) = 0;
};

#endif
