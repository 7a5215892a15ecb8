#include "MibAccess.h"

#include <algorithm>
#include <cstdlib>
#include <list>
#include <map>

#include "OmciMeFactory.h"

namespace mib {
namespace {
/// Hosts give every attribute buffer this many spare bytes.
constexpr std::size_t kSpareBytes = 8;
constexpr std::size_t kTableSizeLength = 4;

/// The line of one attribute in a dump: "  SR_INDICATION (1 byte)     = 0".
struct DumpedAttribute
{
    std::string name;
    std::string value;
};

DumpedAttribute dumpAttribute(const OmciMe& me, unsigned short instance, unsigned short attributeMask)
{
    const std::string dump = me.dumpME(instance, attributeMask);
    std::size_t begin = 0;
    while (begin < dump.size()) {
        const std::size_t end = std::min(dump.find('\n', begin), dump.size());
        const std::string line = dump.substr(begin, end - begin);
        begin = end + 1;
        const std::size_t nameEnd = line.find(" (");
        const std::size_t equals = line.find("= ");
        if (line.rfind("  ", 0) == 0 && nameEnd != std::string::npos && equals != std::string::npos) {
            return {line.substr(2, nameEnd - 2), line.substr(equals + 2)};
        }
    }
    return {};
}
}  // namespace

std::vector<OmciMe*> registeredClasses()
{
    std::vector<OmciMe*> classes;
    const OmciMeFactory& factory = *OmciMeFactory::getInstance();
    for (OmciMe* me = factory.getFirstManagedEntity(); me != nullptr;
         me = factory.getNextManagedEntity(me->getManagedEntityClassId())) {
        classes.push_back(me);
    }
    return classes;
}

std::vector<unsigned short> instancesOf(const OmciMe& me)
{
    std::vector<unsigned short> instances;
    unsigned short instance = 0;
    for (int result = me.getFirstManagedEntityInstance(&instance); result == 0;
         result = me.getNextManagedEntityInstance(&instance)) {
        instances.push_back(instance);
    }
    return instances;
}

std::vector<attributeDefinition> attributesOf(const OmciMe& me)
{
    // cppcheck-suppress AssignmentAddressToInteger ; it takes a type of pointers to members for an assignment
    using ListOperation = int (OmciMe::*)(std::list<attributeDefinition>*) const;
    constexpr ListOperation operations[] = {&OmciMe::getAttributesListForGet,    &OmciMe::getAttributesListForSet,
                                            &OmciMe::getAttributesListForCreate, &OmciMe::getAttributesListForMibUpload,
                                            &OmciMe::getAttributesListForAvc,    &OmciMe::getAttributesListForGetNext};
    std::map<unsigned short, attributeDefinition, std::greater<>> found;
    for (const ListOperation operation : operations) {
        std::list<attributeDefinition> list;
        (me.*operation)(&list);
        for (const attributeDefinition& definition : list) {
            found.emplace(definition.attributeMask, definition);
        }
    }
    std::vector<attributeDefinition> attributes;
    for (const auto& entry : found) {
        attributes.push_back(entry.second);
    }
    return attributes;
}

std::optional<attributeDefinition> findAttribute(const OmciMe& me, unsigned short attributeMask)
{
    for (const attributeDefinition& definition : attributesOf(me)) {
        if (definition.attributeMask == attributeMask) {
            return definition;
        }
    }
    return std::nullopt;
}

std::string dumpedName(const OmciMe& me, unsigned short instance, unsigned short attributeMask)
{
    return dumpAttribute(me, instance, attributeMask).name;
}

std::optional<unsigned long long> storedNumber(unsigned short classId, unsigned short instance,
                                               unsigned short attributeMask)
{
    const OmciMe* me = OmciMeFactory::getInstance()->getManagedEntity(classId);
    if (me == nullptr) {
        return std::nullopt;
    }
    const std::string value = dumpAttribute(*me, instance, attributeMask).value;
    if (value.empty()) {
        return std::nullopt;
    }
    return std::strtoull(value.c_str(), nullptr, 10);
}

std::optional<std::vector<unsigned char>> getAttribute(const OmciMe& me, unsigned short instance,
                                                       const attributeDefinition& definition, EnumOmciAction action)
{
    const std::size_t size = definition.isTableAttribute != 0 ? kTableSizeLength : definition.attributeSize;
    std::vector<unsigned char> buffer(std::max(size, kTableSizeLength) + kSpareBytes);
    if (me.getAttribute(instance, &definition, buffer.data(), action) != 0) {
        return std::nullopt;
    }
    buffer.resize(size);
    return buffer;
}

}  // namespace mib
