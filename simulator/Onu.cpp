#include "Onu.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include "MibAccess.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeFactory.h"
#include "OnuInstances.h"
#include "host/HostMib.h"

namespace {
constexpr unsigned short kClassSoftwareImage = 7;
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

MacAddress macAddressOf(const Board& board)
{
    return board.macAddress ? parseMacAddress(*board.macAddress).value_or(kDefaultMacAddress) : kDefaultMacAddress;
}
}  // namespace

Onu::Onu(Setup setup, HardwareRecorder& recorder, omci::Notifier::Sink sink)
    : m_Setup(std::move(setup)), m_Hal(macAddressOf(m_Setup.board)), m_Hardware(recorder),
      m_Notifier(std::move(sink), makeMic(m_Setup.mic)), m_Dispatcher(makeMic(m_Setup.mic), &m_Notifier)
{
    m_Hardware.onAttributeValueChange([this](OmciMessage& message) { m_Notifier.sendAttributeValueChange(&message); });
    HALFactory::getInstance()->setHal(&m_Hal);
}

Onu::~Onu()
{
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
}

void Onu::restart()
{
    tearDown();
    m_Statics.restore();
    m_Dispatcher.forgetRequests();
    m_Notifier.setMibKnown(false);
    m_Notifier.restartAlarmSequence();
    start();
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
