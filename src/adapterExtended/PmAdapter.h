#ifndef NRVK_ADAPTER_EXTENDED_PM_ADAPTER_H
#define NRVK_ADAPTER_EXTENDED_PM_ADAPTER_H

#include "OmciMe.h"
#include "adapterExtended/PmRefresh.h"

/// The actions that adapters of PM entities serve beyond those of every adapter; an adapter is a stack of the pieces
/// below on its class's generated adapter.
namespace nrvk {

/// Get current data goes the way of a Get; the action that reaches getAttribute tells the two apart.
template <typename Adapter>
class PmAdapter : public Adapter
{
public:
    int getCurrentData(OmciFrame* frame) const override { return this->OmciMe::getAttribute(frame); }
};

/// Tells the hardware layer of an instance that was made or deleted; the result is not looked at.
void announcePmInstance(unsigned short classId, unsigned short instance);
void withdrawPmInstance(unsigned short classId, unsigned short instance);

/// The hardware layer learns of an instance after the store has it, and forgets it after the store has dropped it.
template <typename Adapter>
class AnnouncedPmAdapter : public PmAdapter<Adapter>
{
public:
    int createManagedEntityInstance(unsigned short instance, bool createdByOlt) const override
    {
        const int result = Adapter::createManagedEntityInstance(instance, createdByOlt);
        if (result == 0) {
            announcePmInstance(this->description().entity.classId, instance);
        }
        return result;
    }

    int deleteManagedEntityInstance(unsigned short instance, bool createdByOlt) const override
    {
        const int result = Adapter::deleteManagedEntityInstance(instance, createdByOlt);
        if (result == 0) {
            withdrawPmInstance(this->description().entity.classId, instance);
        }
        return result;
    }
};

/// A GEM port's counters are refreshed at each attribute; a read fails when the GEM port is not there or has no id.
template <typename Base>
class GemPortPmAdapter : public Base
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override
    {
        if (refreshGemPortPm(this->description().entity.classId, instance, action) != 0) {
            return -1;
        }
        return Base::getAttribute(instance, definition, buffer, action);
    }
};

/// A bridge port's counters are refreshed once for a whole read, with the interval end time, which then fails when the
/// port is not on an Ethernet UNI.
template <typename Base>
class BridgePortPmAdapter : public Base
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override
    {
        constexpr unsigned short intervalEndTime = 0x8000;
        if (definition != nullptr && definition->attributeMask == intervalEndTime &&
            refreshBridgePortPm(this->description().entity.classId, instance, action) != 0) {
            return -1;
        }
        return Base::getAttribute(instance, definition, buffer, action);
    }
};

}  // namespace nrvk

#endif
