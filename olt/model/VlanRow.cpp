#include "model/VlanRow.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "model/Errors.h"
#include "model/Names.h"

namespace olt {

namespace {

using Field = VlanField;
using Words = std::vector<std::pair<const char*, std::uint16_t>>;

constexpr std::uint16_t kAnyVid = 4096;
constexpr std::uint16_t kAnyPriority = 8;
constexpr std::uint16_t kOtherwise = 14;
constexpr std::uint16_t kNoTag = 15;
constexpr std::uint16_t kDiscard = 3;
constexpr std::uint16_t kTpid8100 = 4;
constexpr std::size_t kTreatmentOctets = 8;

/// Where a field lies, counted from the first bit of the row, and the words that stand for its codes.
struct FieldLayout
{
    const char* name;
    unsigned firstBit;
    unsigned width;
    std::uint16_t highest;
    Words words;
};

const Words kFilterPriorities{{"any", kAnyPriority}, {"otherwise", kOtherwise}, {"none", kNoTag}};
const Words kFilterVids{{"any", kAnyVid}};
const Words kFilterTpids{{"any", 0}, {"8100", 4}, {"input", 5}, {"input-de0", 6}, {"input-de1", 7}};
const Words kEthertypes{{"any", 0}, {"ipv4", 1}, {"pppoe", 2}, {"arp", 3}, {"ipv6", 4}, {"eapol", 5}};
const Words kRemovals{{"discard", kDiscard}};
const Words kTreatPriorities{{"copy-inner", 8}, {"copy-outer", 9}, {"dscp", 10}, {"none", kNoTag}};
const Words kTreatVids{{"copy-inner", 4096}, {"copy-outer", 4097}};
const Words kTreatTpids{{"copy-inner", 0}, {"copy-outer", 1}, {"output-copy-inner", 2}, {"output-copy-outer", 3},
                        {"8100", 4},       {"output-de0", 6}, {"output-de1", 7}};

const std::array<FieldLayout, kVlanFields>& layouts()
{
    static const std::array<FieldLayout, kVlanFields> all{{
        {"filter-outer-priority", 0, 4, 15, kFilterPriorities},
        {"filter-outer-vid", 4, 13, kAnyVid, kFilterVids},
        {"filter-outer-tpid", 17, 3, 7, kFilterTpids},
        {"filter-inner-priority", 32, 4, 15, kFilterPriorities},
        {"filter-inner-vid", 36, 13, kAnyVid, kFilterVids},
        {"filter-inner-tpid", 49, 3, 7, kFilterTpids},
        {"filter-ethertype", 60, 4, 15, kEthertypes},
        {"remove-tags", 64, 2, 3, kRemovals},
        {"treat-outer-priority", 76, 4, 15, kTreatPriorities},
        {"treat-outer-vid", 80, 13, 4097, kTreatVids},
        {"treat-outer-tpid", 93, 3, 7, kTreatTpids},
        {"treat-inner-priority", 108, 4, 15, kTreatPriorities},
        {"treat-inner-vid", 112, 13, 4097, kTreatVids},
        {"treat-inner-tpid", 125, 3, 7, kTreatTpids},
    }};
    return all;
}

unsigned bitOf(const std::vector<std::uint8_t>& octets, unsigned bit)
{
    return octets[bit / 8] >> (7 - bit % 8) & 1U;
}

/// "0 to 15, any, otherwise or none"
std::string choices(const FieldLayout& layout)
{
    std::string text = "0 to " + std::to_string(layout.highest);
    for (std::size_t i = 0; i < layout.words.size(); ++i)
        text += (i + 1 == layout.words.size() ? " or " : ", ") + std::string(layout.words[i].first);
    return text;
}

/// Builds a row from what the user says and what follows from it.
class RowBuilder
{
public:
    void take(std::string_view assignment)
    {
        const auto equals = assignment.find('=');
        if (equals == std::string_view::npos || equals == 0)
            throw UsageError("\"" + std::string(assignment) + "\" isn't FIELD=VALUE of a VLAN row");
        const std::string name = foldName(assignment.substr(0, equals));
        const std::string value(assignment.substr(equals + 1));
        if (name == "filter")
            takeOnce(m_Filter, "filter", value, {"untagged", "single-tagged", "double-tagged"});
        else if (name == "treat")
            takeOnce(m_Treat, "treat", value, {"unset", "discard", "forward"});
        else
            takeField(assignment.substr(0, equals), value);
    }

    VlanRow build()
    {
        completeFilter();
        if (m_Treat == "unset") {
            refuseTreatment("takes a rule away");
            m_Row.unset = true;
        } else {
            completeTreatment();
        }
        return m_Row;
    }

private:
    static void takeOnce(std::string& target, const char* name, const std::string& value,
                         const std::vector<std::string>& allowed)
    {
        if (!target.empty())
            throw UsageError(std::string(name) + " is given twice");
        const auto found = std::find_if(allowed.begin(), allowed.end(),
                                        [&](const auto& candidate) { return foldName(candidate) == foldName(value); });
        if (found == allowed.end())
            throw UsageError(std::string(name) + "=" + value + ": is one of " + allowed[0] + ", " + allowed[1] +
                             " and " + allowed[2]);
        target = *found;
    }

    void takeField(std::string_view name, const std::string& value)
    {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < kVlanFields; ++i) {
            const auto& layout = layouts()[i];
            names.emplace_back(layout.name);
            if (foldName(layout.name) != foldName(name))
                continue;
            if (m_Given[i])
                throw UsageError(std::string(layout.name) + " is given twice");
            m_Given[i] = true;
            m_Row.values[i] = parse(layout, value);
            return;
        }
        throw UsageError("a VLAN row has no field \"" + std::string(name) + "\"" + didYouMean(name, names));
    }

    static std::uint16_t parse(const FieldLayout& layout, const std::string& value)
    {
        for (const auto& [word, code] : layout.words) {
            if (foldName(word) == foldName(value))
                return code;
        }
        const auto number = parseUnsigned(value);
        if (!number || *number > layout.highest)
            throw UsageError(std::string(layout.name) + "=" + value + ": is " + choices(layout));
        return static_cast<std::uint16_t>(*number);
    }

    [[nodiscard]] bool given(Field field) const { return m_Given[static_cast<std::size_t>(field)]; }

    [[nodiscard]] bool anyGiven(Field first, Field last) const
    {
        const auto begin = m_Given.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = m_Given.begin() + static_cast<std::ptrdiff_t>(last) + 1;
        return std::find(begin, end, true) != end;
    }

    void complete(Field field, unsigned value)
    {
        if (!given(field))
            m_Row[field] = static_cast<std::uint16_t>(value);
    }

    void completeFilter()
    {
        if (m_Filter.empty() && !anyGiven(Field::FilterOuterPriority, Field::FilterEthertype))
            throw UsageError("the VLAN row doesn't say which frames: filter=untagged, filter-inner-vid=100 ...");
        const bool outer = m_Filter == "double-tagged" || anyGiven(Field::FilterOuterPriority, Field::FilterOuterTpid);
        const bool inner =
            outer || m_Filter == "single-tagged" || anyGiven(Field::FilterInnerPriority, Field::FilterInnerTpid);
        complete(Field::FilterOuterPriority, outer ? kAnyPriority : kNoTag);
        complete(Field::FilterOuterVid, kAnyVid);
        const bool otherwise = m_Row[Field::FilterOuterPriority] == kOtherwise;
        complete(Field::FilterInnerPriority, otherwise ? kOtherwise : inner ? kAnyPriority : kNoTag);
        complete(Field::FilterInnerVid, kAnyVid);
        m_TagsOfFrame = m_Row[Field::FilterOuterPriority] != kNoTag   ? 2U
                        : m_Row[Field::FilterInnerPriority] != kNoTag ? 1U
                                                                      : 0U;
        const std::array<const char*, 3> kinds{"untagged", "single-tagged", "double-tagged"};
        if (!m_Filter.empty() && m_Filter != kinds.at(m_TagsOfFrame))
            throw UsageError("filter=" + m_Filter + ": the other filter fields are for " + kinds.at(m_TagsOfFrame) +
                             " frames");
    }

    void refuseTreatment(const std::string& why) const
    {
        if (anyGiven(Field::RemoveTags, Field::TreatInnerTpid))
            throw UsageError("treat=" + m_Treat + " " + why + "; remove-tags and treat-... don't go with it");
    }

    void completeTreatment()
    {
        if (!m_Treat.empty())
            refuseTreatment("says it all");
        else if (!anyGiven(Field::RemoveTags, Field::TreatInnerTpid))
            throw UsageError("the VLAN row doesn't say what to do: treat-inner-vid=200, remove-tags=1, treat=discard, "
                             "treat=forward or treat=unset");
        const unsigned outer = completeTag(Field::TreatOuterPriority, Field::TreatOuterVid, Field::TreatOuterTpid, 9);
        const unsigned inner = completeTag(Field::TreatInnerPriority, Field::TreatInnerVid, Field::TreatInnerTpid, 8);
        complete(Field::RemoveTags, m_Treat == "discard" ? kDiscard : std::min(m_TagsOfFrame, outer + inner));
        if (m_Row[Field::RemoveTags] != kDiscard && m_Row[Field::RemoveTags] > m_TagsOfFrame)
            throw UsageError("remove-tags=" + std::to_string(m_Row[Field::RemoveTags]) +
                             ": the filter is for frames of " + std::to_string(m_TagsOfFrame) +
                             (m_TagsOfFrame == 1 ? " tag" : " tags"));
    }

    /// How many tags are added: one, or none when no field of it is given. `copyOwn` copies from the tag in its place.
    unsigned completeTag(Field priority, Field vid, Field tpid, unsigned copyOwn)
    {
        const bool added = given(priority) ? m_Row[priority] != kNoTag : given(vid) || given(tpid);
        const unsigned source = m_TagsOfFrame == 2 ? copyOwn : 8;
        complete(priority, !added ? kNoTag : m_TagsOfFrame == 0 ? 0U : source);
        if (added && !given(vid) && m_TagsOfFrame == 0)
            throw UsageError(std::string(vlanFieldName(vid)) + " is missing; an untagged frame has no VID to copy");
        complete(vid, added ? kAnyVid + source - 8 : 0);
        complete(tpid, added ? kTpid8100 : 0U);
        return added ? 1 : 0;
    }

    VlanRow m_Row;
    std::array<bool, kVlanFields> m_Given{};
    std::string m_Filter;
    std::string m_Treat;
    unsigned m_TagsOfFrame = 0;
};

}  // namespace

const char* const kVlanRowHelp =
    "A row of the VLAN tagging table (class 171) may be written as fields instead of octets:\n"
    "  filter=untagged, single-tagged or double-tagged\n"
    "  filter-outer-priority, filter-inner-priority   0 to 7, any, otherwise (default rule), none (no such tag)\n"
    "  filter-outer-vid, filter-inner-vid             0 to 4094, any\n"
    "  filter-outer-tpid, filter-inner-tpid           any, 8100, input, input-de0, input-de1\n"
    "  filter-ethertype                               any, ipv4, pppoe, arp, ipv6, eapol\n"
    "  treat=discard, forward (unchanged) or unset (take the rule with this filter away)\n"
    "  remove-tags                                    0 to 2, discard; else as many as are added\n"
    "  treat-outer-priority, treat-inner-priority     0 to 7, copy-inner, copy-outer, dscp, none (no such tag)\n"
    "  treat-outer-vid, treat-inner-vid               0 to 4094, copy-inner, copy-outer\n"
    "  treat-outer-tpid, treat-inner-tpid             8100, copy-inner, copy-outer, output-copy-inner,\n"
    "                                                 output-copy-outer, output-de0, output-de1";

VlanRow VlanRow::fromOctets(const std::vector<std::uint8_t>& octets)
{
    VlanRow row;
    for (std::size_t i = 0; i < kVlanFields; ++i) {
        const auto& layout = layouts()[i];
        unsigned value = 0;
        for (unsigned bit = 0; bit < layout.width; ++bit)
            value = value << 1 | bitOf(octets, layout.firstBit + bit);
        row.values[i] = static_cast<std::uint16_t>(value);
    }
    row.unset = std::all_of(octets.begin() + kTreatmentOctets, octets.end(), [](auto octet) { return octet == 0xFF; });
    return row;
}

std::vector<std::uint8_t> VlanRow::toOctets() const
{
    std::vector<std::uint8_t> octets(kVlanRowSize);
    for (std::size_t i = 0; i < kVlanFields; ++i) {
        const auto& layout = layouts()[i];
        for (unsigned bit = 0; bit < layout.width; ++bit) {
            const unsigned at = layout.firstBit + bit;
            if ((values[i] >> (layout.width - 1 - bit) & 1U) != 0)
                octets[at / 8] = static_cast<std::uint8_t>(octets[at / 8] | 0x80U >> at % 8);
        }
    }
    if (unset)
        std::fill(octets.begin() + kTreatmentOctets, octets.end(), std::uint8_t{0xFF});
    return octets;
}

const char* vlanFieldName(VlanField field)
{
    return layouts().at(static_cast<std::size_t>(field)).name;
}

bool isVlanFieldName(std::string_view name)
{
    const std::string folded = foldName(name);
    const auto& all = layouts();
    return folded == "filter" || folded == "treat" ||
           std::any_of(all.begin(), all.end(), [&](const auto& layout) { return foldName(layout.name) == folded; });
}

VlanRow parseVlanRow(std::string_view text)
{
    RowBuilder builder;
    constexpr std::string_view parting = " ,\t";
    for (std::size_t at = text.find_first_not_of(parting); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(parting, at), text.size());
        builder.take(text.substr(at, end - at));
        at = text.find_first_not_of(parting, end);
    }
    return builder.build();
}

}  // namespace olt
