// The configured picture of the MIB: brought to life, taken down, and changed.
#include <algorithm>

#include "OmciManagedEntityRegistrar.h"
#include "impl/Log.h"

int OmciManagedEntityRegistrar::registerSupportedManagedEntities()
{
    NRVK_LOG(6, "Number of managed entities supported(%u)",
             static_cast<unsigned int>(m_ConfigManagedEntityVector.size()));
    for (const StartupConfigManagedEntity& managedEntity : m_ConfigManagedEntityVector) {
        if (const int result = registerManagedEntity(managedEntity.classId); result != 0) {
            NRVK_LOG(3, "registerManagedEntity() failed(%d)", result);
        }
        for (const unsigned short instance : managedEntity.instances) {
            if (const int result = createManagedEntityInstance(managedEntity.classId, instance); result != 0) {
                NRVK_LOG(3, "createManagedEntityInstance(%hu; %hu) failed(%d)", managedEntity.classId, instance,
                         result);
            }
        }
        writeStoredAttributes(managedEntity);
    }
    return 0;
}

int OmciManagedEntityRegistrar::unregisterSupportedManagedEntitiesAndInstances()
{
    NRVK_LOG(6, "Number of managed entities supported(%u)",
             static_cast<unsigned int>(m_ConfigManagedEntityVector.size()));
    for (const StartupConfigManagedEntity& managedEntity : m_ConfigManagedEntityVector) {
        for (const unsigned short instance : managedEntity.instances) {
            if (const int result = deleteManagedEntityInstance(managedEntity.classId, instance); result != 0) {
                NRVK_LOG(3, "deleteManagedEntityInstance(%hu; %hu) failed(%d)", managedEntity.classId, instance,
                         result);
            }
        }
        if (const int result = unregisterManagedEntity(managedEntity.classId); result != 0) {
            NRVK_LOG(3, "unregisterManagedEntity() failed(%d)", result);
        }
    }
    return 0;
}

int OmciManagedEntityRegistrar::initializeSupportedManagedEntitiesAndInstances()
{
    NRVK_LOG(6, "Number of managed entities supported(%u)",
             static_cast<unsigned int>(m_ConfigManagedEntityVector.size()));
    for (const StartupConfigManagedEntity& managedEntity : m_ConfigManagedEntityVector) {
        writeStoredAttributes(managedEntity);
    }
    return 0;
}

int OmciManagedEntityRegistrar::addManagedEntityInstance(StartupConfigManagedEntity managedEntity)
{
    const bool empty = managedEntity.instances.empty();
    const unsigned short instance = empty ? static_cast<unsigned short>(0) : managedEntity.instances.front();
    NRVK_LOG(6, "Managed entity(%hu; %hu) to add", managedEntity.classId, instance);
    if (empty) {
        return 0;  // a class without a row in the start-up table has nothing to add
    }
    for (StartupConfigManagedEntity& record : m_ConfigManagedEntityVector) {
        if (record.classId != managedEntity.classId) {
            continue;
        }
        if (std::find(record.instances.begin(), record.instances.end(), instance) != record.instances.end()) {
            NRVK_LOG(4, "Managed entity(%hu; %hu) already configured", managedEntity.classId, instance);
            return 0;
        }
        record.instances.push_back(instance);
        record.attributeValues.insert(managedEntity.attributeValues.begin(), managedEntity.attributeValues.end());
    }
    return 0;
}

int OmciManagedEntityRegistrar::updateSupportedManagedEntityAndInstance(StartupConfigManagedEntity managedEntity)
{
    NRVK_LOG(6, "Managed entity class(%hu)", managedEntity.classId);
    for (StartupConfigManagedEntity& record : m_ConfigManagedEntityVector) {
        if (record.classId == managedEntity.classId && record.instances == managedEntity.instances) {
            record = managedEntity;
            writeStoredAttributes(record);
        }
    }
    return 0;
}

int OmciManagedEntityRegistrar::swapManagedEntityInstanceId(unsigned short classId, unsigned short oldInstance,
                                                            unsigned short newInstance)
{
    NRVK_LOG(6, "Managed entity class(%hu); Old instance(%hu); New instance(%hu)", classId, oldInstance, newInstance);
    for (StartupConfigManagedEntity& record : m_ConfigManagedEntityVector) {
        const auto listed = std::find(record.instances.begin(), record.instances.end(), oldInstance);
        if (record.classId != classId || listed == record.instances.end()) {
            continue;
        }
        if (const int result = deleteManagedEntityInstance(classId, oldInstance); result != 0) {
            NRVK_LOG(3, "deleteManagedEntityInstance(%hu; %hu) failed(%d)", classId, oldInstance, result);
            return -1;
        }
        *listed = newInstance;
        if (const int result = createManagedEntityInstance(classId, newInstance); result != 0) {
            NRVK_LOG(3, "createManagedEntityInstance(%hu; %hu) failed(%d)", classId, newInstance, result);
        }
        // Deliberate: the entries of the class's other instances go with the old map.
        std::map<unsigned int, std::vector<unsigned char>> renamed;
        for (auto& [key, value] : record.attributeValues) {
            if (key >> 16 == oldInstance) {
                renamed.emplace((static_cast<unsigned int>(newInstance) << 16) | (key & 0xFFFF), std::move(value));
            }
        }
        record.attributeValues.swap(renamed);
        writeStoredAttributes(record);
    }
    return 0;
}
