#ifndef NRVK_IMPL_EXTENDED_SOFTWARE_IMAGE_H
#define NRVK_IMPL_EXTENDED_SOFTWARE_IMAGE_H

#include <atomic>
#include <csignal>
#include <memory>

#include "NorvikTimer.h"
#include "impl/OmciMeSoftwareImageImpl.h"
#include "implExtended/NoHardware.h"

/// Software image (G.988 9.1.4, class 7). Version and flags follow the boot side's file: a read goes to the file unless
/// another one did so in the last 2 seconds, whichever instance it was on.
class OmciMeSoftwareImageImplExtended : public nrvk::NoHardware<OmciMeSoftwareImageImpl, 0>
{
public:
    OmciMeSoftwareImageImplExtended(unsigned short instance, bool createdByOlt);
    /// Stops the timer.
    ~OmciMeSoftwareImageImplExtended() override;

    /// Reads, whatever `action` is, are ordinary reads of the store. On the caller's thread.
    const unsigned char* getVersion(EnumOmciAction action) const override;
    unsigned char getIsCommitted(EnumOmciAction action) const override;
    unsigned char getIsActive(EnumOmciAction action) const override;
    unsigned char getIsValid(EnumOmciAction action) const override;

    /// Reads the file again when its time has come.
    void updateSoftwareImageMEs() const;
    /// The next read may go to the file. On the timer's thread.
    static void softwareVersionTimerHandler(sigval argument);

private:
    std::unique_ptr<NorvikTimer> m_SoftwareVersionTimer;

    /// 1 when the next read goes to the file.
    static std::atomic<unsigned char> m_TimeToAskForNewSoftwareVersion;
};

#endif
