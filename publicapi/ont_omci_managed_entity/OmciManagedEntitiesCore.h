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
    using AttributeValues = DefaultConfigManagedEntity::AttributeValues;

    OmciManagedEntitiesCore();
    /// `factoryFile`: path of the INI file with the key "partNo".
    explicit OmciManagedEntitiesCore(std::string factoryFile);
    /// Writes the board's counts into the start-up table first.
    explicit OmciManagedEntitiesCore(BoardSpecificConfig config);
    virtual ~OmciManagedEntitiesCore();

    virtual void setBootInfoConfigurationFile(std::string file);
    virtual void setFactoryConfigurationFile(std::string file);
    virtual void setSoftwareVersionConfigurationFile(std::string file);

    /// @name Start-up
    /// @{
    void init(const std::string& factoryFile);
    /// Adds one class and instance with the table's values to the registrar's picture; -1 when the table has no such
    /// class. `record` is empty afterwards.
    int getDefaultConfigManagedEntity(unsigned short classId, unsigned short instance,
                                      StartupConfigManagedEntity& record);
    void getManagedEntitiesCore(std::vector<StartupConfigManagedEntity>& managedEntities) const;
    /// The number of rows of the start-up table.
    int getDefaultConfigManagedEntitySize();
    void buildAttributeValueMap(DefaultConfigManagedEntity row, unsigned short instance,
                                std::map<unsigned int, std::vector<unsigned char>>& values);
    void clearOmciManagedEntitiesAndInstances(StartupConfigManagedEntity& record);
    /// Writes the instance count of every row of the class; yields the class id.
    unsigned short findAndUpdate(unsigned short classId, unsigned char count);
    void updateOnuG_PartNumber();
    /// @}

    /// @name Board and factory parameters
    /// @{
    void updatingBoardParams(BoardSpecificConfig config);
    /// `serialNumber`: up to 16 hexadecimal digits; `version`: text; `macAddress`: 6 raw bytes.
    int updateBoardSpecificParameters(char* serialNumber, char* version, char* macAddress);
    static bool isCodePoint49ReportingRequired();
    /// Adds `increment` to the last three bytes of a MAC address in text; yields the 6 raw bytes.
    std::string incrementMacAddress(std::string mac, std::string scratch, int increment);
    int updateOnuGME();
    int updateOnu2GME();
    int updateIpHostConfigDataMEs();
    /// @}

    /// @name Software images
    /// @{
    int updateSoftwareImageMEs();
    int buildCommitCommands(std::string& first, std::string& second);
    static void updateSoftwareImage(unsigned char index, AttributeValues& values, const std::string& factoryFile);
    /// @}

    /// @name Status reports
    /// @{
    /// `speed` in Mbit/s; `mode` 0 half duplex, 1 full duplex.
    int updatePptpEthernetUniMEOperStateSpeedMode(unsigned short instance, unsigned char operationalState,
                                                  unsigned short speed, unsigned char mode);
    int updatePptpEthernetUniMESensedTypeAndMaxFrameSize(unsigned short instance, unsigned char type,
                                                         unsigned short maxFrameSize);
    int updateVoipLineStatus(unsigned short instance, VoipLineStatusData data);
    int updatePptpPotsUniAttributes(unsigned short instance, pptpPotsUniGetAttr attributes);
    int updatePptpPotsUniCallAttributes(unsigned short instance, pptpPotsUniGetAttr attributes);
    int updateVoipConfigData(unsigned short instance, VoipConfigDataAttr attributes);
    int updateFlexibleConfigurationStatusPortalOperState(unsigned short instance, unsigned char state);
    int updateTWDMUpstreamWaveLength(unsigned char channel);
    int updateTWDMDownstreamWaveLength(unsigned char channel);
    int updateTwdmChannel(unsigned short instance, TwdmChannel channel);
    /// Dotted addresses; an empty text leaves its attribute alone.
    int updateIpHostConfigDataMEs_CurrentIpAddress(std::string address, std::string netmask, std::string gateway) const;
    void swapSubtendedHostInstanceId(bool connected);
    /// Levels in the units of ANI-G: 0.002 dB, two's complement.
    int updateAniGOpticalSignalLevel(unsigned short instance, unsigned short level);
    int updateAniGTransmitOpticalLevel(unsigned short instance, unsigned short level);
    /// @}

    /// @name Counter feeds
    /// @{
    int updateEthernetFrameExtendedPM(unsigned short classId, unsigned short instance,
                                      EthernetFrameExtendedCounters first, EthernetFrameExtendedCounters second);
    int updateEthernetFramePM(unsigned short classId, unsigned short uniInstance,
                              EthernetFrameExtendedCounters upstream, EthernetFrameExtendedCounters downstream);
    int updateEthernetFramePMMangedEntity(unsigned short classId, unsigned short instance,
                                          EthernetFrameExtendedCounters counters);
    int updateVeipExtendedPM(unsigned short classId, unsigned short instance, EthernetFrameExtendedCounters first,
                             EthernetFrameExtendedCounters second);
    /// Saturates at 0xFFFFFFFF.
    unsigned int castToCounter32(unsigned long long value) const;
    int updateGemPortNetworkCtpPM(unsigned short instance, unsigned short portId, GemPortCounters counters);
    int updateGalEthPmHistData(unsigned short instance, GalEthPMHistData data);
    /// Feeds FEC PM history data (class 312).
    int updateTwdmFecStats(unsigned short instance, TwdmFecCounters counters);
    int updateTwdmOmciStats(unsigned short instance, TwdmOmciCounters counters);
    int updateTwdmPhyLodsStats(unsigned short instance, TwdmPhyLodsCounters counters);
    int updateTwdmPloamStats(unsigned short instance, TwdmPloamCounters counters);
    int updateTwdmTuningStats(unsigned short instance, TwdmTuningCounters counters);
    int updateTwdmXgemStats(unsigned short instance, TwdmXgemCounters counters);
    /// @}

    /// @name Instance ids of the start-up table, by index
    /// @{
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

    static std::string m_FactoryConfigurationFile;
    static std::string m_BootInfoConfigurationFile;  ///< stored for the host; the library never reads it
    static std::string m_AppInfoConfigurationFile;   ///< software image descriptions
    static bool m_IsNrvkOltConnected;

    /// The start-up table. Counts and texts are edited in place and stay edited for the life of the process.
    static DefaultConfigManagedEntity defaultConfigManagedEntity[88];

    /// @name Board counts, one byte each; totals wrap
    /// @{
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
    std::vector<StartupConfigManagedEntity> m_ManagedEntities;
};

#endif
