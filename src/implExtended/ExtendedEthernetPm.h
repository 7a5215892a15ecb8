#ifndef NRVK_IMPL_EXTENDED_EXTENDED_ETHERNET_PM_H
#define NRVK_IMPL_EXTENDED_EXTENDED_ETHERNET_PM_H

#include <array>

#include "implExtended/PerformanceMonitoring.h"

namespace nrvk {

/// The control block of the extended Ethernet PM entities (G.988 9.3.32): 16 bytes, numbers most significant byte
/// first. Every field is stored; those below have an effect here.
class PmControlBlock
{
public:
    static constexpr std::size_t kSize = 16;

    /// `bytes` must outlive this view of them.
    explicit PmControlBlock(const unsigned char* bytes) : m_Bytes(bytes) {}

    unsigned short parentClass() const;
    unsigned short parentInstance() const;
    /// Deliberate: byte 4 in both halves. The 32-bit entity has always found its parent so, and right only where both
    /// bytes of the parent's id are equal (0x0101, 0x0202).
    unsigned short parentInstanceOfDoubledByte() const;
    bool clearsCounters() const;
    /// 0 with continuous accumulation; else 1 for Set and get current data, 2 for any other action.
    unsigned int statsAction(EnumOmciAction action) const;

private:
    const unsigned char* m_Bytes;
};

/// Whether the Ethernet UNI exists; logs it when not.
bool hasParentUni(unsigned short instance);

void logParentClass(unsigned short parentClass);

void clearExtendedEthernetPm(unsigned short instance, unsigned int statsAction);

void refreshExtendedEthernetPm(unsigned short classId, unsigned short instance, unsigned int statsAction);

constexpr unsigned short kNoInstance = 0xFFFF;
constexpr unsigned short kPptpEthernetUniClass = 11;

/// What the 32-bit and the 64-bit extended Ethernet PM have in common: the control block, and a refresh at each read of
/// a counter.
template <typename Impl>
class ExtendedEthernetPm : public RegisteredPm<Impl>
{
public:
    using RegisteredPm<Impl>::RegisteredPm;

    /// Looks the start-up row up once more, as it always has; the instance stays in the picture.
    ~ExtendedEthernetPm() override { lookUpDefaultConfig(Impl::m_Description.classId, this->m_ManagedEntityInstance); }

    /// Deliberate: 0 even for a parent that does not exist, which is only logged.
    int setControlBlock(const unsigned char* value) override
    {
        Impl::setControlBlock(value);
        const PmControlBlock controlBlock(this->m_ControlBlock.data());
        takeParent(controlBlock);
        if (controlBlock.clearsCounters()) {
            clearExtendedEthernetPm(this->m_ManagedEntityInstance, getStatsAction(OMCI_ACTION_SET));
        }
        return 0;
    }

    /// What the hardware layer is told to refresh for an OMCI action.
    unsigned int getStatsAction(EnumOmciAction action) const
    {
        return PmControlBlock(this->m_ControlBlock.data()).statsAction(action);
    }

protected:
    virtual void takeParent(const PmControlBlock& controlBlock) = 0;

    void refresh(EnumOmciAction action) const
    {
        refreshExtendedEthernetPm(Impl::m_Description.classId, this->m_ManagedEntityInstance, getStatsAction(action));
    }
};

}  // namespace nrvk

#endif
