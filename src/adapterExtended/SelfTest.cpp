#include "adapterExtended/SelfTest.h"

#include "OmciFrame.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

int nrvk::startSelfTest(const SelfTest& test, OmciFrame* frame)
{
    constexpr unsigned char selfTestSelector = 7;
    constexpr int started = 0;
    constexpr int processingError = 1;
    constexpr int parameterError = 3;
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    NRVK_LOG(6, test.transactionText, frame->getTransactionId());
    const unsigned char* contents = frame->getMessageContent();
    if (contents == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return processingError;
    }
    if (contents[0] != selfTestSelector) {
        NRVK_LOG(3, "Detected other than Self-Test (%hu) ", contents[0]);
        return parameterError;
    }
    NRVK_LOG(6, test.startText);
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        (hardware->*test.start)(frame->getTransactionId());
    }
    return started;
}
