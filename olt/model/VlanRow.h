#ifndef OLT_MODEL_VLAN_ROW_H
#define OLT_MODEL_VLAN_ROW_H

// Rows of the received frame VLAN tagging operation table (G.988 9.3.13, class 171), as octets, as named fields and in
// words.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace olt {

/// The fields in their order in the row; padding has none.
enum class VlanField
{
    FilterOuterPriority,
    FilterOuterVid,
    FilterOuterTpid,
    FilterInnerPriority,
    FilterInnerVid,
    FilterInnerTpid,
    FilterEthertype,
    RemoveTags,
    TreatOuterPriority,
    TreatOuterVid,
    TreatOuterTpid,
    TreatInnerPriority,
    TreatInnerVid,
    TreatInnerTpid
};
constexpr std::size_t kVlanFields = 14;
constexpr std::size_t kVlanRowSize = 16;

struct VlanRow
{
    std::array<std::uint16_t, kVlanFields> values{};
    bool unset = false;  ///< The last eight octets are all ones: the row takes the rule with the same filter away.

    [[nodiscard]] std::uint16_t operator[](VlanField field) const { return values[static_cast<std::size_t>(field)]; }
    [[nodiscard]] std::uint16_t& operator[](VlanField field) { return values[static_cast<std::size_t>(field)]; }

    /// From `kVlanRowSize` octets in network order.
    [[nodiscard]] static VlanRow fromOctets(const std::vector<std::uint8_t>& octets);
    [[nodiscard]] std::vector<std::uint8_t> toOctets() const;
};

/// "filter-inner-vid" and so on.
[[nodiscard]] const char* vlanFieldName(VlanField field);

/// Whether the name, in any spelling, is a field of a row or one of the shortcuts `filter` and `treat`.
[[nodiscard]] bool isVlanFieldName(std::string_view name);

/// The row that "filter-inner-vid=100 treat-inner-vid=200" describes; blanks or commas part the fields. What isn't said
/// follows from what is: a filter on a tag makes the frame have that tag, the priority of an added tag is copied, and
/// as many tags go as come. Throws UsageError, which names the field and what it takes.
[[nodiscard]] VlanRow parseVlanRow(std::string_view text);

/// "single-tagged, VID 100, any priority: remove 1 tag, add VID 200 priority copied from inner"
[[nodiscard]] std::string vlanRowText(const VlanRow& row);

/// "VID 100 priority 3, VID 200": the tags of a VLAN filter list (class 84) of twelve two-octet entries. Entries of
/// zero at the end are left out.
[[nodiscard]] std::string vlanFilterListText(const std::vector<std::uint8_t>& list);

/// How fields and shortcuts are written, for help texts.
extern const char* const kVlanRowHelp;

}  // namespace olt

#endif
