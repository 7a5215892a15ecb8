#include "implExtended/OmciMeSoftwareImageImplExtended.h"

#include "impl/Log.h"
#include "impl/SoftwareImageDescriptions.h"

namespace {

constexpr unsigned int kRereadLimitMilliseconds = 2000;

std::atomic<bool> isReading{false};

/// While it lives, the description file is being read.
struct Reading
{
    Reading() { isReading = true; }
    ~Reading() { isReading = false; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
};

}  // namespace

std::atomic<unsigned char> OmciMeSoftwareImageImplExtended::m_TimeToAskForNewSoftwareVersion{1};

OmciMeSoftwareImageImplExtended::OmciMeSoftwareImageImplExtended(unsigned short instance, bool createdByOlt)
    : NoHardware(instance, createdByOlt),
      m_SoftwareVersionTimer(std::make_unique<NorvikTimer>(softwareVersionTimerHandler, this))
{}

OmciMeSoftwareImageImplExtended::~OmciMeSoftwareImageImplExtended()
{
    m_SoftwareVersionTimer->stopTimer();
    // With the timer gone, nobody else would let the other instance read again.
    m_SoftwareVersionTimer.reset();
    m_TimeToAskForNewSoftwareVersion = 1;
}

const unsigned char* OmciMeSoftwareImageImplExtended::getVersion(EnumOmciAction /*action*/) const
{
    updateSoftwareImageMEs();
    return OmciMeSoftwareImageImpl::getVersion(OMCI_ACTION_GET);
}

unsigned char OmciMeSoftwareImageImplExtended::getIsCommitted(EnumOmciAction /*action*/) const
{
    updateSoftwareImageMEs();
    return OmciMeSoftwareImageImpl::getIsCommitted(OMCI_ACTION_GET);
}

unsigned char OmciMeSoftwareImageImplExtended::getIsActive(EnumOmciAction /*action*/) const
{
    updateSoftwareImageMEs();
    return OmciMeSoftwareImageImpl::getIsActive(OMCI_ACTION_GET);
}

unsigned char OmciMeSoftwareImageImplExtended::getIsValid(EnumOmciAction /*action*/) const
{
    updateSoftwareImageMEs();
    return OmciMeSoftwareImageImpl::getIsValid(OMCI_ACTION_GET);
}

void OmciMeSoftwareImageImplExtended::updateSoftwareImageMEs() const
{
    // Storing what was read asks for these values too: a read that outlasts the limit must not begin another one.
    if (isReading || m_TimeToAskForNewSoftwareVersion.exchange(0) == 0) {
        return;
    }
    const Reading reading;
    try {
        m_SoftwareVersionTimer->startOneShotTimer(kRereadLimitMilliseconds);
    } catch (...) {
        // Without the timer nobody else would let the next read go to the file.
        m_TimeToAskForNewSoftwareVersion = 1;
        throw;
    }
    nrvk::readSoftwareImageDescriptions();
}

void OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler(sigval /*argument*/)
{
    NRVK_LOG(6, "Software version timer expired");
    m_TimeToAskForNewSoftwareVersion = 1;
}
