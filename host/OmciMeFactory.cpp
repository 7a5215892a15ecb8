#include "omci_host/OmciMeFactory.h"

#include <mutex>

#include "AttributeLists.h"

namespace {

constexpr std::size_t kPageSize = 256;

}  // namespace

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
    const std::lock_guard lock(m_Writers);
    std::atomic<Page*>& page = m_Pages[classId / kPageSize];
    if (page.load(std::memory_order_relaxed) == nullptr) {
        page.store(new Page{}, std::memory_order_release);
    }
    (*page.load(std::memory_order_relaxed))[classId % kPageSize].store(me, std::memory_order_release);
    return 0;
}

int OmciMeFactory::unregisterManagedEntity(unsigned short classId)
{
    omci::AttributeListCache::instance().forget(classId);
    const std::lock_guard lock(m_Writers);
    if (Page* const page = m_Pages[classId / kPageSize].load(std::memory_order_relaxed)) {
        (*page)[classId % kPageSize].store(nullptr, std::memory_order_release);
    }
    return 0;
}

OmciMe* OmciMeFactory::getManagedEntity(unsigned short classId) const
{
    const Page* const page = m_Pages[classId / kPageSize].load(std::memory_order_acquire);
    return page == nullptr ? nullptr : (*page)[classId % kPageSize].load(std::memory_order_acquire);
}

OmciMe* OmciMeFactory::from(std::size_t classId) const
{
    for (std::size_t index = classId / kPageSize; index < m_Pages.size(); ++index) {
        if (const Page* const page = m_Pages[index].load(std::memory_order_acquire)) {
            for (std::size_t entry = classId % kPageSize; entry < page->size(); ++entry) {
                if (OmciMe* const me = (*page)[entry].load(std::memory_order_acquire)) {
                    return me;
                }
            }
        }
        classId = 0;
    }
    return nullptr;
}

OmciMe* OmciMeFactory::getFirstManagedEntity() const
{
    return from(0);
}

OmciMe* OmciMeFactory::getNextManagedEntity(unsigned short classId) const
{
    return from(classId + std::size_t{1});
}
