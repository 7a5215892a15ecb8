#include "Describe.h"

#include <stdexcept>

#include "Logger.h"
#include "MibAccess.h"
#include "OmciManagedEntityRegistrar.h"
#include "OnuInstances.h"
#include "host/LogSink.h"

namespace {
constexpr unsigned int kHighestClass = 0xFFFF;
constexpr unsigned short kFreshInstance = 0;

/// Collects the names of the functions that log while it lives.
class FunctionNames
{
public:
    FunctionNames() { Logger::getInstance(omci::kLibraryLoggerId)->setObserver(take, this); }
    ~FunctionNames() { Logger::getInstance(omci::kLibraryLoggerId)->setObserver(nullptr, nullptr); }
    FunctionNames(const FunctionNames&) = delete;
    FunctionNames& operator=(const FunctionNames&) = delete;

    void clear() { m_Names.clear(); }
    /// The name behind "getDefault" or "get" of the first getter that is the dumped name in other letters; else the
    /// dumped name.
    std::string attributeName(const std::string& dumpedName) const
    {
        for (const std::string prefix : {"getDefault", "get"}) {
            for (const std::string& name : m_Names) {
                if (name.rfind(prefix, 0) == 0 && isSameName(name.substr(prefix.size()), dumpedName)) {
                    return name.substr(prefix.size());
                }
            }
        }
        return dumpedName;
    }

private:
    static void take(const Logger::Line& line, void* context)
    {
        static_cast<FunctionNames*>(context)->m_Names.push_back(line.function);
    }

    std::vector<std::string> m_Names;
};

void registerAllClasses()
{
    for (unsigned int classId = 0; classId <= kHighestClass; ++classId) {
        OmciManagedEntityRegistrar::getInstance()->registerManagedEntity(static_cast<unsigned short>(classId));
    }
}

void makeFreshInstance(const OmciMe& me)
{
    if (!createInstanceOfOnu(me.getManagedEntityClassId(), kFreshInstance)) {
        throw std::runtime_error("class " + std::to_string(me.getManagedEntityClassId()) + " makes no instance");
    }
}

bool isOltCreatable(OmciMe& me)
{
    // A class that refuses does so even when the instance exists.
    return me.createManagedEntityInstance(kFreshInstance, true) == 0;
}

bool isNumber(const attributeDefinition& definition)
{
    return definition.attributeKind != ATTRIBUTE_KIND_UNSIGNED_8 || definition.attributeSize == 1;
}

/// What a fresh instance holds, network byte order; a table its row count. Numbers come from the store: a getter may
/// ask the hardware, which is not there.
std::vector<unsigned char> defaultOf(const OmciMe& me, const attributeDefinition& definition)
{
    constexpr std::size_t rowCountSize = 4;
    const bool isTable = definition.isTableAttribute != 0;
    if (!isTable && !isNumber(definition)) {
        return mib::getAttribute(me, kFreshInstance, definition, OMCI_ACTION_GET)
            .value_or(std::vector<unsigned char>());
    }
    unsigned long long number =
        mib::storedNumber(me.getManagedEntityClassId(), kFreshInstance, definition.attributeMask).value_or(0);
    std::vector<unsigned char> octets(isTable ? rowCountSize : definition.attributeSize);
    for (std::size_t place = octets.size(); place != 0; --place) {
        octets[place - 1] = static_cast<unsigned char>(number);
        number >>= 8;
    }
    return octets;
}

Json describeAttribute(const OmciMe& me, const attributeDefinition& definition, const std::vector<unsigned char>& value,
                       const FunctionNames& names)
{
    const std::string dumped = mib::dumpedName(me, kFreshInstance, definition.attributeMask);
    return {{"name", names.attributeName(dumped)},       {"mask", definition.attributeMask},
            {"size", definition.attributeSize},          {"kind", static_cast<unsigned int>(definition.attributeKind)},
            {"table", definition.isTableAttribute != 0}, {"table_write_mode", definition.tableWriteMode},
            {"flags", definition.attributeFlags},        {"default", toHex(value)}};
}

Json describeClass(OmciMe& me, FunctionNames& names)
{
    // Making an instance and reading it is what the getters' names come out of.
    names.clear();
    makeFreshInstance(me);
    const std::vector<attributeDefinition> definitions = mib::attributesOf(me);
    std::vector<std::vector<unsigned char>> defaults;
    for (const attributeDefinition& definition : definitions) {
        defaults.push_back(defaultOf(me, definition));
    }
    for (const attributeDefinition& definition : definitions) {
        mib::getAttribute(me, kFreshInstance, definition, OMCI_ACTION_GET);
    }
    Json attributes = Json::array();
    for (std::size_t place = 0; place < definitions.size(); ++place) {
        attributes.push_back(describeAttribute(me, definitions[place], defaults[place], names));
    }
    return {{"class", me.getManagedEntityClassId()},
            {"name", me.getManagedEntityName()},
            {"set_mask", me.getSetAttributesMask()},
            {"get_mask", me.getGetAttributesMask()},
            {"get_next_mask", me.getGetNextAttributesMask()},
            {"create_mask", me.getCreateAttributesMask()},
            {"mib_upload", me.isPartOfMibUpload()},
            {"alarm_upload", me.isPartOfAlarmsUpload()},
            {"olt_creatable", isOltCreatable(me)},
            {"attributes", attributes}};
}
}  // namespace

Json describeClasses()
{
    // The many classes that do not exist are refused in the log, line by line.
    Logger::getInstance(omci::kLibraryLoggerId)->setLevel(0);
    registerAllClasses();
    FunctionNames names;
    Json classes = Json::array();
    for (OmciMe* me : mib::registeredClasses()) {
        classes.push_back(describeClass(*me, names));
    }
    return classes;
}
