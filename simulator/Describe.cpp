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
    /// The name behind "get" of the first getter that is the dumped name in other letters; else the dumped name.
    std::string attributeName(const std::string& dumpedName) const
    {
        for (const std::string& name : m_Names) {
            if (name.rfind("get", 0) == 0 && isSameName(name.substr(3), dumpedName)) {
                return name.substr(3);
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

Json describeAttribute(const OmciMe& me, const attributeDefinition& definition, FunctionNames& names)
{
    names.clear();
    const auto value = mib::getAttribute(me, kFreshInstance, definition, OMCI_ACTION_GET);
    const std::string dumped = mib::dumpedName(me, kFreshInstance, definition.attributeMask);
    return {{"name", names.attributeName(dumped)},       {"mask", definition.attributeMask},
            {"size", definition.attributeSize},          {"kind", static_cast<unsigned int>(definition.attributeKind)},
            {"table", definition.isTableAttribute != 0}, {"table_write_mode", definition.tableWriteMode},
            {"flags", definition.attributeFlags},        {"default", value ? toHex(*value) : ""}};
}

Json describeClass(OmciMe& me, FunctionNames& names)
{
    makeFreshInstance(me);
    Json attributes = Json::array();
    for (const attributeDefinition& definition : mib::attributesOf(me)) {
        attributes.push_back(describeAttribute(me, definition, names));
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
