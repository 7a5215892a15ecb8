#include "implExtended/OmciMeVoipVoiceCTPImplExtended.h"

int OmciMeVoipVoiceCTPImplExtended::setSignallingCode(unsigned char value)
{
    if (value < 1 || value > 6) {
        NRVK_LOG(6, "Invalid SIGNALLING CODE (%hu)", value);
        return -1;
    }
    return OmciMeVoipVoiceCTPImpl::setSignallingCode(value);
}
