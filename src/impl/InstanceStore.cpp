#include "impl/InstanceStore.h"

namespace nrvk {

const InstanceStore::Instances::value_type* InstanceStore::entryFrom(unsigned int from) const
{
    if (m_Instances == nullptr || from > 0xFFFF) {
        return nullptr;
    }
    const auto found = m_Instances->lower_bound(static_cast<unsigned short>(from));
    return found != m_Instances->end() ? &*found : nullptr;
}

void* InstanceStore::createManagedEntityInstance(unsigned short instance, bool createdByOlt)
{
    if (void* existing = lookUp(instance)) {
        NRVK_LOG_FOR_CLASS(m_Description, 6, "Managed entity(%p) already exists", existing);
        return existing;
    }
    if (m_Instances == nullptr) {
        m_Instances = new Instances;
    }
    void* object = m_Operations.make(instance, createdByOlt);
    try {
        m_Instances->emplace(instance, object);
    } catch (...) {
        m_Operations.destroy(object);
        throw;
    }
    NRVK_LOG_FOR_CLASS(m_Description, 6, "Managed entity(%p) created", object);
    if (m_Operations.createCompanions != nullptr) {
        m_Operations.createCompanions(instance);
    }
    return object;
}

bool InstanceStore::deleteManagedEntityInstance(unsigned short instance, bool createdByOlt)
{
    NRVK_LOG_FOR_CLASS(m_Description, 6, "Instance(%hu)", instance);
    void* object = lookUp(instance);
    if (object == nullptr) {
        NRVK_LOG_FOR_CLASS(m_Description, 6, "Instance(%hu) not found", instance);
        return false;
    }
    if (m_Operations.isCreatedByOlt(object) != createdByOlt) {
        return true;
    }
    if (m_Operations.eraseConfigurationFromHardware != nullptr) {
        m_Operations.eraseConfigurationFromHardware(object);
    }
    const auto found = m_Instances->find(instance);
    if (found == m_Instances->end() || found->second != object) {
        // The hardware layer came back from inside the call and has seen to it.
        return true;
    }
    // Out of the map first: a destructor or a companion that looks around must not find the object.
    m_Instances->erase(found);
    m_Operations.destroy(object);
    if (m_Operations.deleteCompanions != nullptr) {
        m_Operations.deleteCompanions(instance);
    }
    return true;
}

void* InstanceStore::logMissing(unsigned short instance) const
{
    static const LogName function("getManagedEntityInstance");
    logForClass(function, m_Description.file, m_Description.line, 6, "Instance(%hu) not found", instance);
    return nullptr;
}

void* InstanceStore::getManagedEntityInstance(unsigned short instance) const
{
    return find(instance);
}

void* InstanceStore::getFirstManagedEntityInstance() const
{
    const auto* entry = entryFrom(0);
    if (entry == nullptr) {
        NRVK_LOG_FOR_CLASS(m_Description, 6, "Empty map");
        return nullptr;
    }
    return entry->second;
}

void* InstanceStore::getNextManagedEntityInstance(unsigned short instance) const
{
    const auto* entry = entryFrom(instance + 1U);
    if (entry == nullptr) {
        NRVK_LOG_FOR_CLASS(m_Description, 6, "Reached end of map");
        return nullptr;
    }
    return entry->second;
}

bool InstanceStore::firstId(unsigned short& instance) const
{
    const auto* entry = entryFrom(0);
    if (entry != nullptr) {
        instance = entry->first;
    }
    return entry != nullptr;
}

bool InstanceStore::nextId(unsigned short& instance) const
{
    const auto* entry = entryFrom(instance + 1U);
    if (entry != nullptr) {
        instance = entry->first;
    }
    return entry != nullptr;
}

void InstanceStore::eraseAllManagedEntityInstance()
{
    // The walk goes by id: erasing one instance may take others of the class with it.
    for (const auto* entry = entryFrom(0); entry != nullptr;) {
        const unsigned short instance = entry->first;
        void* object = entry->second;
        if (m_Operations.isCreatedByOlt(object)) {
            deleteManagedEntityInstance(instance, true);
        } else if (m_Operations.eraseConfigurationFromHardware == nullptr) {
            m_Operations.init(object);
        } else {
            m_Operations.eraseConfigurationFromHardware(object);
            if (lookUp(instance) == object) {
                m_Operations.init(object);
            }
        }
        entry = entryFrom(instance + 1U);
    }
}

std::string InstanceStore::dumpAllME(unsigned int instance, unsigned short attributeMask) const
{
    NRVK_LOG_FOR_CLASS(m_Description, 6, "Instance(%u); Attribute mask(0x%X)", instance, attributeMask);
    std::string text;
    if (instance == kAllInstances) {
        for (const auto* entry = entryFrom(0); entry != nullptr; entry = entryFrom(entry->first + 1U)) {
            text += m_Operations.dumpME(entry->second, attributeMask);
        }
        return text;
    }
    const void* object = instance <= 0xFFFF ? lookUp(static_cast<unsigned short>(instance)) : nullptr;
    if (object == nullptr) {
        NRVK_LOG_FOR_CLASS(m_Description, 6, "Instance(%u) not found", instance);
        return text;
    }
    return m_Operations.dumpME(object, attributeMask);
}

}  // namespace nrvk
