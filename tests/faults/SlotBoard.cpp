#include "SlotBoard.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "sandbox/Sandbox.h"
#include "sandbox/SandboxState.h"

namespace {

constexpr const char* kDescriptions = "/opt/addons/etc/appinfo.ini";
constexpr const char* kVerifyStatus = "/opt/addons/etc/sef_status.txt";
constexpr const char* kImageFile = "/tmp/ont_image.sef";
constexpr const char* kVerify = "/opt/addons/am/verify_and_exec.sh app /tmp/ont_image.sef BLOB_APPS_SUPPORTED=2";
constexpr const char* kSelectOtherImage = "/etc/init.d/rcBSP -select_next_app";
constexpr const char* kSelectRunningImage = "/etc/init.d/rcBSP -select_running_app";

void writeFile(const std::string& path, const std::string& contents)
{
    const std::filesystem::path real = Sandbox::realPath(path);
    const sandbox::OwnWork own;
    std::filesystem::create_directories(real.parent_path());
    std::ofstream(real, std::ios::binary) << contents;
}

}  // namespace

SlotBoard::SlotBoard()
{
    for (const char* left : {kVerifyStatus, kImageFile}) {
        const std::filesystem::path real = Sandbox::realPath(left);
        const sandbox::OwnWork own;
        std::filesystem::remove(real);
    }
    describe();
}

void SlotBoard::connect()
{
    Sandbox::setCommandHandler([this](const std::string& command) { return run(command); });
}

void SlotBoard::expectImage(model::Bytes image)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Image = std::move(image);
}

void SlotBoard::reboot()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Slots[m_Next].isActive = true;
    m_Slots[1 - m_Next].isActive = false;
    describe();
}

SlotBoard::Slot SlotBoard::slot(unsigned int instance) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Slots.at(instance);
}

unsigned int SlotBoard::idleSlot() const
{
    return slot(0).isActive ? 1 : 0;
}

model::Bytes SlotBoard::receivedImage()
{
    const std::string real = Sandbox::realPath(kImageFile);
    const sandbox::OwnWork own;
    std::ifstream file(real, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int SlotBoard::run(const std::string& command)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const unsigned int running = m_Slots[0].isActive ? 0 : 1;
    if (command == kVerify) {
        return verify();
    }
    if (command == kSelectOtherImage) {
        m_Next = 1 - running;
    } else if (command == kSelectRunningImage) {
        m_Next = running;
        m_Slots[running].isCommitted = true;
        m_Slots[1 - running].isCommitted = false;
        describe();
    }
    return 0;
}

int SlotBoard::verify()
{
    Slot& target = m_Slots[m_Slots[0].isActive ? 1 : 0];
    model::Bytes image = receivedImage();
    // The file is not cut: a longer image of before keeps its tail.
    image.resize(std::min(image.size(), m_Image.size()));
    target.isValid = image == m_Image;
    describe();
    writeFile(kVerifyStatus, target.isValid ? "0\n" : "1\n");
    return 0;
}

void SlotBoard::describe() const
{
    std::string text;
    for (unsigned int instance = 0; instance < m_Slots.size(); ++instance) {
        const std::string name = "APP" + std::to_string(instance + 1);
        const Slot& slot = m_Slots[instance];
        text += name + "_SW_VERSION=V1." + std::to_string(instance) + "\n";
        text += name + "_COMMIT=" + (slot.isCommitted ? "1" : "0") + "\n";
        text += name + "_ACTIVE=" + (slot.isActive ? "1" : "0") + "\n";
        text += name + "_VALID=" + (slot.isValid ? "1" : "0") + "\n";
        text += name + "_PART_SEL=" + std::to_string(instance + 1) + "\n";
    }
    writeFile(kDescriptions, text);
}
