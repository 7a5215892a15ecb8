#ifndef NRVK_ADAPTER_EXTENDED_OMCI_ME_SOFTWARE_IMAGE_ADAPTER_EXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCI_ME_SOFTWARE_IMAGE_ADAPTER_EXTENDED_H

#include <pthread.h>

#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

#include "NorvikTimer.h"
#include "adapter/OmciMeSoftwareImageAdapter.h"

class OmciMeSoftwareImageIf;

/// Software image (G.988 9.1.4, class 7): download, activate and commit.
///
/// The image is gathered in one block of memory, checked at the end of the download, and written by a thread of its own
/// while the OLT polls. There is one download at a time for the whole ONU, hence the statics. Commands come on the OMCI
/// thread; the time-out comes on the timer's thread. One mutex guards what they and the writer share; it is never held
/// over a shell command, a file access, a log line or a call to the hardware.
class OmciMeSoftwareImageAdapterExtended : public OmciMeSoftwareImageAdapter
{
public:
    /// Status of the download. The names tell what a number is used for; from 10 on the words that logs and the display
    /// show for it are one place off. Deliberate: OLT operators know the numbers.
    enum Status : unsigned char
    {
        STATUS_NONE_YET = 0,
        STATUS_STARTED = 1,
        STATUS_CONFLICT = 2,  ///< start refused, or a section out of place
        STATUS_IN_PROGRESS = 3,
        STATUS_COMPLETE = 4,  ///< last byte received
        STATUS_ACCEPTED = 5,  ///< checked; the writer is under way
        STATUS_REFUSED = 6,
        STATUS_WRITING = 7,
        STATUS_WRITTEN = 8,
        STATUS_WRITE_ERROR = 9,  ///< never assigned
        STATUS_WRITE_FAILED = 10,
        STATUS_ACTIVATED = 11,  ///< only a restart of the ONU clears it
        STATUS_COMMITTED = 14,
        STATUS_LAST = 15
    };

    struct FlashWriterParameters
    {
        OmciMeSoftwareImageAdapterExtended* adapter;
    };

    OmciMeSoftwareImageAdapterExtended();
    /// Waits for a writer that is under way, which may be as long as the board's script takes.
    ~OmciMeSoftwareImageAdapterExtended() override;

    /// Fills the status words, gives a download up and makes the timer.
    void init();

    int startSoftwareDownload(OmciFrame* frame) override;
    /// 1: taken, no reply is due.
    int downloadSection(OmciFrame* frame) override;
    /// 1: a poll after a write that went well. On a thread that can't be started: its errno, and no reply.
    int endSoftwareDownload(OmciFrame* frame) override;
    int activateSoftwareImage(OmciFrame* frame) override;
    int commitSoftware(OmciFrame* frame) override;
    void showSoftwareDownloadStatus(FILE* file) override;
    void updateRxOmciFifoDepthInBytes(unsigned int depth) override;

    /// Negotiates the window and makes room for the image; -1 when the download can't start.
    static int checkForConflictStartDownload(OmciMeSoftwareImageIf* image, OmciFrame* frame);
    /// -1 when no section is due, or not for this instance.
    static int checkForConflictDownloadSection(OmciFrame* frame);
    /// Tells the hardware layer where the status calls for it. -1 for a number above 15.
    static int updateSoftwareDownloadStatus(unsigned short status);
    static unsigned short getSoftwareDownloadStatus();
    static void updateDownloadStartedFlag(unsigned char started);
    /// Gives the download up: frees the image, keeps the status. Does nothing while the image is checked
    /// or written.
    static void cleanUp();
    /// Back to the state of a new process, once a writer that is under way is through. On the OMCI thread.
    static void forgetDownload();

    /// 30 seconds without a section. On the timer's thread.
    static void timerHandler(sigval argument);
    /// Entry of the thread "omciFlashWrite", which it detaches. Takes a FlashWriterParameters; yields null.
    static void* flashWriterCallback(void* parameters);

private:
    /// Tests wait for the writer.
    friend struct SoftwareDownloadState;

    using Lock = std::lock_guard<std::mutex>;

    enum HardwareNotification : unsigned char
    {
        NOTIFY_COMMITTED = 0,
        NOTIFY_FAILED = 1,
        NOTIFY_TRANSFER_BEGUN = 2,
        NOTIFY_TRANSFER_ENDED = 3
    };

    struct Section;
    struct SectionOutcome;
    struct SectionConflict;
    struct ImageCheck;
    class ImageUse;
    class WriterHold;
    class StatusToStore;

    /// The state at one moment.
    struct Snapshot
    {
        unsigned char instance;
        unsigned char inProgress;
        unsigned char multipleRetransmission;
        unsigned char windowSize;
        unsigned int fifoDepth;
        unsigned short sectionCounter;
        unsigned char sectionError;
        unsigned short sectionWithError;
        unsigned int imageSize;
        unsigned int imageOffset;
        unsigned char status;
    };
    static Snapshot takeSnapshot();

    static void startTimer();
    static void stopTimer();
    static void waitForWriters();
    /// Frees it and drops the page cache.
    static void discardImage(unsigned char* image);
    static void dropPageCache();
    static void reply(OmciFrame& frame, unsigned char result, unsigned short value = 0);

    /// A copy of the word; empty once the adapter is gone.
    static std::string statusWord(unsigned char status);
    static void logStatus(unsigned short status);
    static void notifyHardware(HardwareNotification notification);
    /// The part of a status change that the outside sees: log line and hardware layer.
    static void announceStatus(unsigned char status);
    static void tellHardwareOfStatus(unsigned char status);
    static unsigned char exchangeDownloadStarted(unsigned char started);

    static int tryToStart(OmciFrame& frame);
    static void acceptDownload(OmciFrame& frame);
    /// A download that could not be supervised must not bar the next one.
    static void takeBackStart() noexcept;
    static void negotiateWindowSize(const OmciFrame& frame);
    static int makeRoomForImage(unsigned int imageSize);
    /// Puts the storage of a new transfer in place of the old one, which the caller frees.
    [[nodiscard]] static unsigned char* replaceImage(unsigned char* image);

    static void logSectionConflict(const SectionConflict& conflict, unsigned short instance);
    static void announceSection(const SectionOutcome& outcome);
    /// Back to the end of the window before: the OLT hears of an error and sends this one again.
    static void takeBackWindow(const SectionOutcome& outcome) noexcept;

    static int answerWhenDone(OmciFrame& frame, unsigned char status);
    static int answerWhileBusy(OmciFrame& frame, unsigned char status);
    int endTransfer(OmciFrame& frame);
    int checkAndWrite(OmciFrame& frame, ImageUse& use);
    static ImageCheck checkImage(const OmciFrame& frame);
    static int refuseImage(OmciFrame& frame, const ImageCheck& check);
    int startWriter(OmciFrame& frame, ImageUse& use);

    /// Makes the board start from the image next time, unless that runs already.
    static int selectImage(unsigned short instance);

    static void writeImage(void* parameters);
    static bool saveImage();
    static void verifyImage(void* parameters);
    static bool isVerifiedAndInPlace();
    /// The image is in place, whatever becomes of its description.
    static void readNewDescription();
    /// Stores the last status of a write and ends the download in one step, so that a command which sees the status
    /// finds nothing of the old download.
    static void endWrite(unsigned char status);
    /// The same without a status: the old one stays.
    static void giveUpWrite();
    /// An exception on the writer's thread, where there is no caller.
    static void endWriteAfter(const char* what) noexcept;

    /// @name Under the lock
    /// @{
    static void storeStatus(unsigned char status);
    /// Back to no download; the image comes out, to be freed by the caller.
    [[nodiscard]] static unsigned char* resetTransfer();
    static SectionConflict findSectionConflict(unsigned short instance);
    static void takeSection(const Section& section, SectionOutcome& outcome);
    static void copySection(const Section& section, SectionOutcome& outcome);
    static void missSection(const Section& section, SectionOutcome& outcome);
    static void closeSection(const Section& section, SectionOutcome& outcome);
    /// @}

    static NorvikTimer* m_Timer;
    static std::vector<std::string> m_SoftwareDownloadStatusStr;
    static FlashWriterParameters m_FlashWriterParameters;
    static constexpr unsigned char NUMBER_OF_VERIFY_AND_EXEC_RETRY = 5;

    /// @name Shared between threads
    /// @{
    static std::mutex m_Mutex;
    /// Never destroyed, nor is the image: the writer may be under way when the process ends.
    static std::condition_variable& m_WriterChanged;
    static unsigned char m_WritersRunning;
    /// The writer waits until the status tells that it is under way; a fast script would be overtaken otherwise.
    static unsigned char m_IsWriterHeld;
    /// A start, the check or the writer is at work on the image: a time-out may not free it, and no download may start.
    static unsigned char m_IsImageInUse;
    static pthread_t m_FlashWriterThreadId;
    static unsigned int m_ImageOffsetCopy;     ///< at the end of the last good window
    static unsigned int m_ImageOffset;         ///< where the next section goes
    static unsigned int m_ImageSize;           ///< as announced, bytes
    static unsigned short m_SectionWithError;  ///< section counter where the window first went wrong
    static unsigned short m_SectionCounter;    ///< next section within the window
    static unsigned int m_RxOmciFifoDepthInBytes;
    static unsigned char m_IsDownloadStarted;  ///< the hardware layer knows of the first section
    static unsigned char m_SoftwareDownloadStatus;
    static unsigned char m_MultipleRetransmissionError;  ///< for the display alone
    static unsigned char m_DownloadSectionError;         ///< the running window has an error
    static unsigned char m_IsDownloadInProgress;         ///< bars a second start, activate and commit
    static unsigned char* m_ImageStorage;                ///< from calloc
    static unsigned char m_WindowSize;                   ///< sections in a window, minus one
    static unsigned char m_ImageInstanceUnderDownload;
    /// @}
};

#endif
