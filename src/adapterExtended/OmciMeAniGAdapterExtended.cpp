#include "adapterExtended/OmciMeAniGAdapterExtended.h"

#include "adapterExtended/SelfTest.h"

int OmciMeAniGAdapterExtended::test(OmciFrame* frame) const
{
    static constexpr nrvk::SelfTest selfTest = {" Transacton ID for ANIG Test (%hu)", " calling self test from ANIG ",
                                                &OmciHardwareIfc::testAni};
    return nrvk::startSelfTest(selfTest, frame);
}
