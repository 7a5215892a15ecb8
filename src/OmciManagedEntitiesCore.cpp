// Construction, and the expansion of the start-up table into the records that the registrar takes.
#include "OmciManagedEntitiesCore.h"

#include <cstdlib>
#include <utility>

#include "HALFactory.h"
#include "OmciManagedEntityRegistrar.h"
#include "StartupTable.h"
#include "impl/BigEndian.h"
#include "impl/Log.h"

void* nrvkHalPtr = nullptr;

std::string OmciManagedEntitiesCore::m_FactoryConfigurationFile;
std::string OmciManagedEntitiesCore::m_BootInfoConfigurationFile;
std::string OmciManagedEntitiesCore::m_AppInfoConfigurationFile = "/opt/addons/etc/appinfo.ini";
bool OmciManagedEntitiesCore::m_IsNrvkOltConnected = false;

namespace {

constexpr std::size_t kTextFieldBytes = sizeof(DefaultConfigManagedEntity::AttributeValues) / 16;
/// Octets take the field without its last byte, which keeps a text terminated.
constexpr std::size_t kOctetValueBytes = kTextFieldBytes - 1;

std::size_t numberBytes(EnumStartupValueKind kind)
{
    switch (kind) {
    case STARTUP_VALUE_1_BYTE:
        return 1;
    case STARTUP_VALUE_2_BYTES:
        return 2;
    case STARTUP_VALUE_4_BYTES:
        return 4;
    case STARTUP_VALUE_8_BYTES:
        return 8;
    default:
        return 0;
    }
}

/// atoi as it is: hexadecimal text gives 0, and a negative number is sign-extended.
unsigned long long numberOf(const unsigned char (&text)[kTextFieldBytes])
{
    // Nine in ten are a digit alone.
    if (text[0] >= '0' && text[0] <= '9' && text[1] == '\0') {
        return text[0] - static_cast<unsigned long long>('0');
    }
    return static_cast<unsigned long long>(std::atoi(reinterpret_cast<const char*>(text)));
}

/// The value's bytes in network order; empty for a kind that gives no entry.
std::vector<unsigned char> valueBytes(EnumStartupValueKind kind, const unsigned char (&text)[kTextFieldBytes])
{
    if (kind == STARTUP_VALUE_OCTETS) {
        return {text, text + kOctetValueBytes};
    }
    std::vector<unsigned char> bytes(numberBytes(kind));
    nrvk::writeBigEndian(bytes.data(), bytes.size(), numberOf(text));
    return bytes;
}

using AttributeValueMap = std::map<unsigned int, std::vector<unsigned char>>;

/// Entries that are there already stay as they are.
void buildAttributeValueMap(const DefaultConfigManagedEntity& row, unsigned short instance, AttributeValueMap& values)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu) to build", row.classId, instance);
    // The instance's entries follow each other in the map: found once, each goes in where the one before it went.
    const unsigned int instanceKey = static_cast<unsigned int>(instance) << 16;
    const auto behind = values.upper_bound(instanceKey | 0xFFFFU);
    constexpr unsigned int attributes = std::size(DefaultConfigManagedEntity{}.attributeKinds);
    for (unsigned int attribute = attributes; attribute-- > 0;) {
        const EnumStartupValueKind kind = row.attributeKinds[attribute];
        if (kind == STARTUP_VALUE_OCTETS || numberBytes(kind) != 0) {
            values.try_emplace(behind, instanceKey | (0x8000U >> attribute),
                               valueBytes(kind, row.attributeValues[attribute]));
        }
    }
    NRVK_LOG(6, "Attribute value map size(%hu)", static_cast<unsigned short>(values.size()));
}

/// Construction's lines are those of `init`, whichever function they stand in.
#define LINE_OF_INIT(...)                                                                                              \
    do {                                                                                                               \
        static const nrvk::LogSite site{nrvk::LogName("init"), nrvk::LogName(__FILE__), __LINE__, 6};                  \
        nrvk::logLine(site, __VA_ARGS__);                                                                              \
    } while (false)

/// A count that a host gave to a class without numbering has no instances to make.
unsigned int instanceCount(const DefaultConfigManagedEntity& row)
{
    return row.instanceFunction != nullptr ? row.instanceCount : 0U;
}

}  // namespace

OmciManagedEntitiesCore::OmciManagedEntitiesCore()
{
    init(std::string());
}

OmciManagedEntitiesCore::OmciManagedEntitiesCore(std::string factoryFile)
{
    init(factoryFile);
}

OmciManagedEntitiesCore::OmciManagedEntitiesCore(BoardSpecificConfig config)
{
    updatingBoardParams(config);
    init(std::string());
}

OmciManagedEntitiesCore::OmciManagedEntitiesCore(WithoutRecords)
{
    setUp(std::string());
    if (nrvk::isDropped(6)) {
        passThrough();
    } else {
        // The lines tell of maps that grow: they are made for whoever reads them.
        expandIntoRecords();
        m_ManagedEntities.clear();
    }
    LINE_OF_INIT("Number of managed entities supported(%u)",
                 static_cast<unsigned int>(std::size(defaultConfigManagedEntity)));
}

OmciManagedEntitiesCore::~OmciManagedEntitiesCore() = default;

void OmciManagedEntitiesCore::setBootInfoConfigurationFile(std::string file)
{
    NRVK_LOG(6, "Configuration file(%s)", file.c_str());
    m_BootInfoConfigurationFile = std::move(file);
}

void OmciManagedEntitiesCore::setFactoryConfigurationFile(std::string file)
{
    NRVK_LOG(6, "Configuration file(%s)", file.c_str());
    m_FactoryConfigurationFile = std::move(file);
}

void OmciManagedEntitiesCore::setSoftwareVersionConfigurationFile(std::string file)
{
    NRVK_LOG(6, "Configuration file(%s)", file.c_str());
    m_AppInfoConfigurationFile = std::move(file);
}

void OmciManagedEntitiesCore::init(const std::string& factoryFile)
{
    setUp(factoryFile);
    expandIntoRecords();
    NRVK_LOG(6, "Number of managed entities supported(%u)", static_cast<unsigned int>(m_ManagedEntities.size()));
}

void OmciManagedEntitiesCore::setUp(const std::string& factoryFile)
{
    LINE_OF_INIT("Factory file(%s)", factoryFile.c_str());
    nrvkHalPtr = HALFactory::getInstance()->CreateHALObject(0);
    if (!factoryFile.empty()) {
        m_FactoryConfigurationFile = factoryFile;
        updateOnuG_PartNumber();
    }
}

void OmciManagedEntitiesCore::edit(DefaultConfigManagedEntity& row, unsigned char index)
{
    if (row.updateFunction != nullptr) {
        row.updateFunction(index, row.attributeValues, m_FactoryConfigurationFile);
    }
}

void OmciManagedEntitiesCore::expandIntoRecords()
{
    m_ManagedEntities.reserve(std::size(defaultConfigManagedEntity));
    for (DefaultConfigManagedEntity& row : defaultConfigManagedEntity) {
        StartupConfigManagedEntity& record = m_ManagedEntities.emplace_back();
        record.classId = row.classId;
        const unsigned int count = instanceCount(row);
        for (unsigned int index = 0; index < count; ++index) {
            const unsigned short instance = row.instanceFunction(static_cast<unsigned char>(index));
            record.instances.push_back(instance);
            edit(row, static_cast<unsigned char>(index));
            ::buildAttributeValueMap(row, instance, record.attributeValues);
        }
    }
}

void OmciManagedEntitiesCore::passThrough()
{
    for (DefaultConfigManagedEntity& row : defaultConfigManagedEntity) {
        const unsigned int count = instanceCount(row);
        for (unsigned int index = 0; index < count; ++index) {
            row.instanceFunction(static_cast<unsigned char>(index));
            edit(row, static_cast<unsigned char>(index));
        }
    }
}

void OmciManagedEntitiesCore::buildAttributeValueMap(DefaultConfigManagedEntity row, unsigned short instance,
                                                     std::map<unsigned int, std::vector<unsigned char>>& values)
{
    ::buildAttributeValueMap(row, instance, values);
}

int OmciManagedEntitiesCore::getDefaultConfigManagedEntity(unsigned short classId, unsigned short instance,
                                                           StartupConfigManagedEntity& record)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu) to add", classId, instance);
    clearOmciManagedEntitiesAndInstances(record);
    for (const DefaultConfigManagedEntity& row : defaultConfigManagedEntity) {
        if (row.classId != classId) {
            continue;
        }
        record.classId = classId;
        record.instances.push_back(instance);
        ::buildAttributeValueMap(row, instance, record.attributeValues);
        OmciManagedEntityRegistrar::getInstance()->addManagedEntityInstance(record);
        clearOmciManagedEntitiesAndInstances(record);
        NRVK_LOG(6, "Number of managed entities supported(%u)",
                 static_cast<unsigned int>(std::size(defaultConfigManagedEntity)));
        return 0;
    }
    NRVK_LOG(4, "Managed entity(%hu; %hu) not supported", classId, instance);
    return -1;
}

void OmciManagedEntitiesCore::getManagedEntitiesCore(std::vector<StartupConfigManagedEntity>& managedEntities) const
{
    managedEntities = m_ManagedEntities;
    NRVK_LOG(6, "Number of managed entities supported(%u)", static_cast<unsigned int>(managedEntities.size()));
}

int OmciManagedEntitiesCore::getDefaultConfigManagedEntitySize()
{
    return static_cast<int>(std::size(defaultConfigManagedEntity));
}

void OmciManagedEntitiesCore::clearOmciManagedEntitiesAndInstances(StartupConfigManagedEntity& record)
{
    record.classId = 0;
    record.instances.clear();
    record.attributeValues.clear();
}

unsigned short OmciManagedEntitiesCore::findAndUpdate(unsigned short classId, unsigned char count)
{
    NRVK_LOG(6, "Managed entity class(%hu); Count(%hhu)", classId, count);
    nrvk::writeInstanceCount(classId, count);
    return classId;
}

// Kept for hosts that call it: the part number reaches ONU-G through updateOnuGME.
void OmciManagedEntitiesCore::updateOnuG_PartNumber()
{}
