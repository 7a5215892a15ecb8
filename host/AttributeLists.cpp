#include "AttributeLists.h"

#include <algorithm>
#include <list>
#include <mutex>

#include "omci_host/OmciMe.h"

namespace omci {

namespace {

using ListOperation = int (OmciMe::*)(std::list<attributeDefinition>*) const;

std::vector<attributeDefinition> take(const OmciMe& me, ListOperation operation)
{
    std::list<attributeDefinition> list;
    if ((me.*operation)(&list) != 0) {
        return {};
    }
    return {list.begin(), list.end()};
}

std::uint16_t maskOf(const std::vector<attributeDefinition>& definitions)
{
    std::uint16_t mask = 0;
    for (const attributeDefinition& definition : definitions) {
        mask = static_cast<std::uint16_t>(mask | definition.attributeMask);
    }
    return mask;
}

/// 0 for mask 0x8000, 15 for 0x0001, 16 for what is no single bit.
std::size_t indexOf(std::uint16_t mask)
{
    const bool singleBit = mask != 0 && (mask & (mask - 1)) == 0;
    return singleBit ? 15U - static_cast<unsigned>(__builtin_ctz(mask)) : 16U;
}

}  // namespace

AttributeLists::AttributeLists(const OmciMe& me)
    : get(take(me, &OmciMe::getAttributesListForGet)), set(take(me, &OmciMe::getAttributesListForSet)),
      create(take(me, &OmciMe::getAttributesListForCreate)), avc(take(me, &OmciMe::getAttributesListForAvc)),
      upload(take(me, &OmciMe::getAttributesListForMibUpload)), getMask(maskOf(get)), setMask(maskOf(set))
{
    learn(get);
    learn(set);
    learn(create);
    learn(avc);
    learn(upload);
    learn(take(me, &OmciMe::getAttributesListForGetNext));
    for (const attributeDefinition& definition : create) {
        createLength = static_cast<std::uint16_t>(createLength + definition.attributeSize);
    }
    upload.erase(std::remove_if(upload.begin(), upload.end(),
                                [](const attributeDefinition& definition) { return definition.isTableAttribute != 0; }),
                 upload.end());
}

void AttributeLists::learn(const std::vector<attributeDefinition>& definitions)
{
    for (const attributeDefinition& definition : definitions) {
        const std::size_t index = indexOf(definition.attributeMask);
        if (index < m_Sizes.size()) {
            m_Sizes[index] = definition.attributeSize;
            knownMask = static_cast<std::uint16_t>(knownMask | definition.attributeMask);
        }
    }
}

std::uint16_t AttributeLists::size(std::uint16_t mask) const
{
    const std::size_t index = indexOf(mask);
    return index < m_Sizes.size() ? m_Sizes[index] : std::uint16_t{0};
}

AttributeListCache& AttributeListCache::instance()
{
    static AttributeListCache cache;
    return cache;
}

std::shared_ptr<const AttributeLists> AttributeListCache::of(const OmciMe& me)
{
    const std::uint16_t classId = me.getManagedEntityClassId();
    {
        const std::shared_lock lock(m_Mutex);
        const auto found = m_Entries.find(classId);
        if (found != m_Entries.end() && found->second.owner == &me) {
            return found->second.lists;
        }
    }
    // Outside the lock: the adapter logs, and a log observer may come back here.
    auto lists = std::make_shared<const AttributeLists>(me);
    const std::unique_lock lock(m_Mutex);
    m_Entries[classId] = {&me, lists};
    return lists;
}

void AttributeListCache::forget(std::uint16_t classId)
{
    const std::unique_lock lock(m_Mutex);
    m_Entries.erase(classId);
}

}  // namespace omci
