#include "implExtended/OmciMeDot1agMEPstatusImplExtended.h"

#include "impl/Log.h"

const unsigned char* OmciMeDot1agMEPstatusImplExtended::getMepMacAddress(EnumOmciAction action) const
{
    NRVK_LOG(6, "Get MepStausMacAddress on Inst %04x", m_ManagedEntityInstance);
    // The address is taken over at each read, so here a getter changes the entity.
    const_cast<OmciMeDot1agMEPstatusImplExtended*>(this)->setMepMacAddress(m_MacAddress.data());
    return OmciMeDot1agMEPstatusImpl::getMepMacAddress(action);
}

unsigned char OmciMeDot1agMEPstatusImplExtended::getFaultNotificationGeneratorState(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get FaultNotifGenState");
    return 0;
}

unsigned char OmciMeDot1agMEPstatusImplExtended::getHighestPriorityDefectObserved(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get HighestPrioDefect");
    return 0;
}

unsigned char OmciMeDot1agMEPstatusImplExtended::getCurrentDefects(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get CurrentDefect");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getOutOfSequenceCcmsCount(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get OosCcmCount");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getCcmsTransmittedCount(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get CcmTxCount");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getUpexpectedLtrsCount(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get UnexpLtCount");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getLbrsTransmittedCount(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get LbTxCount");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getNextLoopbackTransactionIdentifier(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get LbTransIdentifier");
    return 0;
}

unsigned int OmciMeDot1agMEPstatusImplExtended::getNextLinktraceTransactionIdentifier(EnumOmciAction /*action*/) const
{
    NRVK_LOG(6, "Get LtTransIdentifier");
    return 0;
}
