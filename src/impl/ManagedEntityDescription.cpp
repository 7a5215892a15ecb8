#include "impl/ManagedEntityDescription.h"

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

void logValue(const ManagedEntityDescription& description, unsigned int attribute, Operation operation,
              unsigned int line, unsigned short instance, unsigned long long value)
{
    logger().writeToLog(0, functionName(description, attribute, operation), description.file.get(), line, 6,
                        "Instance(%hu); Value(%llu)", instance, value);
}

/// Octets are not rendered: that would cost on every call what a dump shows on request.
void logInstance(const ManagedEntityDescription& description, unsigned int attribute, Operation operation,
                 unsigned int line, unsigned short instance)
{
    logger().writeToLog(0, functionName(description, attribute, operation), description.file.get(), line, 6,
                        "Instance(%hu)", instance);
}

}  // namespace

unsigned long long logGet(const ManagedEntityDescription& description, unsigned int attribute, unsigned int line,
                          unsigned short instance, unsigned long long value)
{
    logValue(description, attribute, Operation::Get, line, instance, value);
    return value;
}

unsigned long long logGetDefault(const ManagedEntityDescription& description, unsigned int attribute, unsigned int line,
                                 unsigned short instance, unsigned long long value)
{
    logValue(description, attribute, Operation::GetDefault, line, instance, value);
    return value;
}

int logSet(const ManagedEntityDescription& description, unsigned int attribute, unsigned int line,
           unsigned short instance, unsigned long long value)
{
    logValue(description, attribute, Operation::Set, line, instance, value);
    return 0;
}

const unsigned char* logGet(const ManagedEntityDescription& description, unsigned int attribute, unsigned int line,
                            unsigned short instance, const unsigned char* octets)
{
    logInstance(description, attribute, Operation::Get, line, instance);
    return octets;
}

const unsigned char* logGetDefault(const ManagedEntityDescription& description, unsigned int attribute,
                                   unsigned int line, unsigned short instance, const unsigned char* octets)
{
    logInstance(description, attribute, Operation::GetDefault, line, instance);
    return octets;
}

int logSet(const ManagedEntityDescription& description, unsigned int attribute, unsigned int line,
           unsigned short instance)
{
    logInstance(description, attribute, Operation::Set, line, instance);
    return 0;
}

}  // namespace nrvk
