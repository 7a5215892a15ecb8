#include "implExtended/OmciMeMapperServiceProfile802_1PImplExtended.h"

#include <algorithm>

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/DataPath.h"

namespace {

using Mapper = OmciMeMapperServiceProfile802_1PIf;

struct PbitPointer
{
    unsigned short (Mapper::*get)(EnumOmciAction) const;
    unsigned short (Mapper::*getDefault)() const;
};

constexpr PbitPointer kPointers[] = {
    {&Mapper::getInterworkTpPointerForPBitPriority0, &Mapper::getDefaultInterworkTpPointerForPBitPriority0},
    {&Mapper::getInterworkTpPointerForPBitPriority1, &Mapper::getDefaultInterworkTpPointerForPBitPriority1},
    {&Mapper::getInterworkTpPointerForPBitPriority2, &Mapper::getDefaultInterworkTpPointerForPBitPriority2},
    {&Mapper::getInterworkTpPointerForPBitPriority3, &Mapper::getDefaultInterworkTpPointerForPBitPriority3},
    {&Mapper::getInterworkTpPointerForPBitPriority4, &Mapper::getDefaultInterworkTpPointerForPBitPriority4},
    {&Mapper::getInterworkTpPointerForPBitPriority5, &Mapper::getDefaultInterworkTpPointerForPBitPriority5},
    {&Mapper::getInterworkTpPointerForPBitPriority6, &Mapper::getDefaultInterworkTpPointerForPBitPriority6},
    {&Mapper::getInterworkTpPointerForPBitPriority7, &Mapper::getDefaultInterworkTpPointerForPBitPriority7},
};

}  // namespace

#define NRVK_PBIT_SETTER(pbit)                                                                                         \
    int OmciMeMapperServiceProfile802_1PImplExtended::setInterworkTpPointerForPBitPriority##pbit(unsigned short value) \
    {                                                                                                                  \
        NRVK_LOG(6, "InterworkTpPointerForPBitPriority" #pbit "(%hu)", value);                                         \
        const unsigned short old = getInterworkTpPointerForPBitPriority##pbit(OMCI_ACTION_GET);                        \
        recordOldPointer(pbit, old);                                                                                   \
        OmciMeMapperServiceProfile802_1PImpl::setInterworkTpPointerForPBitPriority##pbit(value);                       \
        return setInterworkTpPointer(old, value, getDefaultInterworkTpPointerForPBitPriority##pbit());                 \
    }

NRVK_PBIT_SETTER(0)
NRVK_PBIT_SETTER(1)
NRVK_PBIT_SETTER(2)
NRVK_PBIT_SETTER(3)
NRVK_PBIT_SETTER(4)
NRVK_PBIT_SETTER(5)
NRVK_PBIT_SETTER(6)
NRVK_PBIT_SETTER(7)

int OmciMeMapperServiceProfile802_1PImplExtended::setInterworkTpPointer(unsigned short old, unsigned short newValue,
                                                                        unsigned short defaultValue)
{
    NRVK_LOG(6, "Interworking pointers(old-%hu; new-%hu; default-%hu)", old, newValue, defaultValue);
    return 0;
}

int OmciMeMapperServiceProfile802_1PImplExtended::setDscpToPBitMapping(const unsigned char* value)
{
    OmciMeMapperServiceProfile802_1PImpl::setDscpToPBitMapping(value);
    m_DscpChanged = true;
    return 0;
}

unsigned short OmciMeMapperServiceProfile802_1PImplExtended::getOldInterworkingTpForPbit(unsigned short pbit) const
{
    NRVK_LOG(6, "P-bit(%hu)", pbit);
    if (pbit < kPbits && m_RecordedPbits[pbit]) {
        return m_OldPointers[pbit];
    }
    return getDefaultInterworkTpPointerForPBitPriority0();
}

int OmciMeMapperServiceProfile802_1PImplExtended::applyConfigurationToHardwareForSet()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    const bool added = findAddedPointer();
    if (m_DscpChanged) {
        m_DscpChanged = false;
        applyDscpMapping();
    } else if (added) {
        provision();
    } else if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeMapperInterworkingTps(this, getDefaultInterworkTpPointerForPBitPriority0());
    }
    m_RecordedPbits.reset();
    return 0;
}

int OmciMeMapperServiceProfile802_1PImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    nrvk::removeBridgePortService(m_ManagedEntityInstance);
    return 0;
}

void OmciMeMapperServiceProfile802_1PImplExtended::recordOldPointer(unsigned short pbit, unsigned short pointer)
{
    // The first value since the last apply is the one that the hardware layer still works with.
    if (!m_RecordedPbits[pbit]) {
        m_RecordedPbits.set(pbit);
        m_OldPointers[pbit] = pointer;
    }
}

bool OmciMeMapperServiceProfile802_1PImplExtended::findAddedPointer()
{
    bool added = false;
    for (unsigned short pbit = 0; pbit < kPbits; ++pbit) {
        // Deliberate: an untouched p-bit counts as having had TP 0, which tells it from one that had none.
        recordOldPointer(pbit, 0);
        const PbitPointer& pointer = kPointers[pbit];
        const unsigned short old = m_OldPointers[pbit];
        const unsigned short current = (this->*pointer.get)(OMCI_ACTION_GET);
        if (current != old && old == (this->*pointer.getDefault)()) {
            added = true;
        }
    }
    return added;
}

void OmciMeMapperServiceProfile802_1PImplExtended::applyDscpMapping()
{
    const bool isEmpty = std::all_of(m_DscpToPBitMapping.begin(), m_DscpToPBitMapping.end(),
                                     [](unsigned char byte) { return byte == 0; });
    if (isEmpty) {
        NRVK_LOG(6, "Empty DSCPtoPbit string received. Ignore provisioning.");
        return;
    }
    provision();
}

void OmciMeMapperServiceProfile802_1PImplExtended::provision()
{
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->provisionMapper(this);
    }
}
