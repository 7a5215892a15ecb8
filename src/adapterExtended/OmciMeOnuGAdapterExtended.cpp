#include "adapterExtended/OmciMeOnuGAdapterExtended.h"

#include "OmciFrame.h"
#include "adapterExtended/SelfTest.h"
#include "impl/Hardware.h"
#include "impl/Log.h"
#include "impl/Shell.h"

namespace {

constexpr unsigned char kSuccess = 0;
constexpr unsigned char kUnknownInstance = 5;

void reply(OmciFrame& frame, unsigned char result)
{
    frame.setFrameToSendBackToOLT(result, 0, 0, 0, nullptr, 0);
}

}  // namespace

bool OmciMeOnuGAdapterExtended::isForInstance(OmciFrame* frame) const
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return false;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    if (findManagedEntityInstance(instance) != 0) {
        reply(*frame, kUnknownInstance);
        NRVK_LOG(3, "Instance(%hu) doesn't exists", instance);
        return false;
    }
    return true;
}

int OmciMeOnuGAdapterExtended::reboot(OmciFrame* frame) const
{
    NRVK_LOG(6, "Frame(%p)", frame);
    if (!isForInstance(frame)) {
        return -1;
    }
    reply(*frame, kSuccess);
    NRVK_LOG(2, "Request to reboot system accepted");
    // The system log lives in memory.
    nrvk::runCommand("cp /var/log/messages /home/root/.");
    nrvk::runCommand("reboot");
    return 0;
}

int OmciMeOnuGAdapterExtended::synchronizeTime(OmciFrame* frame) const
{
    NRVK_LOG(6, "Frame(%p)", frame);
    if (!isForInstance(frame)) {
        return -1;
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->synchronizeTime();
    }
    reply(*frame, kSuccess);
    return 0;
}

int OmciMeOnuGAdapterExtended::test(OmciFrame* frame) const
{
    static constexpr nrvk::SelfTest selfTest = {" Transacton ID for UNIG Test (%hu)", " calling self test from UNIG ",
                                                &OmciHardwareIfc::testOnu};
    return nrvk::startSelfTest(selfTest, frame);
}
