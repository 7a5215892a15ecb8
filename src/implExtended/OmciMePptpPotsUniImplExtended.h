#ifndef NRVK_IMPL_EXTENDED_OMCIMEPPTPPOTSUNIIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEPPTPPOTSUNIIMPLEXTENDED_H

#include "impl/OmciMePptpPotsUniImpl.h"
#include "implExtended/Shadow.h"

/// PPTP POTS UNI (G.988 9.9.1, class 53): its values are checked, and those of the line circuit go to the hardware
/// layer when a Set changes them.
class OmciMePptpPotsUniImplExtended : public OmciMePptpPotsUniImpl
{
public:
    using OmciMePptpPotsUniImpl::OmciMePptpPotsUniImpl;

    /// 0 unlocked, 1 locked, 2 shutting down; -1 for others.
    int setAdministrativeState(unsigned char value) override;
    /// 0 to 4; -1 for others.
    int setImpedence(unsigned char value) override;
    int setTransmissionPath(unsigned char value) override;
    int setRxGain(signed char value) override;
    int setTxGain(signed char value) override;
    /// Deliberate: answers 0 and stores nothing, since the feed voltage of this hardware is fixed.
    int setNominalFeedVoltage(unsigned char value) override;
    unsigned char getOperationalState(EnumOmciAction action) const override;
    unsigned char getHookState(EnumOmciAction action) const override;

    /// applyPotsUni when one of the five shadowed values changed; always 0.
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    void refresh(EnumOmciAction action) const;

    nrvk::Shadow<unsigned char> m_ShadowAdministrativeState{m_AdministrativeState};
    nrvk::Shadow<unsigned char> m_ShadowImpedence{m_Impedence};
    nrvk::Shadow<unsigned char> m_ShadowTransmissionPath{m_TransmissionPath};
    nrvk::Shadow<signed char> m_ShadowRxGain{m_RxGain};
    nrvk::Shadow<signed char> m_ShadowTxGain{m_TxGain};
};

#endif
