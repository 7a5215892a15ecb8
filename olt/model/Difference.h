#ifndef OLT_MODEL_DIFFERENCE_H
#define OLT_MODEL_DIFFERENCE_H

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Mib.h"

namespace olt {

/// Something that two MIBs, or two answers, don't agree on.
struct Difference
{
    Mib::Key entity;
    std::string attribute;              ///< Empty: the entity as a whole.
    std::optional<std::string> before;  ///< In words; none: it wasn't there.
    std::optional<std::string> after;   ///< None: it isn't there any more.
};

/// What the user doesn't want to hear of.
class Ignored
{
public:
    /// "CLASS.ATTRIBUTE" or "CLASS", each by name or number. Throws UsageError.
    void add(const Catalogue& catalogue, const std::string& text);
    [[nodiscard]] bool covers(std::uint16_t entityClass, const std::string& attribute) const;

private:
    std::set<std::pair<std::uint16_t, std::string>> m_Names;  ///< An empty name stands for the whole class.
};

/// Entities and attributes that differ, in order of class, instance and attribute.
[[nodiscard]] std::vector<Difference> diffMibs(const Mib& before, const Mib& after, const Ignored& ignored);

}  // namespace olt

#endif
