#include "implExtended/OmciMeRTPProfileDataImplExtended.h"

#include "implExtended/Refusal.h"

int OmciMeRTPProfileDataImplExtended::setPiggybackEvents(unsigned char value)
{
    if (value > 1) {
        return nrvk::refuse("Invalid piggybackEvents state(%hhu)", value);
    }
    return value == m_PiggybackEvents ? 0 : OmciMeRTPProfileDataImpl::setPiggybackEvents(value);
}

int OmciMeRTPProfileDataImplExtended::setToneEvents(unsigned char value)
{
    if (value > 1) {
        return nrvk::refuse("Invalid Tone Events state(%hhu)", value);
    }
    return value == m_ToneEvents ? 0 : OmciMeRTPProfileDataImpl::setToneEvents(value);
}

int OmciMeRTPProfileDataImplExtended::setDtmfEvents(unsigned char value)
{
    if (value > 1) {
        return nrvk::refuse("Invalid DTMF Events state(%hhu)", value);
    }
    return value == m_DtmfEvents ? 0 : OmciMeRTPProfileDataImpl::setDtmfEvents(value);
}

int OmciMeRTPProfileDataImplExtended::setCasEvents(unsigned char value)
{
    if (value > 1) {
        return nrvk::refuse("Invalid CAS Events state(%hhu)", value);
    }
    return value == m_CasEvents ? 0 : OmciMeRTPProfileDataImpl::setCasEvents(value);
}
