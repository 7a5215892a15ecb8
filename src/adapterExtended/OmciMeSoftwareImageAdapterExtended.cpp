// The download's state, its beginning and its end.
#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"

#include <cstdlib>
#include <utility>

#include "OmciFrame.h"
#include "impl/Shell.h"

using Adapter = OmciMeSoftwareImageAdapterExtended;

namespace {

constexpr unsigned int kInactivityMilliseconds = 30000;
constexpr unsigned char kWindowSizeAtFirst = 127;
constexpr unsigned char kNoInstance = 255;

}  // namespace

NorvikTimer* Adapter::m_Timer = nullptr;
std::vector<std::string> Adapter::m_SoftwareDownloadStatusStr;
Adapter::FlashWriterParameters Adapter::m_FlashWriterParameters{};
std::mutex Adapter::m_Mutex;
std::condition_variable& Adapter::m_WriterChanged = *new std::condition_variable;
unsigned char Adapter::m_WritersRunning = 0;
unsigned char Adapter::m_IsWriterHeld = 0;
unsigned char Adapter::m_IsImageInUse = 0;
pthread_t Adapter::m_FlashWriterThreadId = 0;
unsigned int Adapter::m_ImageOffsetCopy = 0;
unsigned int Adapter::m_ImageOffset = 0;
unsigned int Adapter::m_ImageSize = 0;
unsigned short Adapter::m_SectionWithError = 0;
unsigned short Adapter::m_SectionCounter = 0;
unsigned int Adapter::m_RxOmciFifoDepthInBytes = 0;
unsigned char Adapter::m_IsDownloadStarted = 0;
unsigned char Adapter::m_SoftwareDownloadStatus = Adapter::STATUS_NONE_YET;
unsigned char Adapter::m_MultipleRetransmissionError = 0;
unsigned char Adapter::m_DownloadSectionError = 0;
unsigned char Adapter::m_IsDownloadInProgress = 0;
unsigned char* Adapter::m_ImageStorage = nullptr;
unsigned char Adapter::m_WindowSize = kWindowSizeAtFirst;
unsigned char Adapter::m_ImageInstanceUnderDownload = kNoInstance;

OmciMeSoftwareImageAdapterExtended::OmciMeSoftwareImageAdapterExtended()
{
    init();
}

OmciMeSoftwareImageAdapterExtended::~OmciMeSoftwareImageAdapterExtended()
{
    waitForWriters();
    cleanUp();
    m_SoftwareDownloadStatusStr.clear();
    stopTimer();
    delete std::exchange(m_Timer, nullptr);
}

void OmciMeSoftwareImageAdapterExtended::init()
{
    m_SoftwareDownloadStatusStr = {
        "IDLE",
        "DOWNLOAD STARTED SUCCESS",
        "DOWNLOAD START FAILED",
        "DOWNLOAD IN PROGRESS",
        "DOWNLOAD COMPLETE",
        "DOWNLOAD SUCCESS",
        "DOWNLOAD FAILURE",
        "WRITE IN PROGRESS",
        "WRITE SUCCESS",
        "WRITE ERROR",
        "ACTIVATE IN PROGRESS",
        "ACTIVATE SUCCESS",
        "ACTIVATE FAILURE",
        "COMMIT SUCCESS",
        "COMMIT FAILURE",
        "UNKNOWN",
    };
    cleanUp();
    if (m_Timer == nullptr) {
        m_Timer = new NorvikTimer(timerHandler, nullptr);
    }
}

unsigned char* OmciMeSoftwareImageAdapterExtended::resetTransfer()
{
    m_IsDownloadInProgress = 0;
    m_DownloadSectionError = 0;
    m_MultipleRetransmissionError = 0;
    m_SectionCounter = 0;
    m_SectionWithError = 0;
    m_ImageSize = 0;
    m_ImageOffset = 0;
    m_ImageOffsetCopy = 0;
    m_FlashWriterThreadId = 0;
    m_IsImageInUse = 0;
    return std::exchange(m_ImageStorage, nullptr);
}

void OmciMeSoftwareImageAdapterExtended::cleanUp()
{
    unsigned char* image = nullptr;
    {
        const Lock lock(m_Mutex);
        // A time-out that comes now fell due before the end of the download stopped the timer.
        if (m_IsImageInUse != 0) {
            return;
        }
        image = resetTransfer();
    }
    discardImage(image);
}

void OmciMeSoftwareImageAdapterExtended::waitForWriters()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    m_WriterChanged.wait(lock, [] { return m_WritersRunning == 0; });
}

void OmciMeSoftwareImageAdapterExtended::forgetDownload()
{
    stopTimer();
    waitForWriters();
    unsigned char* image = nullptr;
    {
        const Lock lock(m_Mutex);
        image = resetTransfer();
        storeStatus(STATUS_NONE_YET);
        m_IsDownloadStarted = 0;
        m_RxOmciFifoDepthInBytes = 0;
        m_WindowSize = kWindowSizeAtFirst;
        m_ImageInstanceUnderDownload = kNoInstance;
    }
    std::free(image);
}

void OmciMeSoftwareImageAdapterExtended::discardImage(unsigned char* image)
{
    std::free(image);
    dropPageCache();
}

void OmciMeSoftwareImageAdapterExtended::reply(OmciFrame& frame, unsigned char result, unsigned short value)
{
    frame.setFrameToSendBackToOLT(result, value, 0, 0, nullptr, 0);
}

void OmciMeSoftwareImageAdapterExtended::dropPageCache()
{
    nrvk::runCommand("sync ; echo 3 > /proc/sys/vm/drop_caches");
}

void OmciMeSoftwareImageAdapterExtended::timerHandler(sigval /*argument*/)
{
    cleanUp();
}

void OmciMeSoftwareImageAdapterExtended::startTimer()
{
    if (m_Timer != nullptr) {
        m_Timer->startOneShotTimer(kInactivityMilliseconds);
    }
}

void OmciMeSoftwareImageAdapterExtended::stopTimer()
{
    if (m_Timer != nullptr) {
        m_Timer->stopTimer();
    }
}
