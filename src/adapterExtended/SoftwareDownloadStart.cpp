// Start software download: the target, the window and the room for the image.
#include "adapterExtended/SoftwareDownloadGuards.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "OmciFrame.h"
#include "OmciMeSoftwareImageIf.h"
#include "impl/Log.h"

namespace {

/// Bytes of the receive FIFO that a section of either format takes up, as the hardware counts them.
constexpr unsigned int kFifoUnitsPerBaselineSection = 6;
constexpr unsigned int kFifoUnitsPerExtendedSection = 247;
constexpr unsigned int kBytesPerFifoUnit = 8;
constexpr unsigned int kReservedFifoUnits = kFifoUnitsPerExtendedSection;
constexpr unsigned int kLargestWindow = 255;
/// The image in memory, its file, and what the board's script unpacks from it.
constexpr unsigned int kCopiesOfImage = 3;

/// Sections that fit the FIFO. A FIFO too small for the reserve, or not known, wraps on 16 bits to a large number: then
/// the OLT's proposal decides.
unsigned char sectionsInFifo(unsigned int fifoDepthInBytes, unsigned char deviceId)
{
    const unsigned int units = (fifoDepthInBytes / kBytesPerFifoUnit - kReservedFifoUnits) & 0xFFFF;
    const unsigned int unitsPerSection =
        deviceId == OmciFrame::kBaselineDeviceId ? kFifoUnitsPerBaselineSection : kFifoUnitsPerExtendedSection;
    return static_cast<unsigned char>(std::min(units / unitsPerSection, kLargestWindow));
}

}  // namespace

int OmciMeSoftwareImageAdapterExtended::startSoftwareDownload(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    unsigned char status = 0;
    bool busy = false;
    {
        const Lock lock(m_Mutex);
        status = m_SoftwareDownloadStatus;
        // A section out of place ends the download even while the writer is at work on its image.
        busy = m_IsDownloadInProgress != 0 || m_IsImageInUse != 0;
        if (!busy) {
            // A time-out left over from an earlier download must not hit this one.
            m_IsImageInUse = 1;
            m_ImageInstanceUnderDownload = static_cast<unsigned char>(frame->getManagedEntityInstance());
        }
    }
    if (busy) {
        reply(*frame, 1);
        NRVK_LOG(3, "SoftwareDownloadStatus(%s) is not idle", statusWord(status).c_str());
        return -1;
    }
    const ImageUse use;
    return tryToStart(*frame);
}

int OmciMeSoftwareImageAdapterExtended::tryToStart(OmciFrame& frame)
{
    const unsigned short instance = frame.getManagedEntityInstance();
    OmciMeSoftwareImageIf* image = OmciMeSoftwareImageIf::getManagedEntityInstance(instance);
    if (image == nullptr) {
        NRVK_LOG(3, "Instance(%hhu) for Software Image not found", instance);
        return -1;
    }
    if (checkForConflictStartDownload(image, &frame) != 0) {
        updateSoftwareDownloadStatus(STATUS_CONFLICT);
        reply(frame, 1);
        NRVK_LOG(3, "checkForConflictStartDownload() failed");
        return -1;
    }
    acceptDownload(frame);
    return 0;
}

void OmciMeSoftwareImageAdapterExtended::acceptDownload(OmciFrame& frame)
{
    const Snapshot now = takeSnapshot();
    NRVK_LOG(4, "Window size in use for software download(%hhu)", now.windowSize);
    reply(frame, 0, now.windowSize);
    updateSoftwareDownloadStatus(STATUS_STARTED);
    try {
        NRVK_LOG(3, "SOFTWARE_UPGRADE: Download started on image %u", now.instance);
        exchangeDownloadStarted(0);
        startTimer();
    } catch (...) {
        takeBackStart();
        throw;
    }
    dropPageCache();
}

void OmciMeSoftwareImageAdapterExtended::takeBackStart() noexcept
{
    const Lock lock(m_Mutex);
    storeStatus(STATUS_CONFLICT);
}

int OmciMeSoftwareImageAdapterExtended::checkForConflictStartDownload(OmciMeSoftwareImageIf* image, OmciFrame* frame)
{
    if (image == nullptr || frame == nullptr) {
        if (frame != nullptr) {
            reply(*frame, 1);
        }
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    if (image->getIsActive(OMCI_ACTION_GET) == 1) {
        NRVK_LOG(3, "Instance(%hhu) is active", instance);
        return -1;
    }
    if (image->getIsCommitted(OMCI_ACTION_GET) == 1) {
        NRVK_LOG(3, "Instance(%hhu) is committed", instance);
        return -1;
    }
    negotiateWindowSize(*frame);
    return makeRoomForImage(frame->getImageSizeInStartSoftwareDownload());
}

void OmciMeSoftwareImageAdapterExtended::negotiateWindowSize(const OmciFrame& frame)
{
    const unsigned char proposed = frame.getWindowSizeInStartSoftwareDownload();
    unsigned char supported = 0;
    {
        const Lock lock(m_Mutex);
        supported = sectionsInFifo(m_RxOmciFifoDepthInBytes, frame.getDeviceId());
        // On the wire it is the number of sections minus one, and never more than the OLT proposes.
        const unsigned char offered = supported == 0 ? supported : static_cast<unsigned char>(supported - 1);
        m_WindowSize = std::min(offered, proposed);
    }
    NRVK_LOG(5, "OLT recommended window size:%d ONT supported window size:%d", proposed, supported);
}

int OmciMeSoftwareImageAdapterExtended::makeRoomForImage(unsigned int imageSize)
{
    {
        const Lock lock(m_Mutex);
        m_ImageSize = imageSize;
    }
    if (imageSize == 0) {
        NRVK_LOG(3, "Image size is 0");
        return -1;
    }
    discardImage(replaceImage(nullptr));

    struct statvfs memory
    {};
    const int status = statvfs("/tmp", &memory);
    if (status != 0) {
        NRVK_LOG(3, "statvfs failed for /tmp partition status=%d errno=%d", status, errno);
        return -1;
    }
    // Both on 32 bits, as the board counts.
    const auto available = static_cast<unsigned int>(memory.f_frsize * memory.f_bfree);
    const unsigned int needed = kCopiesOfImage * imageSize;
    // Memory that is zero already is not touched until the sections come.
    auto* image = available < needed ? nullptr : static_cast<unsigned char*>(std::calloc(imageSize, 1));
    if (image == nullptr) {
        NRVK_LOG(3, "Available memory space(%llu) is insufficient memory to download image size %u",
                 static_cast<unsigned long long>(available), needed);
        return -1;
    }
    std::free(replaceImage(image));
    NRVK_LOG(6, "Image size(%u) to download", imageSize);
    return 0;
}

unsigned char* OmciMeSoftwareImageAdapterExtended::replaceImage(unsigned char* image)
{
    const Lock lock(m_Mutex);
    // Nothing is kept of an earlier transfer, which may have broken off in the middle of a window.
    m_SectionCounter = 0;
    m_SectionWithError = 0;
    m_DownloadSectionError = 0;
    m_MultipleRetransmissionError = 0;
    m_ImageOffset = 0;
    m_ImageOffsetCopy = 0;
    return std::exchange(m_ImageStorage, image);
}
