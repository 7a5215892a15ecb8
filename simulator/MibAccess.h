#ifndef SIMULATOR_MIB_ACCESS_H
#define SIMULATOR_MIB_ACCESS_H

#include <optional>
#include <string>
#include <vector>

#include "OmciMe.h"
#include "attributeDefinition.h"

/// The live MIB as the adapters show it.
namespace mib {

/// All classes that are registered, ascending.
std::vector<OmciMe*> registeredClasses();
/// All instances of a class, ascending.
std::vector<unsigned short> instancesOf(const OmciMe& me);

/// All attributes of a class in definition order, from the adapter's lists.
std::vector<attributeDefinition> attributesOf(const OmciMe& me);
std::optional<attributeDefinition> findAttribute(const OmciMe& me, unsigned short attributeMask);

/// The attribute's name as the dump of an existing instance shows it, for example "SR_INDICATION"; empty when the
/// class has no such attribute.
std::string dumpedName(const OmciMe& me, unsigned short instance, unsigned short attributeMask);
/// The stored value of an attribute of up to 64 bits. Asks no hardware. Nothing when there is none.
std::optional<unsigned long long> storedNumber(unsigned short classId, unsigned short instance,
                                               unsigned short attributeMask);

/// Reads one attribute, network byte order; a table gives its 4-byte size. Nothing when the adapter refuses.
std::optional<std::vector<unsigned char>> getAttribute(const OmciMe& me, unsigned short instance,
                                                       const attributeDefinition& definition, EnumOmciAction action);

}  // namespace mib

#endif
