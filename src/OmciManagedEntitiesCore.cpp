// Construction, and the expansion of the start-up table into the records that the registrar takes.
#include "OmciManagedEntitiesCore.h"

#include <cstdlib>
#include <utility>

#include "HALFactory.h"
#include "OmciManagedEntityRegistrar.h"
#include "StartupTable.h"
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

/// The value's bytes in network order; empty for a kind that gives no entry.
std::vector<unsigned char> valueBytes(EnumStartupValueKind kind, const unsigned char (&text)[kTextFieldBytes])
{
    if (kind == STARTUP_VALUE_OCTETS) {
        return {text, text + kOctetValueBytes};
    }
    std::vector<unsigned char> bytes(numberBytes(kind));
    // atoi as it is: hexadecimal text gives 0, and a negative number is sign-extended.
    auto value = static_cast<unsigned long long>(std::atoi(reinterpret_cast<const char*>(text)));
    for (std::size_t i = bytes.size(); i-- > 0;) {
        bytes[i] = static_cast<unsigned char>(value);
        value >>= 8;
    }
    return bytes;
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
    NRVK_LOG(6, "Factory file(%s)", factoryFile.c_str());
    nrvkHalPtr = HALFactory::getInstance()->CreateHALObject(0);
    if (!factoryFile.empty()) {
        m_FactoryConfigurationFile = factoryFile;
        updateOnuG_PartNumber();
    }
    m_ManagedEntities.reserve(std::size(defaultConfigManagedEntity));
    for (DefaultConfigManagedEntity& row : defaultConfigManagedEntity) {
        StartupConfigManagedEntity& record = m_ManagedEntities.emplace_back();
        record.classId = row.classId;
        // A count that a host gave to a class without numbering has no instances to make.
        const unsigned int count = row.instanceFunction != nullptr ? row.instanceCount : 0U;
        for (unsigned int index = 0; index < count; ++index) {
            const unsigned short instance = row.instanceFunction(static_cast<unsigned char>(index));
            record.instances.push_back(instance);
            if (row.updateFunction != nullptr) {
                row.updateFunction(static_cast<unsigned char>(index), row.attributeValues, m_FactoryConfigurationFile);
            }
            buildAttributeValueMap(row, instance, record.attributeValues);
        }
    }
    NRVK_LOG(6, "Number of managed entities supported(%u)", static_cast<unsigned int>(m_ManagedEntities.size()));
}

void OmciManagedEntitiesCore::buildAttributeValueMap(DefaultConfigManagedEntity row, unsigned short instance,
                                                     std::map<unsigned int, std::vector<unsigned char>>& values)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu) to build", row.classId, instance);
    for (unsigned int attribute = 0; attribute < std::size(row.attributeKinds); ++attribute) {
        std::vector<unsigned char> bytes = valueBytes(row.attributeKinds[attribute], row.attributeValues[attribute]);
        if (!bytes.empty()) {
            const unsigned int key = (static_cast<unsigned int>(instance) << 16) | (0x8000U >> attribute);
            values.emplace(key, std::move(bytes));
        }
    }
    NRVK_LOG(6, "Attribute value map size(%hu)", static_cast<unsigned short>(values.size()));
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
        buildAttributeValueMap(row, instance, record.attributeValues);
        OmciManagedEntityRegistrar::getInstance()->addManagedEntityInstance(record);
        clearOmciManagedEntitiesAndInstances(record);
        NRVK_LOG(6, "Number of managed entities supported(%u)", static_cast<unsigned int>(m_ManagedEntities.size()));
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
