#include "board/BoardScripts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "CRC32.h"
#include "Logger.h"
#include "board/BoardFiles.h"
#include "host/LogSink.h"

namespace {
constexpr const char* kStartScript = "/etc/init.d/rcBSP ";
constexpr const char* kVerifyScript = "/opt/addons/am/verify_and_exec.sh ";
constexpr const char* kVerifyStatus = "/opt/addons/etc/sef_status.txt";
constexpr const char* kNextSlot = "/opt/addons/etc/next_app";
constexpr int kFailed = 1;
constexpr int kNoSuchCommand = 127;
constexpr unsigned char kWarning = 4;
constexpr unsigned char kNotice = 5;

void report(unsigned char level, const std::string& text)
{
    Logger::getInstance(omci::kHostLoggerId)
        ->writeToLog(0, "run", "simulator/board/BoardScripts.cpp", __LINE__, level, "%s", text.c_str());
}

bool takePrefix(std::string& text, const std::string& prefix)
{
    if (text.compare(0, prefix.size(), prefix) != 0) {
        return false;
    }
    text.erase(0, prefix.size());
    return true;
}

std::string nameOf(Slot slot)
{
    return "APP" + std::to_string(static_cast<int>(slot));
}

std::string imageOf(Slot slot)
{
    return "/opt/addons/images/app" + std::to_string(static_cast<int>(slot)) + ".sef";
}

Slot runningSlot(const ImageDescriptions& slots)
{
    return slots.isActive(Slot::App2) && !slots.isActive(Slot::App1) ? Slot::App2 : Slot::App1;
}

std::optional<Slot> selectedSlot()
{
    const auto text = board::readFile(kNextSlot);
    if (!text || text->empty()) {
        return std::nullopt;
    }
    return text->front() == '2' ? Slot::App2 : Slot::App1;
}

/// An image carries no version that the board could read: its checksum, as the OLT computes it, tells images apart.
std::string versionOf(const std::string& file)
{
    std::ifstream image(board::path(file), std::ios::binary);
    std::array<char, 65536> part;
    CRC32 checksum;
    checksum.m_Crc = 0xFFFFFFFF;
    unsigned int value = 0;
    while (image.read(part.data(), part.size()), image.gcount() > 0) {
        value = checksum.getCRC(reinterpret_cast<unsigned char*>(part.data()), static_cast<int>(image.gcount()));
    }
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "IMG-%08X", value);
    return text.data();
}

int selectNextSlot()
{
    const ImageDescriptions slots = ImageDescriptions::load();
    const Slot next = otherThan(runningSlot(slots));
    if (!slots.isValid(next)) {
        report(kWarning, nameOf(next) + " has no valid image and is not selected");
        return kFailed;
    }
    board::writeFile(kNextSlot, std::to_string(static_cast<int>(next)) + "\n");
    report(kNotice, nameOf(next) + " is selected for the next boot");
    return 0;
}

int commitRunningSlot()
{
    ImageDescriptions slots = ImageDescriptions::load();
    const Slot running = runningSlot(slots);
    slots.commit(running);
    slots.save();
    board::removeFile(kNextSlot);
    report(kNotice, nameOf(running) + " is committed");
    return 0;
}

/// `arguments`: slot and mark, "1 0".
int setCommit(const std::string& arguments)
{
    const bool isRight = arguments.size() == 3 && (arguments[0] == '1' || arguments[0] == '2') && arguments[1] == ' ' &&
                         (arguments[2] == '0' || arguments[2] == '1');
    if (!isRight) {
        report(kWarning, "rcBSP -set_commit takes a slot, 1 or 2, and a mark, 0 or 1; not \"" + arguments + "\"");
        return kFailed;
    }
    ImageDescriptions slots = ImageDescriptions::load();
    slots.set("APP" + arguments.substr(0, 1) + "_COMMIT", arguments.substr(2));
    slots.save();
    return 0;
}
}  // namespace

int BoardScripts::run(const std::string& command)
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    try {
        return runLocked(command, lock);
    } catch (const std::exception& problem) {
        // The library's threads take no exceptions from a shell.
        report(kWarning, command + ": " + problem.what());
        return kFailed;
    }
}

int BoardScripts::runLocked(const std::string& command, std::unique_lock<std::mutex>& lock)
{
    std::string arguments = command;
    if (takePrefix(arguments, kVerifyScript)) {
        return verify(arguments, lock);
    }
    if (takePrefix(arguments, kStartScript)) {
        return runBoardScript(arguments);
    }
    // What is for the machine as a whole, such as dropping its page cache.
    return 0;
}

int BoardScripts::runBoardScript(const std::string& arguments)
{
    std::string rest = arguments;
    if (m_IsDown) {
        return kFailed;
    }
    if (arguments == "-select_next_app") {
        return selectNextSlot();
    }
    if (arguments == "-select_running_app") {
        return commitRunningSlot();
    }
    if (takePrefix(rest, "-set_commit ")) {
        return setCommit(rest);
    }
    if (arguments == "-reset_app_boot_cnt") {
        return 0;
    }
    report(kWarning, "rcBSP does not know \"" + arguments + "\"");
    return kNoSuchCommand;
}

int BoardScripts::verify(const std::string& arguments, std::unique_lock<std::mutex>& lock)
{
    // app FILE OPTIONS...
    std::string imageFile = arguments;
    board::removeFile(kVerifyStatus);
    if (!takePrefix(imageFile, "app ")) {
        report(kWarning, "verify_and_exec.sh does not know \"" + arguments + "\"");
        return kFailed;
    }
    imageFile.resize(std::min(imageFile.find(' '), imageFile.size()));
    m_Changed.wait(lock, [this] { return !m_IsHeld || m_IsDown; });
    if (m_IsDown) {
        return kFailed;
    }
    switch (m_Verification.kind) {
    case Verification::MISSING_ONCE:
        m_Verification = {};
        return kFailed;
    case Verification::MISSING:
        return kFailed;
    case Verification::LINE:
        if (m_Verification.line != "0") {
            board::writeFile(kVerifyStatus, m_Verification.line + "\n");
            return kFailed;
        }
        break;
    case Verification::OK:
        break;
    }
    const int result = putInPlace(imageFile, lock);
    board::writeFile(kVerifyStatus, std::to_string(result) + "\n");
    return result;
}

int BoardScripts::putInPlace(const std::string& imageFile, std::unique_lock<std::mutex>& lock)
{
    namespace fs = std::filesystem;
    const Slot target = otherThan(runningSlot(ImageDescriptions::load()));
    const fs::path source = board::path(imageFile);
    std::error_code error;
    if (fs::file_size(source, error) == 0 || error) {
        report(kWarning, imageFile + " holds no image");
        return kFailed;
    }
    const fs::path place = board::path(imageOf(target));
    fs::create_directories(place.parent_path());
    // Other scripts need not wait for as long as a large image takes.
    lock.unlock();
    fs::copy_file(source, place, fs::copy_options::overwrite_existing);
    const std::string version = versionOf(imageOf(target));
    lock.lock();
    ImageDescriptions slots = ImageDescriptions::load();
    slots.setImage(target, version);
    slots.save();
    report(kNotice, nameOf(target) + " has a new image of " + std::to_string(fs::file_size(place)) + " bytes");
    return 0;
}

void BoardScripts::setVerification(Verification verification)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Verification = std::move(verification);
}

void BoardScripts::hold(bool isHeld)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsHeld = isHeld;
    m_Changed.notify_all();
}

void BoardScripts::describe(const Descriptions& values)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    ImageDescriptions slots = ImageDescriptions::load();
    for (const auto& [key, value] : values) {
        slots.set(key, value);
    }
    slots.save();
}

void BoardScripts::forgetDescriptions()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    ImageDescriptions::remove();
}

void BoardScripts::boot()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    try {
        bootSlot();
    } catch (const std::exception& problem) {
        report(kWarning, std::string("boot: ") + problem.what());
    }
}

void BoardScripts::bootSlot()
{
    const std::optional<Slot> selected = selectedSlot();
    board::removeFile(kNextSlot);
    if (!selected && !ImageDescriptions::exist()) {
        return;
    }
    ImageDescriptions slots = ImageDescriptions::load();
    const Slot committed = slots.isCommitted(Slot::App2) ? Slot::App2 : Slot::App1;
    Slot slot = runningSlot(slots);
    if (selected && slots.isValid(*selected)) {
        slot = *selected;
    } else if (slots.isCommitted(committed) && slots.isValid(committed)) {
        slot = committed;
    }
    slots.run(slot);
    slots.save();
    report(kNotice, nameOf(slot) + " boots");
}

void BoardScripts::goDown()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsDown = true;
    m_Changed.notify_all();
}

void BoardScripts::comeUp()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsDown = false;
}
