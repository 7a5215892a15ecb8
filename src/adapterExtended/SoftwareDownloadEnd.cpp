// End software download: the check of the image, the hand-over to the writer, and the OLT's polls.
#include <cerrno>
#include <climits>

#include "CRC32.h"
#include "OmciFrame.h"
#include "adapterExtended/SoftwareDownloadGuards.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

/// CRC-32 of the image as the OLT computes it.
unsigned int imageCrc(unsigned char* image, unsigned int size)
{
    CRC32 crc;
    crc.m_Crc = 0xFFFFFFFF;
    unsigned int value = 0;
    // The host's CRC takes a signed length.
    do {
        const int length = static_cast<int>(size < INT_MAX ? size : INT_MAX);
        value = crc.getCRC(image, length);
        image += length;
        size -= static_cast<unsigned int>(length);
    } while (size != 0);
    return value;
}

/// The statuses from which the end of a download is checked.
bool isTransfer(unsigned char status)
{
    return status == OmciMeSoftwareImageAdapterExtended::STATUS_STARTED ||
           status == OmciMeSoftwareImageAdapterExtended::STATUS_IN_PROGRESS ||
           status == OmciMeSoftwareImageAdapterExtended::STATUS_COMPLETE;
}

}  // namespace

struct OmciMeSoftwareImageAdapterExtended::ImageCheck
{
    unsigned char sectionError;
    unsigned int computedCrc;
    unsigned int receivedCrc;
    unsigned int expectedSize;
    unsigned int receivedSize;
    bool valid;

    bool passed() const
    {
        return sectionError == 0 && computedCrc == receivedCrc && expectedSize == receivedSize && valid;
    }
};

int OmciMeSoftwareImageAdapterExtended::endSoftwareDownload(OmciFrame* frame)
{
    stopTimer();
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    unsigned char instanceUnderDownload = 0;
    unsigned char inProgress = 0;
    unsigned char status = 0;
    bool transferEnds = false;
    {
        const Lock lock(m_Mutex);
        instanceUnderDownload = m_ImageInstanceUnderDownload;
        inProgress = m_IsDownloadInProgress;
        status = m_SoftwareDownloadStatus;
        transferEnds = instance == instanceUnderDownload && inProgress != 0 && isTransfer(status);
        if (transferEnds) {
            m_IsImageInUse = 1;
        }
    }
    if (instance != instanceUnderDownload) {
        reply(*frame, 5);
        NRVK_LOG(3, "Instance(%hhu) under download, command received for instance(%hu)", instanceUnderDownload,
                 instance);
        return -1;
    }
    if (transferEnds) {
        return endTransfer(*frame);
    }
    return inProgress != 0 ? answerWhileBusy(*frame, status) : answerWhenDone(*frame, status);
}

int OmciMeSoftwareImageAdapterExtended::answerWhenDone(OmciFrame& frame, unsigned char status)
{
    if (status == STATUS_WRITTEN || status == STATUS_WRITE_ERROR) {
        reply(frame, 0);
        NRVK_LOG(5, "Image store in FLASH successfully");
        return 1;
    }
    reply(frame, 1);
    if (status == STATUS_WRITE_FAILED) {
        NRVK_LOG(3, "Command rejected; image write failed");
    } else {
        NRVK_LOG(3, "Command rejected when status = %s", statusWord(status).c_str());
    }
    return -1;
}

int OmciMeSoftwareImageAdapterExtended::answerWhileBusy(OmciFrame& frame, unsigned char status)
{
    if (status == STATUS_ACCEPTED || status == STATUS_WRITING) {
        reply(frame, 6);
        NRVK_LOG(7, "The system is busy writing the image in FLASH");
        return 0;
    }
    reply(frame, 1);
    NRVK_LOG(3, "Command rejected when status = %s", statusWord(status).c_str());
    return -1;
}

int OmciMeSoftwareImageAdapterExtended::endTransfer(OmciFrame& frame)
{
    ImageUse use;
    try {
        return checkAndWrite(frame, use);
    } catch (...) {
        // An image that nobody could check is refused, so that the OLT may begin anew.
        if (!use.isHandedOver()) {
            const Lock lock(m_Mutex);
            storeStatus(STATUS_REFUSED);
        }
        throw;
    }
}

int OmciMeSoftwareImageAdapterExtended::checkAndWrite(OmciFrame& frame, ImageUse& use)
{
    const ImageCheck check = checkImage(frame);
    if (!check.passed()) {
        return refuseImage(frame, check);
    }
    NRVK_LOG(5, "Download completed on image %u (%i bytes)", frame.getManagedEntityInstance(), check.expectedSize);
    return startWriter(frame, use);
}

OmciMeSoftwareImageAdapterExtended::ImageCheck OmciMeSoftwareImageAdapterExtended::checkImage(const OmciFrame& frame)
{
    // No lock: nobody but this thread changes the transfer while its image is in use.
    ImageCheck check{};
    check.sectionError = m_DownloadSectionError;
    check.computedCrc = imageCrc(m_ImageStorage, m_ImageSize);
    check.receivedCrc = frame.getCRC32FromEndSoftwareDownload();
    check.expectedSize = m_ImageSize;
    check.receivedSize = frame.getImageSizeInEndSoftwareDownload();
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        check.valid = hardware->endSoftwareImageDownload(m_ImageStorage);
    }
    return check;
}

int OmciMeSoftwareImageAdapterExtended::refuseImage(OmciFrame& frame, const ImageCheck& check)
{
    reply(frame, 1);
    updateSoftwareDownloadStatus(STATUS_REFUSED);
    // All of them, whichever it was: the values tell.
    NRVK_LOG(3, "Download failed for one of the following reasons:");
    NRVK_LOG(3, "1) Download section error(%d)", check.sectionError);
    NRVK_LOG(3, "2) Mismatch CRC-32(%u; %u)", check.computedCrc, check.receivedCrc);
    NRVK_LOG(3, "3) Mismatch image size(%u; %u)", check.expectedSize, check.receivedSize);
    NRVK_LOG(3, "4) Image is not valid");
    return -1;
}

int OmciMeSoftwareImageAdapterExtended::startWriter(OmciFrame& frame, ImageUse& use)
{
    m_FlashWriterParameters.adapter = this;
    const WriterHold hold;
    {
        const Lock lock(m_Mutex);
        ++m_WritersRunning;
    }
    pthread_t thread{};
    const int error = pthread_create(&thread, nullptr, flashWriterCallback, &m_FlashWriterParameters);
    if (error != 0) {
        {
            const Lock lock(m_Mutex);
            --m_WritersRunning;
        }
        errno = error;
        NRVK_LOG(3, "pthread_create() failed(%d)", error);
        return error;
    }
    use.handOver();
    pthread_setname_np(thread, "omciFlashWrite");
    // The OLT polls from here on, and sees success only after the write.
    reply(frame, 6);
    {
        const Lock lock(m_Mutex);
        m_FlashWriterThreadId = thread;
        // First of all: while the writer is at work, no command may take the transfer for one that can be checked.
        storeStatus(STATUS_ACCEPTED);
    }
    updateSoftwareDownloadStatus(STATUS_ACCEPTED);
    return 0;
}
