#ifndef SIMULATOR_HARDWARE_SIMULATED_HARDWARE_H
#define SIMULATOR_HARDWARE_SIMULATED_HARDWARE_H

#include <chrono>
#include <ctime>
#include <functional>
#include <mutex>
#include <optional>

#include "OmciHardwareIfc.h"
#include "OmciManagedEntitiesCore.h"
#include "OnuClock.h"
#include "hardware/CounterReports.h"
#include "hardware/HardwareCall.h"
#include "hardware/HardwareSettings.h"
#include "hardware/HardwareWork.h"
#include "hardware/IpHosts.h"
#include "hardware/Optics.h"
#include "hardware/PhoneLines.h"
#include "pm/PmSources.h"
#include "services/ServiceModel.h"

class PerformanceMonitoring;

/// The hardware layer of the simulated ONU. Writes each call down, answers refreshes through the library's update
/// entries within the call, and finds what it needs of the MIB by itself.
///
/// Calls come on the library's thread; notifySoftwareDownloadStatus on the image writer's and timers' threads too.
/// A delay (HardwareSettings) holds up what the library pushes and waits for nobody's sake: provisioning, removal,
/// settings and self-tests are read from the MIB during the call and take effect later, in the order of the calls. What
/// the library or the OLT counts on afterwards is done when the call returns: reads and refreshes, the clock, counters
/// that begin or are cleared, debug commands, messages to the OLT.
class SimulatedHardware : public OmciHardwareIfc
{
public:
    /// The clock is not owned. `timeScale`: how many times faster than the clock the optical module ages.
    SimulatedHardware(HardwareRecorder& recorder, OnuClock& clock, double timeScale)
        : m_Recorder(recorder), m_Clock(clock), m_TimeScale(timeScale), m_Work(recorder)
    {}

    /// Where reports go; null: nowhere (the library is not up). Not owned.
    void setCore(OmciManagedEntitiesCore* core) { m_Core = core; }
    /// Takes what the library asks to be sent to the OLT.
    void onAttributeValueChange(std::function<void(OmciMessage&)> sink) { m_AttributeValueChange = std::move(sink); }

    /// What counts; null: told counters are answered as they are. Not owned.
    void setPerformanceMonitoring(PerformanceMonitoring* counting) { m_PerformanceMonitoring = counting; }
    /// Counters that a source was told; nothing when it never was.
    std::optional<counters::Values> toldCountersOf(const PmSource& source) const;

    /// Takes the contents of a test result message, which goes out after the reply to the test.
    using TestResultSink = std::function<void(const unsigned char* contents, std::size_t length)>;
    /// Called when a test begins: yields where its result goes.
    using TestSink = std::function<TestResultSink(unsigned short transactionId, unsigned short classId)>;
    void onTest(TestSink sink) { m_Test = std::move(sink); }
    /// Yields the time of the synchronize time request that is under way; nothing when it holds no date.
    void setTimeOfDaySource(std::function<std::optional<std::time_t>()> source) { m_TimeOfDay = std::move(source); }

    /// Answers a command of the remote debug entity with lines of text.
    void setDebugService(std::function<std::string(const std::string&)> service)
    {
        m_DebugService = std::move(service);
    }

    /// Changes what is answered from now on (see HardwareSettings::apply). A link that changes is reported to the
    /// library.
    void change(const Json& request);
    /// The link of an Ethernet port is now like this: remembers and reports it. The result of the report.
    int reportLink(unsigned short instance, const HardwareSettings::Uni& uni);
    /// What was reported through an update entry is what this hardware measured: later refreshes report it again.
    void remember(const std::string& entry, const Json& arguments);
    /// What is still to be done for earlier calls.
    HardwareWork& work() { return m_Work; }
    /// What the data path serves.
    const ServiceModel& services() const { return m_Services; }
    /// What it answers, as it is now.
    HardwareSettings settings() const;
    /// The phone lines and the IP hosts, as the library has had them provisioned.
    Json describeLines() const;
    Json describeIpHosts() const { return m_IpHosts.describe(); }
    /// Serves nothing any more, data path and voice, as at a restart.
    void forgetServices();

    int resetDataPathConfiguration() override;
    int clearEthernetFrameExtendedPmCounters(unsigned short instance, unsigned int statsAction) override;
    int reserved05() override;
    int refreshGemPortCounters(unsigned short classId, unsigned short portId, unsigned int statsAction) override;
    int resetFecCounters(unsigned short classId, unsigned int mode) override;
    int refreshFecCounters(unsigned short instance, unsigned int statsAction) override;
    int findMacBridgePortByTp(unsigned char kind, unsigned short instance,
                              OmciMeMacBridgePortConfigurationDataIf** port) override;
    int reserved10() override;
    int refreshAniOpticalSignalLevel(unsigned short instance) override;
    std::vector<unsigned char> getRemoteDebugReply() override;
    int refreshAniTransmitOpticalLevel(unsigned short instance) override;
    int refreshTwdmChannel(EnumOmciAction action, unsigned short instance) override;
    int reserved15() override;
    int refreshTwdmOmciPm(EnumOmciAction action, unsigned short instance) override;
    int refreshTwdmPhyLodsPm(EnumOmciAction action, unsigned short instance) override;
    int refreshGalEthernetPm(EnumOmciAction action, unsigned short instance) override;
    int refreshTwdmPloamPm(EnumOmciAction action, unsigned short instance) override;
    int refreshTwdmTuningPm(EnumOmciAction action, unsigned short instance) override;
    int refreshTwdmXgemPm(EnumOmciAction action, unsigned short instance) override;
    int getStatusPortalMessage(EnumOmciAction action, unsigned short instance, unsigned char* buffer) override;
    int refreshEthernetFrameCounters(unsigned short classId, unsigned short instance, unsigned int statsAction,
                                     unsigned short parentClass, unsigned short parentInstance) override;
    int refreshEthernetFrameCounters64(unsigned short classId, unsigned short instance, unsigned int statsAction,
                                       unsigned short parentClass, unsigned short parentInstance) override;
    int refreshVoipLineStatus(EnumOmciAction action, unsigned short instance) override;
    bool endSoftwareImageDownload(unsigned char* imageStorage) override;
    int removeUniService(OmciMePptpEthernetUniIf* uni) override;
    int reserved28() override;
    int removeGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp) override;
    int removeMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp) override;
    int removeTCont(OmciMeTContIf* tCont) override;
    int removeBridgePortService(unsigned short instance) override;
    int removeMapperInterworkingTps(OmciMeMapperServiceProfile802_1PIf* mapper,
                                    unsigned short defaultTpPointer) override;
    int removeVeip(OmciMeVirtualEthernetInterfacePointIf* veip) override;
    int removeVoipMediaProfile(OmciMeVoipMediaProfileIf* profile) override;
    int removeSipUser(OmciMeSipUserDataIf* user) override;
    int removeSipAgent(OmciMeSipAgentConfigDataIf* agent) override;
    int provisionGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp) override;
    int provisionMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp) override;
    int provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf* port) override;
    int provisionMapper(OmciMeMapperServiceProfile802_1PIf* mapper) override;
    int provisionVeip(OmciMeVirtualEthernetInterfacePointIf* veip) override;
    int provisionUniService(OmciMePptpEthernetUniIf* uni) override;
    int reserved44() override;
    int provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf* voiceCtp) override;
    int provisionSipAgent(OmciMeSipAgentConfigDataIf* agent) override;
    int sendAttributeValueChange(OmciMessage* message) override;
    unsigned int provisionEvcAndEvcMap(const std::string& evcName, unsigned short evcVlan,
                                       const std::string& evcMapName, unsigned short matchVlan, unsigned char priority,
                                       bool noTagRemoved, bool request) override;
    int setBatteryBackup(unsigned char value) override;
    int reserved50() override;
    int setUniAutodetection(unsigned short instance, unsigned char value) override;
    int setGemPortAdminState(unsigned short instance, unsigned short portId, unsigned char state) override;
    int setUniAdminState(unsigned short instance, unsigned char state) override;
    unsigned char getUniOperationalState(EnumOmciAction action, unsigned short instance) override;
    unsigned int getUniLinkSpeed(EnumOmciAction action, unsigned short instance) override;
    unsigned char getUniDuplex(EnumOmciAction action, unsigned short instance) override;
    int setVideoAdminState(unsigned short instance, unsigned char state) override;
    int applyPotsUni(unsigned short instance, unsigned int word, unsigned char txGain) override;
    int reserved59() override;
    int refreshPotsUni(EnumOmciAction action, unsigned short instance) override;
    int createPmInstance(unsigned short classId, unsigned short instance) override;
    int deletePmInstance(unsigned short classId, unsigned short instance) override;
    int sendRemoteDebugCommand(const unsigned char* command) override;
    int applyTwdmSystemProfile(TwdmSystemProfile profile) override;
    int setTwdmChannelPartitionIndex(unsigned short instance, unsigned char value) override;
    int setTwdmChannelPartitionWaiverTimer(unsigned short instance, unsigned int value) override;
    int setTwdmDownstreamTuningTimer(unsigned short instance, unsigned int value) override;
    int setTwdmLodsProtectionTimer(unsigned short instance, unsigned int value) override;
    int setTwdmLodsReinitializationTimer(unsigned short instance, unsigned int value) override;
    int setTwdmUpstreamTuningTimer(unsigned short instance, unsigned int value) override;
    int applyVoipConfig(unsigned short instance, unsigned int word1, unsigned int word2) override;
    int reserved72() override;
    int synchronizeTime() override;
    int testAni(unsigned short transactionId) override;
    int testOnu(unsigned short transactionId) override;
    int reserved76() override;
    int reserved77() override;
    int reserved78() override;
    int reserved79() override;
    int notifyMibUploadState(unsigned char state) override;
    int notifySoftwareDownloadStatus(unsigned char status) override;
    unsigned char resolveDot1agLayer2Entity(unsigned short layer2EntityPointer, unsigned char layer2Type,
                                            unsigned short* bridgeServiceProfile) override;
    int setOltTimeOfDay(unsigned int superFrameCounter, unsigned long long seconds, unsigned int nanoseconds) override;
    int notifyOltVendorId() override;
    int setOntTimeOfDay(const time_t* time) override;

private:
    HardwareCall call(const char* operation, std::initializer_list<Json> arguments);
    /// What the hardware has to do for a call that does not wait for it. Without an action: nothing that shows.
    void workLater(
        const HardwareCall& call, HardwareWork::Action action = [] {});
    /// What the data path, or the voice stack, was told up to this call.
    void serveServices(const HardwareCall& call);
    void serveLines(const HardwareCall& call);
    int reserved(const char* operation);
    /// Where a refresh is to be answered: null when it is not.
    OmciManagedEntitiesCore* reportee() const;
    /// The known counters of a class; null when nothing was ever told.
    Json counters(unsigned short classId, unsigned short instance) const;
    void rememberLevels(const std::string& entry, const Json& arguments);
    /// How old the optical module is in its own, scaled time.
    std::chrono::seconds opticalAge() const;
    optics::Levels opticalLevels(unsigned short instance) const;
    void measureAni(const TestResultSink& sink) const;
    void rememberLine(const std::string& entry, const Json& arguments);
    void changePhones(const Json& request);
    /// Counters of the class and instance were told.
    void announceCounters(unsigned short classId, unsigned short instance);
    void announceCounters(const Json& request);
    std::optional<counters::Values> measured(unsigned short classId, unsigned short instance, omci::PmView view) const;
    template <typename Record>
    Record counterRecord(unsigned short classId, unsigned short instance, omci::PmView view) const;
    FrameCounters frameRecords(unsigned short classId, unsigned short instance, omci::PmView view) const;

    HardwareRecorder& m_Recorder;
    OnuClock& m_Clock;
    double m_TimeScale;
    HardwareWork m_Work;
    OmciManagedEntitiesCore* m_Core = nullptr;
    PerformanceMonitoring* m_PerformanceMonitoring = nullptr;
    std::function<void(OmciMessage&)> m_AttributeValueChange;
    ServiceModel m_Services;
    TestSink m_Test;
    std::function<std::string(const std::string&)> m_DebugService;
    std::vector<unsigned char> m_DebugReply;
    std::function<std::optional<std::time_t>()> m_TimeOfDay;
    mutable std::mutex m_Mutex;
    HardwareSettings m_Settings;
    PhoneLines m_PhoneLines;
    IpHosts m_IpHosts;
};

#endif
