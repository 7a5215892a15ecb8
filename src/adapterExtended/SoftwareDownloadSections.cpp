// Download section: the way of the image into memory, window by window.
#include <algorithm>
#include <cstring>
#include <utility>

#include "OmciFrame.h"
#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"
#include "impl/Log.h"

struct OmciMeSoftwareImageAdapterExtended::Section
{
    explicit Section(const OmciFrame& frame)
        : instance(frame.getManagedEntityInstance()), number(frame.getDownloadSectionNumberInDownloadSection(true)),
          acknowledge(frame.getMessageTypeAR() == 1), deviceId(frame.getDeviceId()),
          // The first byte of the contents is the section number.
          bytes(static_cast<unsigned short>(std::max<unsigned int>(frame.getMessageContentLength(), 1) - 1)),
          payload(bytes == 0 ? nullptr : frame.getMessageContent() + 1)
    {}

    unsigned short instance;
    unsigned short number;
    bool acknowledge;
    unsigned char deviceId;
    unsigned short bytes;
    const unsigned char* payload;
};

struct OmciMeSoftwareImageAdapterExtended::SectionConflict
{
    enum Kind : unsigned char
    {
        NONE,
        INSTANCE,
        NOT_IN_PROGRESS,
        STATUS
    };
    Kind kind;
    unsigned char instanceUnderDownload;
    unsigned char status;
};

/// What became of a section: filled under the lock, told to log, hardware and OLT after it.
struct OmciMeSoftwareImageAdapterExtended::SectionOutcome
{
    SectionConflict conflict;
    bool firstOfDownload;
    bool unexpected;
    bool overflow;
    bool complete;
    bool windowRefused;
    unsigned int windowStart;
    unsigned short expected;
    unsigned short actual;
    unsigned short sectionWithError;
    unsigned int imageSize;
    unsigned int imageOffset;
};

int OmciMeSoftwareImageAdapterExtended::downloadSection(OmciFrame* frame)
{
    startTimer();
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const Section section(*frame);
    SectionOutcome outcome{};
    {
        const Lock lock(m_Mutex);
        takeSection(section, outcome);
    }
    if (outcome.conflict.kind != SectionConflict::NONE) {
        logSectionConflict(outcome.conflict, section.instance);
        updateSoftwareDownloadStatus(STATUS_CONFLICT);
        if (section.acknowledge) {
            reply(*frame, 5, section.number);
        }
        return -1;
    }
    try {
        announceSection(outcome);
    } catch (...) {
        if (section.acknowledge) {
            takeBackWindow(outcome);
        }
        throw;
    }
    if (!section.acknowledge) {
        return 1;
    }
    if (!outcome.windowRefused) {
        reply(*frame, 0, section.number);
        return 0;
    }
    reply(*frame, 1, outcome.sectionWithError);
    NRVK_LOG(3, "Download error in section %hu", outcome.sectionWithError);
    return -1;
}

void OmciMeSoftwareImageAdapterExtended::takeSection(const Section& section, SectionOutcome& outcome)
{
    outcome.conflict = findSectionConflict(section.instance);
    if (outcome.conflict.kind != SectionConflict::NONE) {
        return;
    }
    storeStatus(STATUS_IN_PROGRESS);
    outcome.firstOfDownload = std::exchange(m_IsDownloadStarted, static_cast<unsigned char>(1)) == 0;
    // In a window that has gone wrong, sections are swallowed until its end.
    if (m_DownloadSectionError == 0) {
        if (section.number == m_SectionCounter) {
            copySection(section, outcome);
        } else {
            missSection(section, outcome);
        }
    }
    closeSection(section, outcome);
}

void OmciMeSoftwareImageAdapterExtended::missSection(const Section& section, SectionOutcome& outcome)
{
    outcome.unexpected = true;
    outcome.expected = m_SectionCounter;
    outcome.actual = section.number;
    m_SectionWithError = m_SectionCounter;
    m_DownloadSectionError = 1;
    if (section.acknowledge && m_SectionCounter == 0) {
        m_MultipleRetransmissionError = 1;
    }
}

void OmciMeSoftwareImageAdapterExtended::copySection(const Section& section, SectionOutcome& outcome)
{
    m_MultipleRetransmissionError = 0;
    const unsigned int remaining = m_ImageSize - std::min(m_ImageOffset, m_ImageSize);
    // Baseline sections have a fixed length, and the last one is padded: only what follows it is too much.
    const bool baselineOverflow = section.deviceId == OmciFrame::kBaselineDeviceId && m_ImageOffset > m_ImageSize;
    const bool extendedOverflow = section.deviceId == OmciFrame::kExtendedDeviceId && remaining < section.bytes;
    if (baselineOverflow || extendedOverflow) {
        outcome.overflow = true;
        outcome.imageSize = m_ImageSize;
        outcome.imageOffset = m_ImageOffset;
        m_SectionWithError = m_SectionCounter;
        m_DownloadSectionError = 1;
    } else if (const std::size_t length = std::min<std::size_t>(section.bytes, remaining); length != 0) {
        std::memcpy(m_ImageStorage + m_ImageOffset, section.payload, length);
    }
    if (outcome.overflow || remaining <= section.bytes) {
        outcome.complete = true;
        storeStatus(STATUS_COMPLETE);
    }
    m_ImageOffset += section.bytes;
}

void OmciMeSoftwareImageAdapterExtended::closeSection(const Section& section, SectionOutcome& outcome)
{
    if (!section.acknowledge) {
        ++m_SectionCounter;
        return;
    }
    m_SectionCounter = 0;
    outcome.windowStart = m_ImageOffsetCopy;
    if (m_DownloadSectionError == 0) {
        m_ImageOffsetCopy = m_ImageOffset;
        return;
    }
    outcome.windowRefused = true;
    outcome.sectionWithError = m_SectionWithError;
    m_DownloadSectionError = 0;
    m_ImageOffset = m_ImageOffsetCopy;
}

void OmciMeSoftwareImageAdapterExtended::takeBackWindow(const SectionOutcome& outcome) noexcept
{
    const Lock lock(m_Mutex);
    // A time-out may have given the download up since.
    if (m_IsDownloadInProgress != 0) {
        m_ImageOffset = outcome.windowStart;
        m_ImageOffsetCopy = outcome.windowStart;
        storeStatus(STATUS_IN_PROGRESS);
    }
}

void OmciMeSoftwareImageAdapterExtended::announceSection(const SectionOutcome& outcome)
{
    logStatus(STATUS_IN_PROGRESS);
    if (outcome.firstOfDownload) {
        notifyHardware(NOTIFY_TRANSFER_BEGUN);
    }
    if (outcome.unexpected) {
        NRVK_LOG(3, "Received unexpected section number: expected(%hu), actual(%hhu)", outcome.expected,
                 outcome.actual);
    }
    if (outcome.overflow) {
        NRVK_LOG(3, "Overflow image received : expected(%u), actual(%u)", outcome.imageSize, outcome.imageOffset);
    }
    if (outcome.complete) {
        NRVK_LOG(4, "Download image completed");
        announceStatus(STATUS_COMPLETE);
    }
}

OmciMeSoftwareImageAdapterExtended::SectionConflict
OmciMeSoftwareImageAdapterExtended::findSectionConflict(unsigned short instance)
{
    SectionConflict conflict{SectionConflict::NONE, m_ImageInstanceUnderDownload, m_SoftwareDownloadStatus};
    if (instance != m_ImageInstanceUnderDownload) {
        conflict.kind = SectionConflict::INSTANCE;
    } else if (m_IsDownloadInProgress == 0) {
        conflict.kind = SectionConflict::NOT_IN_PROGRESS;
    } else if (m_SoftwareDownloadStatus != STATUS_STARTED && m_SoftwareDownloadStatus != STATUS_IN_PROGRESS) {
        conflict.kind = SectionConflict::STATUS;
    }
    return conflict;
}

void OmciMeSoftwareImageAdapterExtended::logSectionConflict(const SectionConflict& conflict, unsigned short instance)
{
    switch (conflict.kind) {
    case SectionConflict::NONE:
        break;
    case SectionConflict::INSTANCE:
        NRVK_LOG(3, "Instance(%hhu) under download, command received for instance(%hu)", conflict.instanceUnderDownload,
                 instance);
        break;
    case SectionConflict::NOT_IN_PROGRESS:
        NRVK_LOG(3, "Software download is not in progress");
        break;
    case SectionConflict::STATUS:
        NRVK_LOG(3, "Status = %s not allowed", statusWord(conflict.status).c_str());
        break;
    }
}

int OmciMeSoftwareImageAdapterExtended::checkForConflictDownloadSection(OmciFrame* frame)
{
    if (frame == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const unsigned short instance = frame->getManagedEntityInstance();
    SectionConflict conflict{};
    {
        const Lock lock(m_Mutex);
        conflict = findSectionConflict(instance);
    }
    logSectionConflict(conflict, instance);
    return conflict.kind == SectionConflict::NONE ? 0 : -1;
}
