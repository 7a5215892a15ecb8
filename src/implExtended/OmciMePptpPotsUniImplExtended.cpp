#include "implExtended/OmciMePptpPotsUniImplExtended.h"

#include <cstring>

#include "impl/Log.h"
#include "implExtended/Refusal.h"

int OmciMePptpPotsUniImplExtended::setAdministrativeState(unsigned char value)
{
    if (value > 2) {
        return nrvk::refuse("Invalid administrative state(%hhu)", value);
    }
    m_ShadowAdministrativeState.keep(m_AdministrativeState);
    return OmciMePptpPotsUniImpl::setAdministrativeState(value);
}

int OmciMePptpPotsUniImplExtended::setImpedence(unsigned char value)
{
    if (value > 4) {
        return nrvk::refuse("Invalid impedance (%u)", value);
    }
    m_ShadowImpedence.keep(m_Impedence);
    return OmciMePptpPotsUniImpl::setImpedence(value);
}

int OmciMePptpPotsUniImplExtended::setTransmissionPath(unsigned char value)
{
    m_ShadowTransmissionPath.keep(m_TransmissionPath);
    return OmciMePptpPotsUniImpl::setTransmissionPath(value);
}

int OmciMePptpPotsUniImplExtended::setRxGain(signed char value)
{
    m_ShadowRxGain.keep(m_RxGain);
    return OmciMePptpPotsUniImpl::setRxGain(value);
}

int OmciMePptpPotsUniImplExtended::setTxGain(signed char value)
{
    m_ShadowTxGain.keep(m_TxGain);
    return OmciMePptpPotsUniImpl::setTxGain(value);
}

int OmciMePptpPotsUniImplExtended::setNominalFeedVoltage(unsigned char value)
{
    NRVK_LOG(6, "nominalFeedVoltage (%hhu)", value);
    return 0;
}

void OmciMePptpPotsUniImplExtended::refresh(EnumOmciAction action) const
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->refreshPotsUni(action, m_ManagedEntityInstance);
    }
}

unsigned char OmciMePptpPotsUniImplExtended::getOperationalState(EnumOmciAction action) const
{
    refresh(action);
    return OmciMePptpPotsUniImpl::getOperationalState(OMCI_ACTION_GET);
}

unsigned char OmciMePptpPotsUniImplExtended::getHookState(EnumOmciAction action) const
{
    refresh(action);
    return OmciMePptpPotsUniImpl::getHookState(OMCI_ACTION_GET);
}

int OmciMePptpPotsUniImplExtended::applyConfigurationToHardwareForSet()
{
    bool changed = m_ShadowAdministrativeState.follow(m_AdministrativeState);
    changed |= m_ShadowImpedence.follow(m_Impedence);
    changed |= m_ShadowTransmissionPath.follow(m_TransmissionPath);
    changed |= m_ShadowRxGain.follow(m_RxGain);
    changed |= m_ShadowTxGain.follow(m_TxGain);
    if (OmciHardwareIfc* hardware = nrvk::hardwareIfChanged(changed)) {
        const unsigned char bytes[] = {m_ShadowAdministrativeState.get(), m_ShadowImpedence.get(),
                                       m_ShadowTransmissionPath.get(),
                                       static_cast<unsigned char>(m_ShadowRxGain.get())};
        unsigned int word = 0;
        static_assert(sizeof word == sizeof bytes);
        std::memcpy(&word, bytes, sizeof word);
        hardware->applyPotsUni(m_ManagedEntityInstance, word, static_cast<unsigned char>(m_ShadowTxGain.get()));
    }
    return 0;
}

int OmciMePptpPotsUniImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    return 0;
}
