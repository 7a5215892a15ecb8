#ifndef NRVK_IMPL_EXTENDED_VLAN_TAGGING_ROW_H
#define NRVK_IMPL_EXTENDED_VLAN_TAGGING_ROW_H

#include "VlanRecords.h"

namespace nrvk {

constexpr unsigned int kVlanTaggingRowBytes = 16;
/// A priority field that stands for "no tag": none in the filter, or none to add.
constexpr unsigned char kNoVlanTag = 15;
constexpr unsigned short kNoVlan = 0xFFFF;

/// Decodes a row of the received frame VLAN tagging operation table (G.988 9.3.13): 16 bytes, network byte order.
RecVlanTagFilData decodeVlanTaggingRow(const unsigned char* row);

/// Whether the rule is the unset frame: a treatment of all ones, which deletes the rule with the same filter.
bool isUnsetFrame(const RecVlanTagFilData& rule);

/// Compares the seven filter fields; padding and treatment take no part.
bool hasSameFilter(const RecVlanTagFilData& a, const RecVlanTagFilData& b);

}  // namespace nrvk

#endif
