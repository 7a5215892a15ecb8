#include "implExtended/OmciMeOltGImplExtended.h"

#include <cstring>

#include "OmciManagedEntitiesCore.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

constexpr unsigned int kUnknownVendor = 0x20202020;  // four blanks
constexpr unsigned int kOwnVendor = 0x4E525652;      // "NRVR"

}  // namespace

int OmciMeOltGImplExtended::setOltVendorId(unsigned int value)
{
    OmciMeOltGImpl::setOltVendorId(value);
    if (value != kUnknownVendor) {
        OmciManagedEntitiesCore(OmciManagedEntitiesCore::WithoutRecords{})
            .swapSubtendedHostInstanceId(value == kOwnVendor);
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->notifyOltVendorId();
    }
    return 0;
}

int OmciMeOltGImplExtended::setTimeOfDayInformation(const unsigned char* value)
{
    OmciMeOltGImpl::setTimeOfDayInformation(value);
    unsigned int superFrameCounter = 0;
    unsigned long long seconds = 0;
    unsigned int nanoseconds = 0;
    // No byte is swapped: the optical layer takes the fields in the order of the wire.
    std::memcpy(&superFrameCounter, value, 4);
    std::memcpy(&seconds, value + 4, 6);
    std::memcpy(&nanoseconds, value + 10, 4);
    NRVK_LOG(6, "Sending PonMgr the required Tod info superFrameCounter:%d noOfSeconds:%llu noOfNanoSeconds:%d ",
             superFrameCounter, seconds, nanoseconds);
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->setOltTimeOfDay(superFrameCounter, seconds, nanoseconds);
    }
    return 0;
}
