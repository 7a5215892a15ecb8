#ifndef OLT_APP_ARGUMENTS_H
#define OLT_APP_ARGUMENTS_H

#include <string>
#include <vector>

#include "app/Options.h"
#include "session/Operations.h"

namespace olt {

/// The positionals CLASS INSTANCE that many commands begin with.
class EntityArguments
{
public:
    void declare(Options& options);
    /// Throws UsageError.
    [[nodiscard]] EntityId resolve(const Catalogue& catalogue) const;

private:
    std::string m_Class;
    std::string m_Instance;
};

/// The class's attributes of those names or numbers, each once, in attribute order.
[[nodiscard]] std::vector<const Attribute*> resolveAttributes(const EntityClass& entity,
                                                              const std::vector<std::string>& names);

/// "ATTRIBUTE=VALUE" texts, each attribute once; the named fields of a VLAN row count as its attribute, Text=... stands
/// for all parts of a large or octet string. Throws UsageError.
[[nodiscard]] std::vector<AttributeValue> resolveAssignments(const EntityClass& entity,
                                                             const std::vector<std::string>& assignments);

/// 0 to 65535, decimal or 0x. Throws UsageError.
[[nodiscard]] std::uint16_t parseInstance(const std::string& text);

/// How values are written, for the help of the commands that take some.
extern const char* const kValueHelp;

}  // namespace olt

#endif
