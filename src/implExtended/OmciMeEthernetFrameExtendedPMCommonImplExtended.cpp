#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"

#include "impl/Log.h"

std::atomic<unsigned char> OmciMeEthernetFrameExtendedPMCommonImplExtended::IntervalCounter{0};

unsigned char OmciMeEthernetFrameExtendedPMCommonImplExtended::getIntervalCounter()
{
    const unsigned char intervalCounter = IntervalCounter;
    NRVK_LOG(6, "Interval counter(%hhu)", intervalCounter);
    return intervalCounter;
}

void OmciMeEthernetFrameExtendedPMCommonImplExtended::setIntervalCounter(unsigned char intervalCounter)
{
    NRVK_LOG(6, "Interval counter(%hhu)", intervalCounter);
    IntervalCounter = intervalCounter;
}

void OmciMeEthernetFrameExtendedPMCommonImplExtended::incrementIntervalCounter()
{
    const auto intervalCounter = static_cast<unsigned char>(++IntervalCounter);
    NRVK_LOG(6, "Interval counter(%hhu)", intervalCounter);
}

void OmciMeEthernetFrameExtendedPMCommonImplExtended::resetIntervalCounter()
{
    const unsigned char last = IntervalCounter.exchange(0);
    NRVK_LOG(6, "Interval counter(%hhu)", last);
}
