#ifndef NRVK_IMPL_INSTANCE_STORE_H
#define NRVK_IMPL_INSTANCE_STORE_H

#include <map>
#include <string>
#include <type_traits>

#include "impl/ManagedEntityDescription.h"

namespace nrvk {

/// How the store handles the objects of one class. Pointers are to the class's OmciMeXIf.
struct InstanceOperations
{
    void* (*make)(unsigned short instance, bool createdByOlt);
    void (*destroy)(void* object);
    bool (*isCreatedByOlt)(const void* object);
    void (*init)(void* object);
    /// Null for a class with no binding to the hardware.
    int (*eraseConfigurationFromHardware)(void* object);
    std::string (*dumpME)(const void* object, unsigned short attributeMask);
    /// Null for a class without companions: entities of other classes that come and go with an instance, under its id.
    int (*createCompanions)(unsigned short instance);
    int (*deleteCompanions)(unsigned short instance);
};

/// Whether `Concrete` makes companions of its instances, through createOmciMeInstance and deleteOmciMeInstance.
template <typename Concrete, typename = void>
inline constexpr bool hasCompanions = false;
template <typename Concrete>
inline constexpr bool hasCompanions<Concrete, std::void_t<decltype(&Concrete::createOmciMeInstance)>> = true;

/// The instances of one class, in ascending order of their ids; owns them. Not synchronised.
///
/// One piece of code for all classes; OmciMeXIf puts the types on.
class InstanceStore
{
public:
    constexpr InstanceStore(const ManagedEntityDescription& description, const InstanceOperations& operations)
        : m_Description(description), m_Operations(operations)
    {}

    /// The instance of that id, made when it is not there; an existing one is left as it is.
    void* createManagedEntityInstance(unsigned short instance, bool createdByOlt);
    /// False when there is no such instance. An instance made by the other side stays, and the result is true.
    bool deleteManagedEntityInstance(unsigned short instance, bool createdByOlt);
    /// Null when there is no such instance.
    void* getManagedEntityInstance(unsigned short instance) const;
    /// The same in line, for the road of a Set or Get.
    void* find(unsigned short instance) const
    {
        void* object = lookUp(instance);
        return __builtin_expect(object != nullptr, 1) ? object : logMissing(instance);
    }
    /// The same without a line for the missing one.
    void* lookUp(unsigned short instance) const
    {
        if (m_Instances == nullptr) {
            return nullptr;
        }
        const auto found = m_Instances->find(instance);
        return __builtin_expect(found != m_Instances->end(), 1) ? found->second : nullptr;
    }
    void* getFirstManagedEntityInstance() const;
    /// The first instance strictly above the id, which need not exist.
    void* getNextManagedEntityInstance(unsigned short instance) const;
    /// The ids of the same walk; false at its end.
    bool firstId(unsigned short& instance) const;
    bool nextId(unsigned short& instance) const;
    /// A MIB reset's effect on the class: instances of the OLT go, those of the ONU return to their defaults.
    void eraseAllManagedEntityInstance();
    /// All instances for kAllInstances.
    std::string dumpAllME(unsigned int instance, unsigned short attributeMask) const;

    static constexpr unsigned int kAllInstances = 0xFFFFFFFF;

private:
    using Instances = std::map<unsigned short, void*>;

    /// Null, with the line that says so.
    void* logMissing(unsigned short instance) const;
    /// The first entry at or above `from`, or null; ids are 16 bits wide, so that 0x10000 is the end.
    const Instances::value_type* entryFrom(unsigned int from) const;

    const ManagedEntityDescription& m_Description;
    const InstanceOperations& m_Operations;
    /// Made with the first instance and never destroyed, so that a store needs no start-up code and outlives every
    /// user.
    Instances* m_Instances = nullptr;
};

/// The operations of a class whose interface is `If` and whose objects are `Concrete`.
template <typename If, typename Concrete, bool BoundToHardware>
constexpr InstanceOperations instanceOperations()
{
    InstanceOperations operations{};
    operations.make = [](unsigned short instance, bool createdByOlt) -> void* {
        return static_cast<If*>(new Concrete(instance, createdByOlt));
    };
    operations.destroy = [](void* object) { delete static_cast<If*>(object); };
    operations.isCreatedByOlt = [](const void* object) { return static_cast<const If*>(object)->isCreatedByOlt(); };
    operations.init = [](void* object) { static_cast<If*>(object)->init(); };
    if constexpr (BoundToHardware) {
        operations.eraseConfigurationFromHardware = [](void* object) {
            return static_cast<If*>(object)->eraseConfigurationFromHardware();
        };
    }
    operations.dumpME = [](const void* object, unsigned short attributeMask) {
        return static_cast<const If*>(object)->dumpME(attributeMask);
    };
    if constexpr (hasCompanions<Concrete>) {
        operations.createCompanions = &Concrete::createOmciMeInstance;
        operations.deleteCompanions = &Concrete::deleteOmciMeInstance;
    }
    return operations;
}

}  // namespace nrvk

#endif
