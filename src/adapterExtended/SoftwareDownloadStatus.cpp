// The status that all commands of a download share, and its display.
#include "adapterExtended/SoftwareDownloadGuards.h"

#include <utility>

#include "impl/Hardware.h"
#include "impl/Log.h"

using Adapter = OmciMeSoftwareImageAdapterExtended;

namespace {

constexpr bool holdsDownload(unsigned char status)
{
    switch (status) {
    case Adapter::STATUS_STARTED:
    case Adapter::STATUS_IN_PROGRESS:
    case Adapter::STATUS_COMPLETE:
    case Adapter::STATUS_ACCEPTED:
    case Adapter::STATUS_WRITING:
    case Adapter::STATUS_ACTIVATED:
        return true;
    default:
        return false;
    }
}

const char* yesOrNo(unsigned char flag)
{
    return flag != 0 ? "yes" : "no";
}

}  // namespace

void OmciMeSoftwareImageAdapterExtended::storeStatus(unsigned char status)
{
    m_SoftwareDownloadStatus = status;
    m_IsDownloadInProgress = holdsDownload(status) ? 1 : 0;
}

unsigned char OmciMeSoftwareImageAdapterExtended::exchangeDownloadStarted(unsigned char started)
{
    const Lock lock(m_Mutex);
    return std::exchange(m_IsDownloadStarted, started);
}

void OmciMeSoftwareImageAdapterExtended::logStatus(unsigned short status)
{
    NRVK_LOG(6, "Download status(%hu)", status);
}

void OmciMeSoftwareImageAdapterExtended::notifyHardware(HardwareNotification notification)
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->notifySoftwareDownloadStatus(notification);
    }
}

void OmciMeSoftwareImageAdapterExtended::announceStatus(unsigned char status)
{
    logStatus(status);
    tellHardwareOfStatus(status);
}

void OmciMeSoftwareImageAdapterExtended::tellHardwareOfStatus(unsigned char status)
{
    switch (status) {
    case STATUS_CONFLICT:
    case STATUS_REFUSED:
    case STATUS_WRITE_FAILED:
        notifyHardware(NOTIFY_FAILED);
        exchangeDownloadStarted(0);
        break;
    case STATUS_IN_PROGRESS:
        if (exchangeDownloadStarted(1) == 0) {
            notifyHardware(NOTIFY_TRANSFER_BEGUN);
        }
        break;
    case STATUS_ACCEPTED:
        notifyHardware(NOTIFY_TRANSFER_ENDED);
        exchangeDownloadStarted(0);
        break;
    case STATUS_COMMITTED:
        notifyHardware(NOTIFY_COMMITTED);
        break;
    default:
        break;
    }
}

int OmciMeSoftwareImageAdapterExtended::updateSoftwareDownloadStatus(unsigned short status)
{
    if (status > STATUS_LAST) {
        logStatus(status);
        NRVK_LOG(3, "Invalid download status(%hu)", status);
        return -1;
    }
    const auto number = static_cast<unsigned char>(status);
    logStatus(number);
    // What the hardware layer is told of has happened, however it takes the news.
    const StatusToStore stored(number);
    tellHardwareOfStatus(number);
    return 0;
}

unsigned short OmciMeSoftwareImageAdapterExtended::getSoftwareDownloadStatus()
{
    unsigned char status = 0;
    {
        const Lock lock(m_Mutex);
        status = m_SoftwareDownloadStatus;
    }
    logStatus(status);
    return status;
}

std::string OmciMeSoftwareImageAdapterExtended::statusWord(unsigned char status)
{
    return status < m_SoftwareDownloadStatusStr.size() ? m_SoftwareDownloadStatusStr[status] : std::string();
}

void OmciMeSoftwareImageAdapterExtended::updateDownloadStartedFlag(unsigned char started)
{
    NRVK_LOG(6, "Download started flag set to:(%hu)", started);
    exchangeDownloadStarted(started);
}

void OmciMeSoftwareImageAdapterExtended::updateRxOmciFifoDepthInBytes(unsigned int depth)
{
    NRVK_LOG(6, "RxOmciFifoDepthInBytes(%u)", depth);
    if (depth == 0) {
        NRVK_LOG(3, "RxOmciFifoDepthInBytes cannot be equal to 0");
        return;
    }
    const Lock lock(m_Mutex);
    m_RxOmciFifoDepthInBytes = depth;
}

OmciMeSoftwareImageAdapterExtended::Snapshot OmciMeSoftwareImageAdapterExtended::takeSnapshot()
{
    const Lock lock(m_Mutex);
    return {m_ImageInstanceUnderDownload,
            m_IsDownloadInProgress,
            m_MultipleRetransmissionError,
            m_WindowSize,
            m_RxOmciFifoDepthInBytes,
            m_SectionCounter,
            m_DownloadSectionError,
            m_SectionWithError,
            m_ImageSize,
            m_ImageOffset,
            m_SoftwareDownloadStatus};
}

void OmciMeSoftwareImageAdapterExtended::showSoftwareDownloadStatus(FILE* file)
{
    if (file == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return;
    }
    const Snapshot now = takeSnapshot();
    std::fprintf(file, "Instance under download           : %hhu\n\r", now.instance);
    std::fprintf(file, "Upgrade in progress               : %s\n\r", yesOrNo(now.inProgress));
    std::fprintf(file, "Multiple retransmission           : %s\n\r", yesOrNo(now.multipleRetransmission));
    std::fprintf(file, "Window size used in last download : %hhu\n\r", now.windowSize);
    std::fprintf(file, "RxOmciFifoDepthInBytes            : %u\n\r", now.fifoDepth);
    std::fprintf(file, "Section counter                   : %hhu\n\r", static_cast<unsigned char>(now.sectionCounter));
    std::fprintf(file, "Download section error            : %s\n\r", yesOrNo(now.sectionError));
    std::fprintf(file, "Section with error                : %hu\n\r", now.sectionWithError);
    std::fprintf(file, "Image size                        : %u\n\r", now.imageSize);
    std::fprintf(file, "Image offset                      : %u\n\r", now.imageOffset);
    std::fprintf(file, "Status                            : %hhu\n\r", now.status);
    std::fprintf(file, "Status                            : %s\n\r", statusWord(now.status).c_str());
}
