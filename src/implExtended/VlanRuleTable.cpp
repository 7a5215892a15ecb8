#include "implExtended/VlanRuleTable.h"

#include <algorithm>

#include "impl/Log.h"
#include "implExtended/VlanTaggingRow.h"

namespace nrvk {

void VlanRuleTable::append(const RecVlanTagFilData& rule)
{
    m_Rules.push_back(rule);
}

bool VlanRuleTable::removeFirstWithFilterOf(const RecVlanTagFilData& rule)
{
    const auto match = std::find_if(m_Rules.begin(), m_Rules.end(),
                                    [&rule](const RecVlanTagFilData& other) { return hasSameFilter(rule, other); });
    if (match == m_Rules.end()) {
        NRVK_LOG(3, "Got the unset frame entry but no match in the TableOfReceivedFrames");
        return false;
    }
    NRVK_LOG(6, "Unset Frame has been arrived and Matched with the iterator (%hu) in TableOfReceivedFrames",
             static_cast<unsigned short>(match - m_Rules.begin()));
    m_Rules.erase(match);
    NRVK_LOG(6, "Unset Frame entry erased from the TableOfReceivedFrames");
    return true;
}

void VlanRuleTable::clear()
{
    m_Rules.clear();
}

const RecVlanTagFilData* VlanRuleTable::newest() const
{
    return m_Rules.empty() ? nullptr : &m_Rules.back();
}

}  // namespace nrvk
