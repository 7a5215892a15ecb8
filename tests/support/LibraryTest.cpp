#include "LibraryTest.h"

#include <algorithm>
#include <cstring>
#include <list>

#include "HALFactory.h"
#include "Logger.h"
#include "ManagedEntityClasses.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "sandbox/Sandbox.h"

namespace {

constexpr int kLibraryLoggerId = 150;

/// The statics of the core as the program started with them.
struct CoreStatics
{
    CoreStatics() { std::memcpy(table, OmciManagedEntitiesCore::defaultConfigManagedEntity, sizeof table); }

    void restore() const
    {
        using Core = OmciManagedEntitiesCore;
        std::memcpy(Core::defaultConfigManagedEntity, table, sizeof table);
        Core::m_FactoryConfigurationFile.clear();
        Core::m_BootInfoConfigurationFile.clear();
        Core::m_AppInfoConfigurationFile = "/opt/addons/etc/appinfo.ini";
        Core::m_IsNrvkOltConnected = false;
        Core::NUMBER_OF_T_CONT_SUPPORTED = 8;
        Core::NUMBER_OF_ETHERNET_UNI_SUPPORTED = 1;
        Core::NUMBER_OF_VIDEO_UNI_SUPPORTED = 1;
        Core::NUMBER_OF_VIDEO_ANI_SUPPORTED = 1;
        Core::NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT = 8;
        Core::NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI = 2;
        Core::NUMBER_OF_PPTP_POTS_UNI_SUPPORTED = 2;
        Core::TOTAL_UPSTREAM_PRIORITY_QUEUES = 0;
        Core::TOTAL_DOWNSTREAM_PRIORITY_QUEUES = 0;
        Core::TOTAL_NUMBER_OF_PRIORITY_QUEUES = 0;
        Core::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER = 0;
        nrvkHalPtr = nullptr;
    }

    decltype(OmciManagedEntitiesCore::defaultConfigManagedEntity) table;
};

const CoreStatics& coreStatics()
{
    static const CoreStatics statics;
    return statics;
}

/// All classes that the library knows.
const std::vector<unsigned short>& classIds()
{
    static const std::vector<unsigned short> ids = [] {
        std::vector<unsigned short> found;
        for (unsigned int id = 0; id <= 0xFFFF; ++id) {
            if (const OmciMe* me = nrvk::makeAdapter(static_cast<unsigned short>(id))) {
                found.push_back(static_cast<unsigned short>(id));
                OmciMeFactory::getInstance()->unregisterManagedEntity(found.back());
                delete me;
            }
        }
        return found;
    }();
    return ids;
}

/// The adapters of all classes, made where a test had none: instances are reached through them.
std::vector<OmciMe*> allAdapters()
{
    const OmciMeFactory* known = OmciMeFactory::getInstance();
    for (const unsigned short id : classIds()) {
        if (known->getManagedEntity(id) == nullptr) {
            nrvk::makeAdapter(id);
        }
    }
    std::vector<OmciMe*> adapters;
    OmciMeFactory* factory = OmciMeFactory::getInstance();
    for (OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
         me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
        adapters.push_back(me);
    }
    return adapters;
}

/// Deletes an instance whoever made it.
void deleteInstance(const OmciMe& me, unsigned short instance)
{
    me.deleteManagedEntityInstance(instance, true);
    OmciManagedEntityRegistrar::getInstance()->deleteManagedEntityInstance(me.getManagedEntityClassId(), instance);
}

void removeAdapter(unsigned short classId)
{
    OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    OmciMeFactory::getInstance()->unregisterManagedEntity(classId);
    delete me;
}

void deleteEverything()
{
    // Adapters that go ask the shell for clean-up; a test's handler may hold what has ended with the test.
    Sandbox::setCommandHandler({});
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(nullptr);
    const std::vector<OmciMe*> adapters = allAdapters();
    for (const OmciMe* me : adapters) {
        unsigned short instance = 0;
        for (int more = me->getFirstManagedEntityInstance(&instance); more == 0;
             more = me->getNextManagedEntityInstance(&instance)) {
            deleteInstance(*me, instance);
        }
    }
    for (OmciMe* me : adapters) {
        removeAdapter(me->getManagedEntityClassId());
    }
    OmciManagedEntityRegistrar::deleteInstance();
    coreStatics().restore();
    HALFactory::getInstance()->setHal(nullptr);
    Sandbox::reset();
}

void observe(const Logger::Line& line, void* context)
{
    static_cast<LogCapture*>(context)->add({line.level, line.function, line.file, line.line, line.text});
}

void registerMib(const OmciManagedEntitiesCore& core)
{
    std::vector<StartupConfigManagedEntity> managedEntities;
    core.getManagedEntitiesCore(managedEntities);
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    registrar->setSupportedManagedEntities(managedEntities);
    for (const StartupConfigManagedEntity& managedEntity : managedEntities) {
        removeAdapter(managedEntity.classId);  // the start puts a new one in its place
    }
    registrar->registerSupportedManagedEntities();
    Sandbox::clearCommands();  // what the start itself asked of the shell is no test's business
}

}  // namespace

LogCapture::LogCapture()
{
    Logger::getInstance(kLibraryLoggerId)->setLevel(0);  // captured, not printed
    Logger::getInstance(kLibraryLoggerId)->setObserver(observe, this);
}

LogCapture::~LogCapture()
{
    Logger::getInstance(kLibraryLoggerId)->setObserver(nullptr, nullptr);
}

void LogCapture::add(LogLine line)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Lines.push_back(std::move(line));
}

std::vector<LogLine> LogCapture::lines() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Lines;
}

std::vector<std::string> LogCapture::texts(unsigned char level) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    std::vector<std::string> texts;
    for (const LogLine& line : m_Lines) {
        if (line.level == level) {
            texts.push_back(line.text);
        }
    }
    return texts;
}

std::size_t LogCapture::count(unsigned char level, const std::string& text) const
{
    const std::vector<std::string> found = texts(level);
    return static_cast<std::size_t>(std::count(found.begin(), found.end(), text));
}

bool LogCapture::has(unsigned char level, const std::string& text) const
{
    return count(level, text) != 0;
}

void LogCapture::clear()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Lines.clear();
}

LibraryTest::LibraryTest()
{
    coreStatics();
    deleteEverything();
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(&hardware);
    log.clear();
}

LibraryTest::~LibraryTest()
{
    deleteEverything();
}

void LibraryTest::startUp()
{
    registerMib(OmciManagedEntitiesCore());
}

void LibraryTest::startUp(BoardSpecificConfig board)
{
    registerMib(OmciManagedEntitiesCore(board));
}

void LibraryTest::removeHardware()
{
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(nullptr);
}

OmciMe& LibraryTest::adapter(unsigned short classId)
{
    if (OmciMeFactory::getInstance()->getManagedEntity(classId) == nullptr) {
        EXPECT_EQ(OmciManagedEntityRegistrar::getInstance()->registerManagedEntity(classId), 0);
    }
    return *OmciMeFactory::getInstance()->getManagedEntity(classId);
}

int LibraryTest::create(unsigned short classId, unsigned short instance)
{
    return adapter(classId).createManagedEntityInstance(instance, true);
}

int LibraryTest::set(unsigned short classId, unsigned short instance, unsigned short mask,
                     std::vector<unsigned char> bytes)
{
    const attributeDefinition definition = definitionOf(classId, mask);
    // As hosts do: never less than the attribute, and eight bytes to spare.
    bytes.resize(std::max<std::size_t>(bytes.size(), definition.attributeSize + 8U));
    return adapter(classId).setAttribute(instance, &definition, bytes.data());
}

int LibraryTest::set(unsigned short classId, unsigned short instance, unsigned short mask, unsigned long long value)
{
    std::vector<unsigned char> bytes(definitionOf(classId, mask).attributeSize);
    for (std::size_t i = bytes.size(); i-- > 0; value >>= 8) {
        bytes[i] = static_cast<unsigned char>(value);
    }
    return set(classId, instance, mask, bytes);
}

std::vector<unsigned char> LibraryTest::get(unsigned short classId, unsigned short instance, unsigned short mask,
                                            EnumOmciAction action)
{
    const attributeDefinition definition = definitionOf(classId, mask);
    std::vector<unsigned char> bytes(definition.attributeSize + 8U);
    EXPECT_EQ(adapter(classId).getAttribute(instance, &definition, bytes.data(), action), 0);
    bytes.resize(definition.isTableAttribute != 0 ? 4 : definition.attributeSize);
    return bytes;
}

unsigned long long LibraryTest::getNumber(unsigned short classId, unsigned short instance, unsigned short mask,
                                          EnumOmciAction action)
{
    unsigned long long number = 0;
    for (const unsigned char byte : get(classId, instance, mask, action)) {
        number = (number << 8) | byte;
    }
    return number;
}

attributeDefinition LibraryTest::definitionOf(unsigned short classId, unsigned short mask)
{
    const OmciMe& me = adapter(classId);
    using ListOperation = int (OmciMe::*)(std::list<attributeDefinition>*) const;
    for (const ListOperation operation :
         {&OmciMe::getAttributesListForGet, &OmciMe::getAttributesListForSet, &OmciMe::getAttributesListForCreate,
          &OmciMe::getAttributesListForMibUpload}) {
        std::list<attributeDefinition> list;
        (me.*operation)(&list);
        for (const attributeDefinition& definition : list) {
            if (definition.attributeMask == mask) {
                return definition;
            }
        }
    }
    attributeDefinition unknown{};
    unknown.attributeMask = mask;
    return unknown;
}
