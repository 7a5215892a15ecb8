#include "implExtended/VlanTaggingRow.h"

#include <tuple>
#include <type_traits>

namespace nrvk {

namespace {

unsigned int word(const unsigned char* bytes)
{
    return static_cast<unsigned int>(bytes[0]) << 24 | static_cast<unsigned int>(bytes[1]) << 16 |
           static_cast<unsigned int>(bytes[2]) << 8 | bytes[3];
}

/// Bits `high` down to `low` of a word.
template <unsigned int High, unsigned int Low>
auto bits(unsigned int value)
{
    constexpr unsigned int width = High - Low + 1;
    using Field = std::conditional_t<width <= 8, unsigned char, unsigned short>;
    return static_cast<Field>(value >> Low & ((1U << width) - 1));
}

}  // namespace

RecVlanTagFilData decodeVlanTaggingRow(const unsigned char* row)
{
    const unsigned int outerFilter = word(row);
    const unsigned int innerFilter = word(row + 4);
    const unsigned int outerTreatment = word(row + 8);
    const unsigned int innerTreatment = word(row + 12);

    RecVlanTagFilData rule{};
    rule.FOP = bits<31, 28>(outerFilter);
    rule.FOV = bits<27, 15>(outerFilter);
    rule.FOT = bits<14, 12>(outerFilter);
    rule.pad1 = bits<11, 0>(outerFilter);

    rule.FIP = bits<31, 28>(innerFilter);
    rule.FIV = bits<27, 15>(innerFilter);
    rule.FIT = bits<14, 12>(innerFilter);
    rule.pad2 = bits<11, 4>(innerFilter);
    rule.FET = bits<3, 0>(innerFilter);

    rule.TTR = bits<31, 30>(outerTreatment);
    rule.pad3 = bits<29, 20>(outerTreatment);
    rule.TOP = bits<19, 16>(outerTreatment);
    rule.TOV = bits<15, 3>(outerTreatment);
    rule.TOT = bits<2, 0>(outerTreatment);

    rule.pad4 = bits<31, 20>(innerTreatment);
    rule.TIP = bits<19, 16>(innerTreatment);
    rule.TIV = bits<15, 3>(innerTreatment);
    rule.TIT = bits<2, 0>(innerTreatment);
    return rule;
}

bool isUnsetFrame(const RecVlanTagFilData& rule)
{
    return rule.TTR == 3 && rule.pad3 == 0x3FF && rule.TOP == 15 && rule.TOV == 0x1FFF && rule.TOT == 7 &&
           rule.pad4 == 0xFFF && rule.TIP == 15 && rule.TIV == 0x1FFF && rule.TIT == 7;
}

bool hasSameFilter(const RecVlanTagFilData& a, const RecVlanTagFilData& b)
{
    const auto filter = [](const RecVlanTagFilData& rule) {
        return std::tie(rule.FOP, rule.FOV, rule.FOT, rule.FIP, rule.FIV, rule.FIT, rule.FET);
    };
    return filter(a) == filter(b);
}

}  // namespace nrvk
