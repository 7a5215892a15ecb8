#ifndef NRVK_TESTS_ADAPTER_EXTENDED_SOFTWARE_DOWNLOAD_TEST_H
#define NRVK_TESTS_ADAPTER_EXTENDED_SOFTWARE_DOWNLOAD_TEST_H

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

#include "CRC32.h"
#include "Frames.h"
#include "LibraryTest.h"
#include "NorvikTimer.h"
#include "OmciManagedEntityRegistrar.h"
#include "SoftwareDownloadAccess.h"
#include "adapterExtended/OmciMeSoftwareImageAdapterExtended.h"
#include "implExtended/OmciMeSoftwareImageImplExtended.h"
#include "sandbox/Sandbox.h"

/// What no operation reaches: the writer's end.
struct SoftwareDownloadState
{
    static void waitForWriters() { OmciMeSoftwareImageAdapterExtended::waitForWriters(); }
};

/// A board that runs and has committed image 0, and an OLT that downloads to image 1.
class SoftwareDownloadTest : public LibraryTest
{
protected:
    using Image = std::vector<unsigned char>;
    using Texts = std::vector<std::string>;
    using Adapter = OmciMeSoftwareImageAdapterExtended;

    static constexpr unsigned short kClass = 7;
    static constexpr unsigned short kIsCommitted = 0x4000;
    static constexpr unsigned short kIsActive = 0x2000;
    static constexpr unsigned short kIsValid = 0x1000;
    static constexpr const char* kDescriptions = "/opt/addons/etc/appinfo.ini";
    static constexpr const char* kVerifyStatus = "/opt/addons/etc/sef_status.txt";
    static constexpr const char* kImageFile = "/tmp/ont_image.sef";
    static constexpr const char* kDropCaches = "sync ; echo 3 > /proc/sys/vm/drop_caches";
    static constexpr const char* kVerify =
        "/opt/addons/am/verify_and_exec.sh app /tmp/ont_image.sef BLOB_APPS_SUPPORTED=2";

    SoftwareDownloadTest()
    {
        nrvk::forgetSoftwareDownload();
        std::filesystem::remove(Sandbox::realPath(kVerifyStatus));
        std::filesystem::remove(Sandbox::realPath(kImageFile));
        writeFile(kDescriptions, descriptions(0, 0));
        // No time passes, on however slow a machine.
        NorvikTimer::setTimeScale(0.01);
        startUp();
        ON_CALL(hardware, endSoftwareImageDownload).WillByDefault(::testing::Return(true));
        Sandbox::setFreeSpace(1U << 30);
        descriptionsMayBeRead();
        getNumber(kClass, 0, kIsActive);
        Sandbox::clearCommands();
        log.clear();
    }
    ~SoftwareDownloadTest() override
    {
        SoftwareDownloadState::waitForWriters();
        NorvikTimer::setTimeScale(1);
    }

    static Adapter& images() { return static_cast<Adapter&>(adapter(kClass)); }
    static void descriptionsMayBeRead() { OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler({}); }

    static std::string descriptions(unsigned int committed, unsigned int active)
    {
        const auto slot = [&](unsigned int instance) {
            const std::string name = "APP" + std::to_string(instance + 1);
            return name + "_SW_VERSION=V1." + std::to_string(instance) + "\n" + name +
                   "_COMMIT=" + (committed == instance ? "1" : "0") + "\n" + name +
                   "_ACTIVE=" + (active == instance ? "1" : "0") + "\n" + name + "_VALID=1\n" + name +
                   "_PART_SEL=" + std::to_string(instance + 1) + "\n";
        };
        return slot(0) + slot(1);
    }
    static void writeFile(const std::string& path, const std::string& contents)
    {
        const std::filesystem::path real = Sandbox::realPath(path);
        std::filesystem::create_directories(real.parent_path());
        std::ofstream(real, std::ios::binary) << contents;
    }
    static Image readFile(const std::string& path)
    {
        std::ifstream file(Sandbox::realPath(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static Image imageOf(std::size_t bytes)
    {
        Image image(bytes);
        unsigned int value = 12345;
        for (unsigned char& byte : image) {
            value = value * 1103515245U + 12345U;
            byte = static_cast<unsigned char>(value >> 16);
        }
        return image;
    }
    static unsigned int crcOf(Image image)
    {
        CRC32 crc;
        crc.m_Crc = 0xFFFFFFFF;
        return crc.getCRC(image.data(), static_cast<int>(image.size()));
    }

    /// @name What the OLT sends. The reply stays in `reply`.
    /// @{
    static Image bigEndian(unsigned int value)
    {
        return {static_cast<unsigned char>(value >> 24), static_cast<unsigned char>(value >> 16),
                static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value)};
    }
    /// One circuit pack.
    static void addTarget(Image& contents, unsigned short instance)
    {
        contents.insert(contents.end(),
                        {1, static_cast<unsigned char>(instance >> 8), static_cast<unsigned char>(instance)});
    }
    OmciFrame startFrame(unsigned int imageSize, unsigned char window = 15, unsigned short instance = 1)
    {
        Image contents{window};
        const Image size = bigEndian(imageSize);
        contents.insert(contents.end(), size.begin(), size.end());
        addTarget(contents, instance);
        return requestFrame(omci::MessageType::StartSoftwareDownload, kClass, instance, contents, format);
    }
    OmciFrame sectionFrame(unsigned char number, const Image& bytes, bool acknowledge, unsigned short instance = 1)
    {
        Image contents{number};
        contents.insert(contents.end(), bytes.begin(), bytes.end());
        return requestFrame(omci::MessageType::DownloadSection, kClass, instance, contents, format, acknowledge);
    }
    OmciFrame endFrame(unsigned int crc, unsigned int imageSize, unsigned short instance = 1)
    {
        Image contents = bigEndian(crc);
        const Image size = bigEndian(imageSize);
        contents.insert(contents.end(), size.begin(), size.end());
        addTarget(contents, instance);
        return requestFrame(omci::MessageType::EndSoftwareDownload, kClass, instance, contents, format);
    }
    int start(unsigned int imageSize, unsigned char window = 15, unsigned short instance = 1)
    {
        reply = startFrame(imageSize, window, instance);
        return images().startSoftwareDownload(&reply);
    }
    int section(unsigned char number, const Image& bytes, bool acknowledge, unsigned short instance = 1)
    {
        reply = sectionFrame(number, bytes, acknowledge, instance);
        return images().downloadSection(&reply);
    }
    int end(unsigned int crc, unsigned int imageSize, unsigned short instance = 1)
    {
        reply = endFrame(crc, imageSize, instance);
        return images().endSoftwareDownload(&reply);
    }
    int poll() { return end(0, 0); }
    int activate(unsigned short instance)
    {
        reply = requestFrame(omci::MessageType::ActivateImage, kClass, instance, {}, format);
        return images().activateSoftwareImage(&reply);
    }
    int commit(unsigned short instance)
    {
        reply = requestFrame(omci::MessageType::CommitImage, kClass, instance, {}, format);
        return images().commitSoftware(&reply);
    }
    /// One acknowledged window for every `window` sections of the whole image.
    void sendImage(const Image& image, unsigned int window = 16)
    {
        const std::size_t room = format == omci::Format::Baseline ? 31 : 1965;
        unsigned int number = 0;
        for (std::size_t offset = 0; offset < image.size(); offset += room) {
            const std::size_t stop = std::min(offset + room, image.size());
            const bool closes = stop == image.size() || number + 1 == window;
            const Image bytes(image.begin() + static_cast<std::ptrdiff_t>(offset),
                              image.begin() + static_cast<std::ptrdiff_t>(stop));
            ASSERT_EQ(section(static_cast<unsigned char>(number), bytes, closes), closes ? 0 : 1);
            number = closes ? 0 : number + 1;
        }
    }
    /// Start, sections and end; the writer is under way then.
    void download(const Image& image)
    {
        ASSERT_EQ(start(static_cast<unsigned int>(image.size())), 0);
        sendImage(image);
        ASSERT_EQ(end(crcOf(image), static_cast<unsigned int>(image.size())), 0);
    }
    /// @}

    /// The result and reason of the reply, or "none".
    std::string replied() const
    {
        return reply.hasReply() ? std::to_string(replyContents(reply)[0]) : std::string("none");
    }
    /// Window size or section number of the reply.
    unsigned int repliedValue() const { return replyContents(reply)[1]; }

    /// The board's verify script: each run takes the next text for the status file, none at the end of the list.
    static void verifyScriptWrites(const Texts& outcomes)
    {
        auto left = std::make_shared<Texts>(outcomes);
        Sandbox::setCommandHandler([left](const std::string& command) {
            if (command == kVerify && !left->empty()) {
                if (left->front() != "-") {
                    writeFile(kVerifyStatus, left->front());
                }
                left->erase(left->begin());
            }
            return 0;
        });
    }

    /// The display as "label" -> "value", with the status word under "Word".
    static std::map<std::string, std::string> display()
    {
        std::map<std::string, std::string> fields;
        std::string text = displayText();
        for (std::size_t line = 0; line < text.size();) {
            const std::size_t stop = text.find("\n\r", line);
            const std::string label = text.substr(line, text.find_last_not_of(' ', line + 33) + 1 - line);
            fields[fields.count(label) != 0 ? "Word" : label] = text.substr(line + 36, stop - line - 36);
            line = stop + 2;
        }
        return fields;
    }
    static std::string displayText()
    {
        char* text = nullptr;
        std::size_t size = 0;
        FILE* file = open_memstream(&text, &size);
        images().showSoftwareDownloadStatus(file);
        std::fclose(file);
        const std::string copy(text, size);
        std::free(text);
        return copy;
    }
    static unsigned int status() { return Adapter::getSoftwareDownloadStatus(); }
    static bool inProgress() { return display()["Upgrade in progress"] == "yes"; }
    static void putStatus(unsigned short status) { EXPECT_EQ(Adapter::updateSoftwareDownloadStatus(status), 0); }
    static std::size_t timersOfDownload()
    {
        std::size_t count = 0;
        for (const NorvikTimer::Running& timer : NorvikTimer::getRunningTimers()) {
            count += timer.handler == &Adapter::timerHandler ? 1 : 0;
        }
        return count;
    }
    std::size_t readsOfDescriptions() const
    {
        std::size_t reads = 0;
        for (const LogLine& line : log.lines()) {
            reads +=
                line.function == "updateSoftwareImageMEs" && line.text.rfind("Configuration file(", 0) == 0 ? 1 : 0;
        }
        return reads;
    }

    omci::Format format = omci::Format::Baseline;
    OmciFrame reply;
};

#endif
