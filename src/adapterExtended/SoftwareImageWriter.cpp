// The thread that writes a received image: into a file, and by the board's script into its place.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"
#include "impl/Log.h"
#include "impl/Shell.h"
#include "impl/SoftwareImageDescriptions.h"

namespace {

constexpr const char* kImageFile = "/tmp/ont_image.sef";
constexpr const char* kVerifyCommand = "/opt/addons/am/verify_and_exec.sh app /tmp/ont_image.sef BLOB_APPS_SUPPORTED=2";
constexpr const char* kVerifyStatusFile = "/opt/addons/etc/sef_status.txt";

/// The first line without its end, and the file closed.
std::string readFirstLine(FILE* file)
{
    char line[256] = "";
    if (std::fgets(line, sizeof line, file) != nullptr) {
        line[std::strcspn(line, "\n")] = '\0';
    }
    std::fclose(file);
    return line;
}

}  // namespace

void* OmciMeSoftwareImageAdapterExtended::flashWriterCallback(void* parameters)
{
    {
        std::unique_lock<std::mutex> lock(m_Mutex);
        m_WriterChanged.wait(lock, [] { return m_IsWriterHeld == 0; });
    }
    try {
        writeImage(parameters);
    } catch (const std::exception& exception) {
        endWriteAfter(exception.what());
    } catch (...) {
        endWriteAfter("unknown exception");
    }
    {
        const Lock lock(m_Mutex);
        if (m_WritersRunning != 0) {
            --m_WritersRunning;
        }
        m_WriterChanged.notify_all();
    }
    pthread_detach(pthread_self());
    return nullptr;
}

void OmciMeSoftwareImageAdapterExtended::writeImage(void* parameters)
{
    if (saveImage()) {
        verifyImage(parameters);
    }
}

void OmciMeSoftwareImageAdapterExtended::endWriteAfter(const char* what) noexcept
{
    endWrite(STATUS_WRITE_FAILED);
    NRVK_LOG_IF_POSSIBLE(3, "Writing the image failed(%s)", what);
}

bool OmciMeSoftwareImageAdapterExtended::saveImage()
{
    // Deliberately not truncated: a longer image of before keeps its tail.
    const int file = open(kImageFile, O_WRONLY | O_CREAT, 0700);
    if (file < 0) {
        const int error = errno;
        giveUpWrite();
        NRVK_LOG(3, "Cannot create the file in the /tmp directory - errno(%u)", error);
        return false;
    }
    // No lock: the image stays while it is in use.
    const ssize_t written = write(file, m_ImageStorage, m_ImageSize);
    int error = errno;
    bool isSaved = written >= 0 && static_cast<std::size_t>(written) == m_ImageSize;
    // A disk may tell only now that it is full.
    if (close(file) != 0 && isSaved) {
        error = errno;
        isSaved = false;
    }
    if (!isSaved) {
        giveUpWrite();
        NRVK_LOG(3, "Cannot write ONT image in the file - errno(%u)", error);
        return false;
    }
    return true;
}

void OmciMeSoftwareImageAdapterExtended::verifyImage(void* parameters)
{
    if (parameters == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        giveUpWrite();
        return;
    }
    updateSoftwareDownloadStatus(STATUS_WRITING);
    NRVK_LOG(4, "System call(%s)", kVerifyCommand);
    if (isVerifiedAndInPlace()) {
        announceStatus(STATUS_WRITTEN);
        // Before the OLT sees success, so that it finds the new image's description then.
        readNewDescription();
        endWrite(STATUS_WRITTEN);
    } else {
        announceStatus(STATUS_WRITE_FAILED);
        endWrite(STATUS_WRITE_FAILED);
    }
}

void OmciMeSoftwareImageAdapterExtended::readNewDescription()
{
    try {
        nrvk::readSoftwareImageDescriptions();
    } catch (const std::exception& exception) {
        NRVK_LOG(3, "Reading the new image's description failed(%s)", exception.what());
    } catch (...) {
        NRVK_LOG(3, "Reading the new image's description failed(%s)", "unknown exception");
    }
}

bool OmciMeSoftwareImageAdapterExtended::isVerifiedAndInPlace()
{
    for (int attempt = 0; attempt < NUMBER_OF_VERIFY_AND_EXEC_RETRY; ++attempt) {
        // Where the script has not run, the file tells of an earlier image.
        FILE* file = nrvk::runCommand(kVerifyCommand) ? std::fopen(kVerifyStatusFile, "r") : nullptr;
        if (file == nullptr) {
            NRVK_LOG(3, "System call(%s) failed(%s). Retry(%d/%d).", kVerifyCommand, "", attempt + 1,
                     NUMBER_OF_VERIFY_AND_EXEC_RETRY);
            continue;
        }
        const std::string status = readFirstLine(file);
        if (status == "0") {
            return true;
        }
        NRVK_LOG(3, "System call(%s) failed(%s)", kVerifyCommand, status.c_str());
        return false;
    }
    return false;
}

void OmciMeSoftwareImageAdapterExtended::endWrite(unsigned char status)
{
    unsigned char* image = nullptr;
    {
        const Lock lock(m_Mutex);
        image = resetTransfer();
        storeStatus(status);
    }
    discardImage(image);
}

void OmciMeSoftwareImageAdapterExtended::giveUpWrite()
{
    unsigned char* image = nullptr;
    {
        const Lock lock(m_Mutex);
        image = resetTransfer();
    }
    discardImage(image);
}
