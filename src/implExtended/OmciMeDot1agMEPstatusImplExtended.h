#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMEPSTATUSIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGMEPSTATUSIMPLEXTENDED_H

#include <array>

#include "impl/OmciMeDot1agMEPstatusImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag MEP status (G.988 9.3.23, class 303): states and counters read as 0, whatever is stored, since no CFM
/// machinery feeds them.
class OmciMeDot1agMEPstatusImplExtended : public nrvk::DataPathEntity<OmciMeDot1agMEPstatusImpl>
{
public:
    using NoHardware::NoHardware;

    /// Stores the MEP's MAC address, all zeros, and yields what is stored.
    const unsigned char* getMepMacAddress(EnumOmciAction action) const override;
    unsigned char getFaultNotificationGeneratorState(EnumOmciAction action) const override;
    unsigned char getHighestPriorityDefectObserved(EnumOmciAction action) const override;
    unsigned char getCurrentDefects(EnumOmciAction action) const override;
    unsigned int getOutOfSequenceCcmsCount(EnumOmciAction action) const override;
    unsigned int getCcmsTransmittedCount(EnumOmciAction action) const override;
    unsigned int getUpexpectedLtrsCount(EnumOmciAction action) const override;
    unsigned int getLbrsTransmittedCount(EnumOmciAction action) const override;
    unsigned int getNextLoopbackTransactionIdentifier(EnumOmciAction action) const override;
    unsigned int getNextLinktraceTransactionIdentifier(EnumOmciAction action) const override;

private:
    std::array<unsigned char, 6> m_MacAddress{};
};

#endif
