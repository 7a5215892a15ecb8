#ifndef NRVK_IMPL_EXTENDED_VLAN_RULE_TABLE_H
#define NRVK_IMPL_EXTENDED_VLAN_RULE_TABLE_H

#include <vector>

#include "VlanRecords.h"

namespace nrvk {

/// The table of received frames: rules in order of arrival, without bound and without a check for duplicates.
class VlanRuleTable
{
public:
    void append(const RecVlanTagFilData& rule);
    /// Removes the first rule with the same filter. False when there is none.
    bool removeFirstWithFilterOf(const RecVlanTagFilData& rule);
    void clear();
    /// Null while the table is empty.
    const RecVlanTagFilData* newest() const;
    /// Counts in 8 bits and wraps: with 257 rules it is 1.
    unsigned char ruleCount() const { return static_cast<unsigned char>(m_Rules.size()); }
    const std::vector<RecVlanTagFilData>& rules() const { return m_Rules; }

private:
    std::vector<RecVlanTagFilData> m_Rules;
};

}  // namespace nrvk

#endif
