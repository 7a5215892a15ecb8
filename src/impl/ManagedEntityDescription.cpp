#include "impl/ManagedEntityDescription.h"

#include <type_traits>

namespace nrvk {

namespace {

enum class Operation : unsigned int
{
    Get,
    GetDefault,
    Set
};

constexpr const char* kPrefixes[kAttributeOperations] = {"get", "getDefault", "set"};

[[gnu::noinline]] const std::string& makeFunctionName(const ManagedEntityDescription& description,
                                                      unsigned int attribute, Operation operation,
                                                      std::atomic<const std::string*>& slot)
{
    const char* prefix = kPrefixes[static_cast<unsigned int>(operation)];
    const std::string& name = internLogName(std::string(prefix) + description.attributes[attribute].name);
    slot.store(&name, std::memory_order_release);
    return name;
}

inline const std::string& functionName(const ManagedEntityDescription& description, unsigned int attribute,
                                       Operation operation)
{
    const unsigned int index = attribute * kAttributeOperations + static_cast<unsigned int>(operation);
    std::atomic<const std::string*>& slot = description.functionNames[index];
    const std::string* name = slot.load(std::memory_order_acquire);
    return __builtin_expect(name != nullptr, 1) ? *name : makeFunctionName(description, attribute, operation, slot);
}

constexpr unsigned char kEntryLevel = 6;

/// Out of line, so that the road of a dropped line needs no frame.
template <typename Value>
[[gnu::noinline, gnu::cold]] void write(Operation operation, unsigned short instance, Value value,
                                        const ManagedEntityDescription& description, unsigned int place)
{
    const std::string& function = functionName(description, place & 0xFF, operation);
    const unsigned int line = place >> 8;
    if constexpr (std::is_pointer_v<Value>) {
        logger().writeToLog(0, function, description.file.get(), line, kEntryLevel, "Instance(%hu)", instance);
    } else {
        logger().writeToLog(0, function, description.file.get(), line, kEntryLevel, "Instance(%hu); Value(%llu)",
                            instance, static_cast<unsigned long long>(value));
    }
}

template <typename Value>
inline Value entryLine(Operation operation, unsigned short instance, Value value,
                       const ManagedEntityDescription& description, unsigned int place)
{
    if (!isDropped(kEntryLevel)) {
        write(operation, instance, value, description, place);
    }
    return value;
}

}  // namespace

#define NRVK_ATTRIBUTE_LINES(Value)                                                                                    \
    Value logGet(unsigned short instance, Value value, const ManagedEntityDescription& description,                    \
                 unsigned int place)                                                                                   \
    {                                                                                                                  \
        return entryLine(Operation::Get, instance, value, description, place);                                         \
    }                                                                                                                  \
    Value logGetDefault(unsigned short instance, Value value, const ManagedEntityDescription& description,             \
                        unsigned int place)                                                                            \
    {                                                                                                                  \
        return entryLine(Operation::GetDefault, instance, value, description, place);                                  \
    }                                                                                                                  \
    int logSet(unsigned short instance, Value value, const ManagedEntityDescription& description, unsigned int place)  \
    {                                                                                                                  \
        entryLine(Operation::Set, instance, value, description, place);                                                \
        return 0;                                                                                                      \
    }

NRVK_ATTRIBUTE_LINES(unsigned char)
NRVK_ATTRIBUTE_LINES(unsigned short)
NRVK_ATTRIBUTE_LINES(unsigned int)
NRVK_ATTRIBUTE_LINES(unsigned long long)
NRVK_ATTRIBUTE_LINES(signed char)
NRVK_ATTRIBUTE_LINES(short)

const unsigned char* logGet(unsigned short instance, const unsigned char* octets,
                            const ManagedEntityDescription& description, unsigned int place)
{
    return entryLine(Operation::Get, instance, octets, description, place);
}

const unsigned char* logGetDefault(unsigned short instance, const unsigned char* octets,
                                   const ManagedEntityDescription& description, unsigned int place)
{
    return entryLine(Operation::GetDefault, instance, octets, description, place);
}

int logSet(unsigned short instance, const ManagedEntityDescription& description, unsigned int place)
{
    constexpr const unsigned char* notShown = nullptr;
    entryLine(Operation::Set, instance, notShown, description, place);
    return 0;
}

}  // namespace nrvk
