#include "omci_host/OmciMeFactory.h"

#include <mutex>

#include "AttributeLists.h"

OmciMeFactory* OmciMeFactory::getInstance()
{
    // Never destroyed: adapters may log and register from static destructors.
    static auto* const factory = new OmciMeFactory;
    return factory;
}

int OmciMeFactory::registerManagedEntity(unsigned short classId, OmciMe* me)
{
    if (me == nullptr) {
        return -1;
    }
    omci::AttributeListCache::instance().forget(classId);
    const std::unique_lock lock(m_Mutex);
    m_ManagedEntities[classId] = me;
    return 0;
}

int OmciMeFactory::unregisterManagedEntity(unsigned short classId)
{
    omci::AttributeListCache::instance().forget(classId);
    const std::unique_lock lock(m_Mutex);
    m_ManagedEntities.erase(classId);
    return 0;
}

OmciMe* OmciMeFactory::getManagedEntity(unsigned short classId) const
{
    const std::shared_lock lock(m_Mutex);
    const auto found = m_ManagedEntities.find(classId);
    return found == m_ManagedEntities.end() ? nullptr : found->second;
}

OmciMe* OmciMeFactory::getFirstManagedEntity() const
{
    const std::shared_lock lock(m_Mutex);
    return m_ManagedEntities.empty() ? nullptr : m_ManagedEntities.begin()->second;
}

OmciMe* OmciMeFactory::getNextManagedEntity(unsigned short classId) const
{
    const std::shared_lock lock(m_Mutex);
    const auto next = m_ManagedEntities.upper_bound(classId);
    return next == m_ManagedEntities.end() ? nullptr : next->second;
}
