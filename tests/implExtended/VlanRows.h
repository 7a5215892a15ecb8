#ifndef TESTS_IMPL_EXTENDED_VLAN_ROWS_H
#define TESTS_IMPL_EXTENDED_VLAN_ROWS_H

#include <array>
#include <ostream>

#include "VlanRecords.h"

/// Rows of the VLAN tagging operation table, written by the test's own encoder.
namespace vlanrows {

using Row = std::array<unsigned char, 16>;

/// A row from its field values, each put at its bit position counted from the first bit of the row.
inline Row encode(const RecVlanTagFilData& rule)
{
    const struct
    {
        unsigned int value;
        unsigned int firstBit;
        unsigned int width;
    } fields[] = {
        {rule.FOP, 0, 4},    {rule.FOV, 4, 13},   {rule.FOT, 17, 3},  {rule.pad1, 20, 12}, {rule.FIP, 32, 4},
        {rule.FIV, 36, 13},  {rule.FIT, 49, 3},   {rule.pad2, 52, 8}, {rule.FET, 60, 4},   {rule.TTR, 64, 2},
        {rule.pad3, 66, 10}, {rule.TOP, 76, 4},   {rule.TOV, 80, 13}, {rule.TOT, 93, 3},   {rule.pad4, 96, 12},
        {rule.TIP, 108, 4},  {rule.TIV, 112, 13}, {rule.TIT, 125, 3},
    };
    Row row{};
    for (const auto& field : fields) {
        for (unsigned int i = 0; i < field.width; ++i) {
            const unsigned int bit = field.firstBit + i;
            if ((field.value >> (field.width - 1 - i) & 1U) != 0) {
                row[bit / 8] = static_cast<unsigned char>(row[bit / 8] | 0x80U >> bit % 8);
            }
        }
    }
    return row;
}

/// A rule for single-tagged frames of the VID, any priority, that takes the tag and adds one.
inline RecVlanTagFilData translation(unsigned short fromVid, unsigned short toVid)
{
    RecVlanTagFilData rule{};
    rule.FOP = 15;
    rule.FOV = 4096;
    rule.FIP = 8;
    rule.FIV = fromVid;
    rule.TTR = 1;
    rule.TOP = 15;
    rule.TIP = 8;
    rule.TIV = toVid;
    rule.TIT = 6;
    return rule;
}

/// The row that takes out the first rule with the same filter.
inline RecVlanTagFilData unsetOf(RecVlanTagFilData rule)
{
    rule.TTR = 3;
    rule.pad3 = 0x3FF;
    rule.TOP = 15;
    rule.TOV = 0x1FFF;
    rule.TOT = 7;
    rule.pad4 = 0xFFF;
    rule.TIP = 15;
    rule.TIV = 0x1FFF;
    rule.TIT = 7;
    return rule;
}

}  // namespace vlanrows

/// Rules compare by their rows, which hold every field.
inline bool operator==(const RecVlanTagFilData& a, const RecVlanTagFilData& b)
{
    return vlanrows::encode(a) == vlanrows::encode(b);
}

inline std::ostream& operator<<(std::ostream& out, const RecVlanTagFilData& r)
{
    return out << "FOP " << +r.FOP << " FOV " << r.FOV << " FOT " << +r.FOT << " pad1 " << r.pad1 << " FIP " << +r.FIP
               << " FIV " << r.FIV << " FIT " << +r.FIT << " pad2 " << +r.pad2 << " FET " << +r.FET << " TTR " << +r.TTR
               << " pad3 " << r.pad3 << " TOP " << +r.TOP << " TOV " << r.TOV << " TOT " << +r.TOT << " pad4 " << r.pad4
               << " TIP " << +r.TIP << " TIV " << r.TIV << " TIT " << +r.TIT;
}

#endif
