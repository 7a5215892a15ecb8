#include "Onu.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include "DebugService.h"
#include "Logger.h"
#include "MibAccess.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeFactory.h"
#include "OnuInstances.h"
#include "SoftwareDownloadAccess.h"
#include "TableRowsAccess.h"
#include "host/HostMib.h"
#include "host/LogSink.h"
#include "host/MessageLayout.h"
#include "host/TableRows.h"

namespace {
constexpr unsigned short kClassSoftwareImage = 7;
constexpr unsigned char kCritical = 2;
constexpr unsigned char kWarning = 4;
constexpr unsigned char kInformation = 6;
constexpr MacAddress kDefaultMacAddress = {0x02, 0x4E, 0x52, 0x00, 0x00, 0x01};

omci::Mic makeMic(const std::string& text)
{
    std::string problem;
    auto mic = omci::Mic::parse(text, problem);
    if (!mic) {
        throw std::invalid_argument("--mic " + text + ": " + problem);
    }
    return std::move(*mic);
}

OmciManagedEntityRegistrar& registrar()
{
    return *OmciManagedEntityRegistrar::getInstance();
}

void logLine(const char* function, unsigned int line, unsigned char level, const std::string& text)
{
    Logger::getInstance(omci::kHostLoggerId)
        ->writeToLog(0, function, "simulator/Onu.cpp", line, level, "%s", text.c_str());
}

std::optional<std::time_t> secondsOf(const omci::TimeRequest& request)
{
    std::tm time{};
    time.tm_year = request.year - 1900;
    time.tm_mon = request.month - 1;
    time.tm_mday = request.day;
    time.tm_hour = request.hour;
    time.tm_min = request.minute;
    time.tm_sec = request.second;
    const std::tm asked = time;
    const std::time_t seconds = timegm(&time);
    // What is out of range (a 31st of April, an hour 24) has moved on to another day or hour.
    const bool isDate = time.tm_year == asked.tm_year && time.tm_mon == asked.tm_mon && time.tm_mday == asked.tm_mday &&
                        time.tm_hour == asked.tm_hour && time.tm_min == asked.tm_min && time.tm_sec == asked.tm_sec;
    return isDate ? std::optional<std::time_t>(seconds) : std::nullopt;
}

MacAddress macAddressOf(const Board& board)
{
    return board.macAddress ? parseMacAddress(*board.macAddress).value_or(kDefaultMacAddress) : kDefaultMacAddress;
}
}  // namespace

Onu::Onu(Setup setup, HardwareRecorder& recorder, omci::Notifier::Sink sink)
    : m_Setup(std::move(setup)), m_Hal(macAddressOf(m_Setup.board)), m_Hardware(recorder, m_Clock, m_Setup.timeScale),
      m_Notifier(std::move(sink), makeMic(m_Setup.mic)), m_Dispatcher(makeMic(m_Setup.mic), &m_Notifier),
      m_PerformanceMonitoring(m_Setup.pmInterval, m_Setup.hasTraffic, surroundings())
{
    m_Hardware.setPerformanceMonitoring(&m_PerformanceMonitoring);
    if (m_Setup.baselineOnly) {
        m_Dispatcher.takeBaselineOnly();
    }
    connectHardwareToHost();
    HALFactory::getInstance()->setHal(&m_Hal);
}

void Onu::connectHardwareToHost()
{
    m_Hardware.onAttributeValueChange([this](OmciMessage& message) { m_Notifier.sendAttributeValueChange(&message); });
    m_Hardware.onTest([this](unsigned short transactionId, unsigned short classId) {
        const unsigned short instance = m_Dispatcher.request().getManagedEntityInstance();
        return [=](const unsigned char* contents, std::size_t length) {
            m_Notifier.sendTestResult(transactionId, classId, instance, contents, length);
        };
    });
    m_Hardware.setTimeOfDaySource([this] { return requestedTime(); });
    m_Hardware.setDebugService([this](const std::string& command) { return answerDebugCommand(*this, command); });
    omci::setTableRowSource(&nrvk::getTableRow);
}

std::optional<std::time_t> Onu::requestedTime() const
{
    const OmciFrame& request = m_Dispatcher.request();
    const auto time = omci::parseTimeRequest(
        omci::FrameView{{}, request.getMessageContent(), request.getMessageContentLength(), false});
    const auto seconds = time ? secondsOf(*time) : std::nullopt;
    if (seconds) {
        logLine("requestedTime", __LINE__, kInformation, "Clock set to " + utcText(*seconds));
    } else {
        logLine("requestedTime", __LINE__, kWarning, "The time to be set is no date and time; the clock stays");
    }
    return seconds;
}

PerformanceMonitoring::Surroundings Onu::surroundings()
{
    return {[this](const PmSource& source) { return m_Hardware.toldCountersOf(source); },
            [this](unsigned short uni) { return m_Hardware.settings().uni(uni).operationalState == 0; },
            [this](unsigned short classId, unsigned short instance, unsigned alarm, bool state) {
                return m_Notifier.raiseAlarm(classId, instance, alarm, state);
            }};
}

Onu::~Onu()
{
    endWriting();
    registrar().setOmciHardwareIfc(nullptr);
    HALFactory::getInstance()->setHal(nullptr);
}

void Onu::start()
{
    m_Core = std::make_unique<OmciManagedEntitiesCore>(m_Setup.board.counts);
    m_Hardware.setCore(m_Core.get());
    if (!m_Setup.board.factoryFile.empty()) {
        m_Core->setFactoryConfigurationFile(m_Setup.board.factoryFile);
    }
    std::vector<StartupConfigManagedEntity> managedEntities;
    m_Core->getManagedEntitiesCore(managedEntities);
    registrar().setOmciHardwareIfc(&m_Hardware);
    registrar().setSupportedManagedEntities(std::move(managedEntities));
    registrar().registerSupportedManagedEntities();

    omci::HostMib hostMib(registrar(), *m_Core);
    hostMib.registerRemainingClasses();
    hostMib.createEthernetUnis(m_Setup.board.counts.numberOfEthernetUnis);
    hostMib.createVideoUnis(m_Setup.board.counts.numberOfVideoUnis);
    hostMib.createVideoAnis(m_Setup.board.counts.numberOfVideoAnis);
    applyIdentity();
    if (m_Setup.fifoDepth) {
        OmciMeFactory::getInstance()
            ->getManagedEntity(kClassSoftwareImage)
            ->updateRxOmciFifoDepthInBytes(*m_Setup.fifoDepth);
    }
}

void Onu::applyIdentity()
{
    const Board& board = m_Setup.board;
    if (board.hasIdentity()) {
        std::string serialNumber = board.serialNumber.value_or("4E52564B00000001");
        std::string version = board.version.value_or("");
        MacAddress macAddress = macAddressOf(board);
        m_Core->updateBoardSpecificParameters(serialNumber.data(), version.data(),
                                              reinterpret_cast<char*>(macAddress.data()));
        m_Core->updateOnu2GME();
    }
    if (!board.factoryFile.empty()) {
        m_Core->updateOnuGME();
    }
    Identity identity = board.identity;
    if (m_Setup.baselineOnly && !identity.omccVersion) {
        identity.omccVersion = kBaselineOmccVersion;
    }
    writeIdentity(identity);
}

void Onu::restart()
{
    // While there is a library to report to.
    m_Hardware.work().finish();
    endWriting();
    tearDown();
    m_Statics.restore();
    m_BoardScripts.comeUp();
    m_BoardScripts.boot();
    m_Dispatcher.forgetRequests();
    m_Notifier.setMibKnown(false);
    m_Notifier.restartAlarmSequence();
    m_Clock.restart();
    m_PerformanceMonitoring.restart();
    start();
    logLine("restart", __LINE__, kCritical, "The ONU has restarted: the library's state is new, the machine runs on");
}

void Onu::endWriting()
{
    m_BoardScripts.goDown();
    nrvk::forgetSoftwareDownload();
}

void Onu::tearDown()
{
    // A board that goes down tells its hardware nothing.
    registrar().setOmciHardwareIfc(nullptr);
    m_Hardware.setCore(nullptr);
    m_Hardware.forgetServices();
    for (OmciMe* me : mib::registeredClasses()) {
        const unsigned short classId = me->getManagedEntityClassId();
        me->eraseAllManagedEntityInstances();
        for (const unsigned short instance : mib::instancesOf(*me)) {
            deleteInstanceOfOnu(classId, instance);
        }
        registrar().unregisterManagedEntity(classId);
        // Its timers end with it; the image writer is waited for.
        delete me;
    }
    OmciManagedEntityRegistrar::deleteInstance();
    m_Core.reset();
}

void Onu::connectHardware(bool isConnected)
{
    registrar().setOmciHardwareIfc(isConnected ? &m_Hardware : nullptr);
}

bool Onu::isHardwareConnected() const
{
    return registrar().getOmciHardwareIfc() != nullptr;
}
