#include <algorithm>
#include <array>

#include "model/VlanRow.h"

namespace olt {

namespace {

using Field = VlanField;

std::string number(unsigned value)
{
    return std::to_string(value);
}

std::string filterVid(unsigned vid)
{
    return vid == 4096 ? "any VID" : "VID " + number(vid);
}

std::string filterPriority(unsigned priority)
{
    return priority == 8 ? "any priority" : priority == 14 ? "no other rule" : "priority " + number(priority);
}

/// Nothing for a filter that lets every TPID pass.
std::string filterTpid(unsigned code)
{
    constexpr std::array<const char*, 8> texts{"",
                                               ", TPID code 1",
                                               ", TPID code 2",
                                               ", TPID code 3",
                                               ", TPID 0x8100",
                                               ", input TPID",
                                               ", input TPID and DE 0",
                                               ", input TPID and DE 1"};
    return texts.at(code);
}

std::string filterTag(const std::string& which, unsigned vid, unsigned priority, unsigned tpid)
{
    const std::string ownPriority = priority == 8 && !which.empty() ? "any " + which + "priority" : "";
    return which + filterVid(vid) + ", " + (ownPriority.empty() ? which + filterPriority(priority) : ownPriority) +
           filterTpid(tpid);
}

std::string ethertype(unsigned code)
{
    constexpr std::array<const char*, 6> texts{"", ", IPv4", ", PPPoE", ", ARP", ", IPv6", ", EAPOL"};
    return code < texts.size() ? texts.at(code) : ", Ethertype code " + number(code);
}

std::string filterText(const VlanRow& row)
{
    const unsigned outer = row[Field::FilterOuterPriority];
    const unsigned inner = row[Field::FilterInnerPriority];
    std::string text;
    if (outer == 15 && inner == 15)
        text = "untagged";
    else if (outer == 14)
        text = "double-tagged, no other rule applies";
    else if (outer == 15 && inner == 14)
        text = "single-tagged, no other rule applies";
    else if (outer == 15)
        text = "single-tagged, " + filterTag("", row[Field::FilterInnerVid], inner, row[Field::FilterInnerTpid]);
    else
        text = "double-tagged, " + filterTag("outer ", row[Field::FilterOuterVid], outer, row[Field::FilterOuterTpid]) +
               ", " + filterTag("inner ", row[Field::FilterInnerVid], inner, row[Field::FilterInnerTpid]);
    return text + ethertype(row[Field::FilterEthertype]);
}

std::string addedVid(unsigned vid)
{
    if (vid == 4096 || vid == 4097)
        return vid == 4096 ? "VID copied from inner" : "VID copied from outer";
    return "VID " + number(vid);
}

std::string addedPriority(unsigned priority)
{
    switch (priority) {
    case 8:
        return " priority copied from inner";
    case 9:
        return " priority copied from outer";
    case 10:
        return " priority from DSCP";
    default:
        return " priority " + number(priority);
    }
}

/// Nothing for a plain tag of TPID 0x8100.
std::string addedTpid(unsigned code)
{
    constexpr std::array<const char*, 8> texts{" (TPID and DE copied from inner)",
                                               " (TPID and DE copied from outer)",
                                               " (output TPID, DE copied from inner)",
                                               " (output TPID, DE copied from outer)",
                                               "",
                                               " (TPID code 5)",
                                               " (output TPID, DE 0)",
                                               " (output TPID, DE 1)"};
    return texts.at(code);
}

std::string addedTag(const char* which, unsigned vid, unsigned priority, unsigned tpid)
{
    return std::string("add ") + which + addedVid(vid) + addedPriority(priority) + addedTpid(tpid);
}

std::string treatmentText(const VlanRow& row)
{
    const unsigned removed = row[Field::RemoveTags];
    if (removed == 3)
        return "discard";
    const bool outer = row[Field::TreatOuterPriority] != 15;
    const bool inner = row[Field::TreatInnerPriority] != 15;
    std::vector<std::string> parts;
    if (removed > 0)
        parts.push_back("remove " + number(removed) + (removed == 1 ? " tag" : " tags"));
    if (inner)
        parts.push_back(addedTag(outer ? "inner " : "", row[Field::TreatInnerVid], row[Field::TreatInnerPriority],
                                 row[Field::TreatInnerTpid]));
    if (outer)
        parts.push_back(
            addedTag("outer ", row[Field::TreatOuterVid], row[Field::TreatOuterPriority], row[Field::TreatOuterTpid]));
    if (parts.empty())
        return "forward unchanged";
    std::string text = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i)
        text += ", " + parts[i];
    return text;
}

}  // namespace

std::string vlanRowText(const VlanRow& row)
{
    if (row.unset)
        return "take away the rule for: " + filterText(row);
    return filterText(row) + ": " + treatmentText(row);
}

std::string vlanFilterListText(const std::vector<std::uint8_t>& list)
{
    std::size_t end = list.size() / 2 * 2;
    while (end > 0 && list[end - 1] == 0 && list[end - 2] == 0)
        end -= 2;
    std::string text;
    for (std::size_t at = 0; at < end; at += 2) {
        const unsigned tci = static_cast<unsigned>(list[at]) << 8 | list[at + 1];
        text += (text.empty() ? "VID " : ", VID ") + number(tci & 0xFFF);
        if (tci >> 13 != 0)
            text += " priority " + number(tci >> 13);
        if ((tci >> 12 & 1U) != 0)
            text += " DE 1";
    }
    return text.empty() ? "empty" : text;
}

}  // namespace olt
