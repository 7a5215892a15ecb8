#ifndef NRVK_IMPL_MANAGED_ENTITY_DESCRIPTION_H
#define NRVK_IMPL_MANAGED_ENTITY_DESCRIPTION_H

#include <atomic>
#include <string>

#include "attributeDefinition.h"
#include "impl/Log.h"

namespace nrvk {

/// What a getter yields and a setter takes.
enum class AttributeForm : unsigned char
{
    U8,
    U16,
    U32,
    U64,
    S8,
    S16,
    Octets,
    Table  ///< set appends a row, get yields a size
};

/// One attribute of a class, as its triple of operations names it.
struct AttributeDescription
{
    const char* name;  ///< "SrIndication", of getSrIndication
    attributeDefinition definition;
};

/// What the shared code needs to know of a class: constant data, and the log names made from it so far.
struct ManagedEntityDescription
{
    unsigned short classId;
    const char* shortName;  ///< "AniG", of OmciMeAniGImpl
    const AttributeDescription* attributes;
    const AttributeForm* forms;
    unsigned char attributeCount;
    /// The source file of the class and the line of this description, for log lines of shared code.
    LogName file;
    unsigned int line;
    /// One name per attribute and operation, null until its first log line.
    std::atomic<const std::string*>* functionNames;
};

/// Get, get default and set.
constexpr unsigned int kAttributeOperations = 3;

/// Where an attribute's operation stands, in one number: a plain operation loads one constant less.
constexpr unsigned int logPlace(unsigned int attribute, unsigned int line)
{
    return line << 8 | attribute;
}

/// The level 6 entry line of an attribute's operation, with the value where there is one to show. Each yields what the
/// operation itself does (the value, or 0 for a set), in its own type, so that a plain operation is nothing but a jump
/// to here and needs neither a frame nor unwind tables. `place` is what logPlace gives.
#define NRVK_ATTRIBUTE_LINES(Value)                                                                                    \
    Value logGet(unsigned short instance, Value value, const ManagedEntityDescription& description,                    \
                 unsigned int place);                                                                                  \
    Value logGetDefault(unsigned short instance, Value value, const ManagedEntityDescription& description,             \
                        unsigned int place);                                                                           \
    int logSet(unsigned short instance, Value value, const ManagedEntityDescription& description, unsigned int place);

NRVK_ATTRIBUTE_LINES(unsigned char)
NRVK_ATTRIBUTE_LINES(unsigned short)
NRVK_ATTRIBUTE_LINES(unsigned int)
NRVK_ATTRIBUTE_LINES(unsigned long long)
NRVK_ATTRIBUTE_LINES(signed char)
NRVK_ATTRIBUTE_LINES(short)
#undef NRVK_ATTRIBUTE_LINES

/// Octets are not rendered: that would cost on every call what a dump shows on request. Nor is a table's row.
const unsigned char* logGet(unsigned short instance, const unsigned char* octets,
                            const ManagedEntityDescription& description, unsigned int place);
const unsigned char* logGetDefault(unsigned short instance, const unsigned char* octets,
                                   const ManagedEntityDescription& description, unsigned int place);
int logSet(unsigned short instance, const ManagedEntityDescription& description, unsigned int place);

// The format is a literal at every NRVK_LOG_FOR_CLASS; here it is not one any more.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
/// A line of shared code in the name of the class: the class's file, the shared function's name.
template <typename... Arguments>
[[gnu::noinline]] void logForClassAt(const LogName& function, const LogName& file, unsigned int line,
                                     unsigned char level, const char* format, Arguments... arguments)
{
    if (isDropped(level)) {
        return;
    }
    logger().writeToLog(0, function.get(), file.get(), line, level, format, arguments...);
}
#pragma GCC diagnostic pop

template <typename... Arguments>
inline void logForClass(const LogName& function, const LogName& file, unsigned int line, unsigned char level,
                        const char* format, Arguments... arguments)
{
    logForClassAt(function, file, line, level, format, logArgument(arguments)...);
}

}  // namespace nrvk

/// NRVK_LOG_FOR_CLASS(description, level, format, arguments...): as NRVK_LOG, with the class's own file and line.
#define NRVK_LOG_FOR_CLASS(description, level, ...)                                                                    \
    do {                                                                                                               \
        if (!::nrvk::isDropped(level)) {                                                                               \
            static const ::nrvk::LogName nrvkFunction(__func__);                                                       \
            ::nrvk::logForClass(nrvkFunction, (description).file, (description).line, level, __VA_ARGS__);             \
        }                                                                                                              \
    } while (false)

#endif
