#ifndef NRVK_ADAPTER_EXTENDED_SELF_TEST_H
#define NRVK_ADAPTER_EXTENDED_SELF_TEST_H

#include "OmciHardwareIfc.h"

class OmciFrame;

namespace nrvk {

/// What makes the self-test of one class differ from another's.
struct SelfTest
{
    const char* transactionText;  ///< format of a line with the transaction id
    const char* startText;
    int (OmciHardwareIfc::*start)(unsigned short transactionId);
};

/// OMCI test (G.988 A.2.27) with the self-test alone: starts it and yields the OMCI result for the reply: 0 started,
/// 1 no contents, 3 another test; -1 for no frame. The outcome follows from the hardware layer as a test result with
/// the transaction id.
int startSelfTest(const SelfTest& test, OmciFrame* frame);

}  // namespace nrvk

#endif
