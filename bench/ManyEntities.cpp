#include "ManyEntities.h"

#include <iterator>

#include "Mib.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"

namespace bench {

namespace {

constexpr unsigned short kClasses[] = {47, 84, 266, 268};
/// Above all instances of the ONU's own.
constexpr unsigned int kFirstInstance = 0x2000;

/// The entity of that number in a walk over the classes.
struct Entity
{
    explicit Entity(unsigned int number)
        : me(adapter(kClasses[number % std::size(kClasses)])),
          instance(static_cast<unsigned short>(kFirstInstance + number / std::size(kClasses)))
    {}

    const OmciMe& me;
    unsigned short instance;
};

}  // namespace

ManyEntities::ManyEntities(unsigned int count) : m_Count(count)
{
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(this);
    create();
}

ManyEntities::~ManyEntities()
{
    for (unsigned int number = 0; number < m_Count; ++number) {
        const Entity entity(number);
        if (entity.me.findManagedEntityInstance(entity.instance) == 0) {
            entity.me.deleteManagedEntityInstance(entity.instance, true);
        }
    }
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(nullptr);
}

void ManyEntities::create() const
{
    for (unsigned int number = 0; number < m_Count; ++number) {
        const Entity entity(number);
        entity.me.createManagedEntityInstance(entity.instance, true);
    }
}

}  // namespace bench
