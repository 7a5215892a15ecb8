#ifndef ONT_OMCI_MANAGED_ENTITY_OMCI_MANAGED_ENTITIES_CORE_H
#define ONT_OMCI_MANAGED_ENTITY_OMCI_MANAGED_ENTITIES_CORE_H

#include <map>
#include <string>
#include <vector>

#include "BoardSpecificConfig.h"
#include "CounterRecords.h"
#include "DefaultConfigManagedEntity.h"
#include "Export.h"
#include "StartupConfigManagedEntity.h"
#include "StatusRecords.h"

/// The board's abstraction object (an NrvkHal), as HALFactory made it at the last construction of
/// OmciManagedEntitiesCore.
extern NRVK_EXPORT void* nrvkHalPtr;

/// Builds the start-up MIB, and is the facade through which the host's managers report status and counters.
///
/// Constructing one expands the start-up table into records. Update entries write the registrar's picture and the live
/// instance; values are in host byte order. `int` results are 0 for success and -1 for failure; unless told otherwise
/// they are 0.
class NRVK_EXPORT OmciManagedEntitiesCore
{
public:
    /// The texts of one row of the start-up table.
    using AttributeValues = DefaultConfigManagedEntity::AttributeValues;

    /// Expands the start-up table as it stands.
    OmciManagedEntitiesCore();
    /// `factoryFile`: path of the INI file with the key "partNo".
    explicit OmciManagedEntitiesCore(std::string factoryFile);
    /// Writes the board's counts into the start-up table first.
    explicit OmciManagedEntitiesCore(BoardSpecificConfig config);
    struct WithoutRecords
    {};
    /// Does all that construction does and keeps no records: for reaching the update entries for a moment.
    /// getManagedEntitiesCore then gives none.
    explicit OmciManagedEntitiesCore(WithoutRecords);
    virtual ~OmciManagedEntitiesCore();

    /// Path of the boot side's file, kept for the host.
    virtual void setBootInfoConfigurationFile(std::string file);
    /// Path of the factory file, an INI file with the key "partNo".
    virtual void setFactoryConfigurationFile(std::string file);
    /// Path of the image description file, an INI file with the keys APP1_COMMIT, APP2_COMMIT ...
    virtual void setSoftwareVersionConfigurationFile(std::string file);

    /// @name Start-up
    /// @{

    /// What the constructors do: makes the board's abstraction object and expands the table. An empty `factoryFile`
    /// leaves the path that was set before.
    void init(const std::string& factoryFile);
    /// Adds one class and instance with the table's values to the registrar's picture; -1 when the table has no such
    /// class. `record` is empty afterwards.
    int getDefaultConfigManagedEntity(unsigned short classId, unsigned short instance,
                                      StartupConfigManagedEntity& record);
    /// Copies the expanded records out, for OmciManagedEntityRegistrar::setSupportedManagedEntities.
    void getManagedEntitiesCore(std::vector<StartupConfigManagedEntity>& managedEntities) const;
    /// The number of rows of the start-up table.
    int getDefaultConfigManagedEntitySize();
    /// Adds the values of one instance, made of the row's texts, under the keys of
    /// StartupConfigManagedEntity::attributeValues.
    void buildAttributeValueMap(DefaultConfigManagedEntity row, unsigned short instance,
                                std::map<unsigned int, std::vector<unsigned char>>& values);
    /// Empties the record.
    void clearOmciManagedEntitiesAndInstances(StartupConfigManagedEntity& record);
    /// Writes the instance count of every row of the class; yields the class id.
    unsigned short findAndUpdate(unsigned short classId, unsigned char count);
    /// Does nothing; the part number reaches ONU-G by updateOnuGME.
    void updateOnuG_PartNumber();
    /// @}

    /// @name Board and factory parameters
    /// @{

    /// Writes the board's counts, and the instance counts that follow from them, into the start-up table.
    void updatingBoardParams(BoardSpecificConfig config);
    /// `serialNumber`: up to 16 hexadecimal digits; `version`: text; `macAddress`: 6 raw bytes.
    int updateBoardSpecificParameters(char* serialNumber, char* version, char* macAddress);
    /// Whether the part number of ONU-G is that of a board whose Ethernet ports report plug-in unit type 49.
    static bool isCodePoint49ReportingRequired();
    /// Adds `increment` to the last three bytes of a MAC address in text; yields the 6 raw bytes.
    std::string incrementMacAddress(std::string mac, std::string scratch, int increment);
    /// Writes the factory file's part number into ONU-G (G.988 9.1.1, class 256). -1 without the file.
    int updateOnuGME();
    /// Writes equipment id and hardware version into ONU2-G (G.988 9.1.2, class 257).
    int updateOnu2GME();
    /// Writes the MAC addresses of the board's abstraction object into the IP hosts (G.988 9.4.1, class 134). Without
    /// the object only a log line.
    int updateIpHostConfigDataMEs();
    /// @}

    /// @name Software images
    /// @{

    /// Writes version, committed, active and valid of both images (G.988 9.1.4, class 7) from the image description
    /// file. Resets the boot count by a shell command when both run as they were committed. -1 without the file, or
    /// when the last image could not be updated.
    int updateSoftwareImageMEs();
    /// The two shell commands that commit the image which is not committed now; nothing is run. -1 without the image
    /// description file.
    int buildCommitCommands(std::string& first, std::string& second);
    /// Edits one image's texts from the image description file.
    static void updateSoftwareImage(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    /// @}

    /// @name Status reports
    /// @{

    /// Link of an Ethernet port (G.988 9.5.1, class 11): `operationalState` 0 enabled, 1 disabled; `speed` in Mbit/s;
    /// `mode` 0 half duplex, 1 full duplex.
    int updatePptpEthernetUniMEOperStateSpeedMode(unsigned short instance, unsigned char operationalState,
                                                  unsigned short speed, unsigned char mode);
    /// What is plugged into an Ethernet port: `type` is a G.988 plug-in unit type, `maxFrameSize` counts octets.
    /// Circuit pack and cardholder of the first slot take the type too.
    int updatePptpEthernetUniMESensedTypeAndMaxFrameSize(unsigned short instance, unsigned char type,
                                                         unsigned short maxFrameSize);
    /// VoIP line status (G.988 9.9.11, class 141).
    int updateVoipLineStatus(unsigned short instance, VoipLineStatusData data);
    /// PPTP POTS UNI (G.988 9.9.1, class 53), without its call attributes. Always 0.
    int updatePptpPotsUniAttributes(unsigned short instance, pptpPotsUniGetAttr attributes);
    /// Operational state and hook state of PPTP POTS UNI; nothing else of `attributes` is read. Always 0.
    int updatePptpPotsUniCallAttributes(unsigned short instance, pptpPotsUniGetAttr attributes);
    /// VoIP config data (G.988 9.9.18, class 138). Always 0.
    int updateVoipConfigData(unsigned short instance, VoipConfigDataAttr attributes);
    /// Operational state of a flexible configuration status portal: 0 enabled, 1 disabled.
    int updateFlexibleConfigurationStatusPortalOperState(unsigned short instance, unsigned char state);
    /// The upstream wavelength channel in use, from 0, of TWDM channel (class 65402).
    int updateTWDMUpstreamWaveLength(unsigned char channel);
    /// The downstream wavelength channel in use, from 0: its TWDM channel (class 65402) becomes active and operational,
    /// the others stop to be operational.
    int updateTWDMDownstreamWaveLength(unsigned char channel);
    /// All that is reported of one TWDM channel (class 65402).
    int updateTwdmChannel(unsigned short instance, TwdmChannel channel);
    /// Current addresses of the first IP host (G.988 9.4.1, class 134), dotted; an empty text leaves its attribute
    /// alone.
    int updateIpHostConfigDataMEs_CurrentIpAddress(std::string address, std::string netmask, std::string gateway) const;
    /// With true IP hosts 0 and 1 become 515 and 514; then all get their MAC addresses. Holds the registrar's mutex.
    void swapSubtendedHostInstanceId(bool connected);
    /// Received optical level of ANI-G (G.988 9.2.1, class 263), in steps of 0.002 dB around 0 dBm, two's complement.
    int updateAniGOpticalSignalLevel(unsigned short instance, unsigned short level);
    /// Transmitted optical level of ANI-G, in the same unit.
    int updateAniGTransmitOpticalLevel(unsigned short instance, unsigned short level);
    /// @}

    /// @name Counter feeds
    /// @{

    /// Feeds an Ethernet frame PM class: 0, 24, 321 or 322 as updateEthernetFramePM does with `instance` as the UNI;
    /// 334 and 425 with `first` for the instance that has the top bit set and `second` for the one without, whichever
    /// of the two is named.
    int updateEthernetFrameExtendedPM(unsigned short classId, unsigned short instance,
                                      EthernetFrameExtendedCounters first, EthernetFrameExtendedCounters second);
    /// Feeds Ethernet frame PM upstream and downstream (G.988 9.3.30 and 9.3.31, classes 322 and 321) of the first
    /// bridge port on the UNI. Always 0.
    int updateEthernetFramePM(unsigned short classId, unsigned short uniInstance,
                              EthernetFrameExtendedCounters upstream, EthernetFrameExtendedCounters downstream);
    /// Feeds one instance of class 321 or 322. Always 0.
    int updateEthernetFramePMMangedEntity(unsigned short classId, unsigned short instance,
                                          EthernetFrameExtendedCounters counters);
    /// Feeds class 425 (G.988 9.3.34) as updateEthernetFrameExtendedPM does; ignores other classes. Always 0.
    int updateVeipExtendedPM(unsigned short classId, unsigned short instance, EthernetFrameExtendedCounters first,
                             EthernetFrameExtendedCounters second);
    /// Saturates at 0xFFFFFFFF.
    unsigned int castToCounter32(unsigned long long value) const;
    /// Feeds GEM port PM (G.988 9.2.13, class 341, or class 267 where there is none) of the GEM port CTP with this port
    /// id. `instance` is only logged.
    int updateGemPortNetworkCtpPM(unsigned short instance, unsigned short portId, GemPortCounters counters);
    /// Feeds GAL Ethernet PM history data (G.988 9.2.8, class 276).
    int updateGalEthPmHistData(unsigned short instance, GalEthPMHistData data);
    /// Feeds FEC PM history data (class 312).
    int updateTwdmFecStats(unsigned short instance, TwdmFecCounters counters);
    /// Feeds class 65414.
    int updateTwdmOmciStats(unsigned short instance, TwdmOmciCounters counters);
    /// Feeds class 65406.
    int updateTwdmPhyLodsStats(unsigned short instance, TwdmPhyLodsCounters counters);
    /// Feeds classes 65408 to 65410.
    int updateTwdmPloamStats(unsigned short instance, TwdmPloamCounters counters);
    /// Feeds classes 65411 to 65413.
    int updateTwdmTuningStats(unsigned short instance, TwdmTuningCounters counters);
    /// Feeds class 65407.
    int updateTwdmXgemStats(unsigned short instance, TwdmXgemCounters counters);
    /// @}

    /// @name Instance ids of the start-up table, by index
    /// @{

    /// The instance id that the start-up table gives to the class's instance number `index`, from 0.
    static unsigned short instanceOltG(unsigned char index);
    static unsigned short instanceOntSystem(unsigned char index);
    static unsigned short instanceOntFeature(unsigned char index);
    static unsigned short instanceOnuG(unsigned char index);
    static unsigned short instanceOnu2G(unsigned char index);
    static unsigned short instanceOnuData(unsigned char index);
    static unsigned short instanceOnuRemoteDebug(unsigned char index);
    static unsigned short instanceEnhancedSecurityControl(unsigned char index);
    static unsigned short instancePowerShedding(unsigned char index);
    static unsigned short instanceOnuDynamicPowerManagement(unsigned char index);
    static unsigned short instanceIpHostConfigData(unsigned char index);
    static unsigned short instanceVoipConfigData(unsigned char index);
    static unsigned short instanceSoftwareImage(unsigned char index);
    static unsigned short instanceTCont(unsigned char index);
    static unsigned short instanceCardHolder(unsigned char index);
    static unsigned short instanceCircuitPack(unsigned char index);
    static unsigned short instancePptpEthernet(unsigned char index);
    static unsigned short instanceUniG(unsigned char index);
    static unsigned short instanceVEIP(unsigned char index);
    static unsigned short instancePptpPotsUni(unsigned char index);
    static unsigned short instanceVoipLineStatus(unsigned char index);
    static unsigned short instanceAniG(unsigned char index);
    static unsigned short instancePptpVideo(unsigned char index);
    static unsigned short instancePptpVideoAni(unsigned char index);
    static unsigned short instanceTWDMChannel(unsigned char index);
    static unsigned short instanceTWDMSystemProfile(unsigned char index);
    static unsigned short instanceTrafficScheduler(unsigned char index);
    static unsigned short instancePriorityQueue(unsigned char index);
    static unsigned short instanceFlexibleConfigurationStatusPortal(unsigned char index);
    /// @}

    /// @name Edits of the start-up table's texts, by index
    /// @{

    /// Edits the row's texts for instance number `index`, from 0, before they become bytes; `factoryFile` may be empty.
    static void updateAniG(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateCardHolder(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateCircuitPack(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateOnuG(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateOnu2G(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updatePptpEthernet(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updatePriorityQueue(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateTrafficScheduler(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updateFlexibleConfigurationStatusPortal(unsigned char index, AttributeValues& values,
                                                        const std::string& factoryFile);
    static void updateVerizonOpenOmci(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updatePptpVideo(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    static void updatePptpVideoAni(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    /// @}

    static std::string m_FactoryConfigurationFile;   ///< part number; empty at first
    static std::string m_BootInfoConfigurationFile;  ///< stored for the host; the library never reads it
    static std::string m_AppInfoConfigurationFile;   ///< software image descriptions
    static bool m_IsNrvkOltConnected;                ///< as swapSubtendedHostInstanceId was told

    /// The start-up table. Counts and texts are edited in place and stay edited for the life of the process.
    static DefaultConfigManagedEntity defaultConfigManagedEntity[88];

    /// @name Board counts, one byte each; totals wrap
    /// @{

    /// As the board's BoardSpecificConfig says, or a product or sum of its counts.
    static unsigned char NUMBER_OF_T_CONT_SUPPORTED;
    static unsigned char NUMBER_OF_ETHERNET_UNI_SUPPORTED;
    static unsigned char NUMBER_OF_VIDEO_UNI_SUPPORTED;
    static unsigned char NUMBER_OF_VIDEO_ANI_SUPPORTED;
    static unsigned char NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT;
    static unsigned char NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI;
    static unsigned char NUMBER_OF_PPTP_POTS_UNI_SUPPORTED;
    static unsigned char TOTAL_UPSTREAM_PRIORITY_QUEUES;
    static unsigned char TOTAL_DOWNSTREAM_PRIORITY_QUEUES;
    static unsigned char TOTAL_NUMBER_OF_PRIORITY_QUEUES;
    static unsigned char TOTAL_UPSTREAM_TRAFFIC_SCHEDULER;
    /// @}

private:
    void setUp(const std::string& factoryFile);
    static void edit(DefaultConfigManagedEntity& row, unsigned char index);
    void expandIntoRecords();
    void passThrough();

    std::vector<StartupConfigManagedEntity> m_ManagedEntities;
};

#endif
