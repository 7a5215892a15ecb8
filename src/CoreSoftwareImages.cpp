// What the boot side knows of the two application partitions, as software image entities (G.988 9.1.4, class 7).
#include <array>
#include <cstdio>
#include <optional>

#include "IniFile.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "StartupTable.h"
#include "impl/Log.h"
#include "impl/Shell.h"

namespace {

constexpr unsigned short kSoftwareImageClass = 7;
constexpr unsigned short kVersion = 0x8000;
constexpr unsigned short kIsCommitted = 0x4000;
constexpr unsigned short kIsActive = 0x2000;
constexpr unsigned short kIsValid = 0x1000;

constexpr const char* kSlotLine =
    "SwImage-%hhu : version(%s), commit(%hhu), active(%hhu), valid(%hhu), partSelected(%hhu)";

/// One application slot of the image description file.
struct ImageSlot
{
    std::string version;
    unsigned char committed;
    unsigned char active;
    unsigned char valid;
    unsigned char instance;  ///< partition, counted from 0
};

/// Keys of one slot in the image description file.
struct ImageSlotKeys
{
    const char* version;
    const char* commit;
    const char* active;
    const char* valid;
    const char* partition;
};

constexpr std::array<ImageSlotKeys, 2> kSlotKeys = {{
    {"APP1_SW_VERSION", "APP1_COMMIT", "APP1_ACTIVE", "APP1_VALID", "APP1_PART_SEL"},
    {"APP2_SW_VERSION", "APP2_COMMIT", "APP2_ACTIVE", "APP2_VALID", "APP2_PART_SEL"},
}};

using ImageSlots = std::array<ImageSlot, kSlotKeys.size()>;

ImageSlot readSlot(const nrvk::IniFile& file, const ImageSlotKeys& keys)
{
    return {file.text(keys.version), file.byte(keys.commit, 0), file.byte(keys.active, 0), file.byte(keys.valid, 0),
            static_cast<unsigned char>(file.byte(keys.partition, 1) - 1)};
}

ImageSlots readSlots(const nrvk::IniFile& file)
{
    return {readSlot(file, kSlotKeys[0]), readSlot(file, kSlotKeys[1])};
}

/// The sum of the four results.
int updateImage(const ImageSlot& slot)
{
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    int result = registrar->updateManagedEntity(kSoftwareImageClass, slot.instance, kVersion, slot.version);
    result += registrar->updateManagedEntity(kSoftwareImageClass, slot.instance, kIsCommitted, slot.committed);
    result += registrar->updateManagedEntity(kSoftwareImageClass, slot.instance, kIsActive, slot.active);
    result += registrar->updateManagedEntity(kSoftwareImageClass, slot.instance, kIsValid, slot.valid);
    return result;
}

/// A slot that runs as it was committed has booted well.
bool isSettled(const ImageSlot& slot)
{
    return slot.committed == slot.active;
}

}  // namespace

int OmciManagedEntitiesCore::updateSoftwareImageMEs()
{
    NRVK_LOG(6, "Configuration file(%s)", m_AppInfoConfigurationFile.c_str());
    const auto file = nrvk::IniFile::load(m_AppInfoConfigurationFile);
    if (!file) {
        return -1;
    }
    const ImageSlots slots = readSlots(*file);
    int result = 0;
    for (const ImageSlot& slot : slots) {
        NRVK_LOG(3, kSlotLine, slot.instance, slot.version.c_str(), slot.committed, slot.active, slot.valid,
                 slot.instance);
        std::printf("SwImage-%hhu : version(%s), commit(%hhu), active(%hhu), valid(%hhu), partSelected(%hhu)\n",
                    slot.instance, slot.version.c_str(), slot.committed, slot.active, slot.valid, slot.instance);
        result = updateImage(slot);
    }
    if (isSettled(slots[0]) && isSettled(slots[1])) {
        constexpr const char* command = "/etc/init.d/rcBSP -reset_app_boot_cnt";
        NRVK_LOG(4, command);
        nrvk::runCommand(command);
    }
    // The last slot's results alone count.
    if (result != 0) {
        NRVK_LOG(4, "Failed to update one or more attributes");
        return -1;
    }
    return 0;
}

int OmciManagedEntitiesCore::buildCommitCommands(std::string& first, std::string& second)
{
    NRVK_LOG(6, "Configuration file(%s)", m_AppInfoConfigurationFile.c_str());
    const auto file = nrvk::IniFile::load(m_AppInfoConfigurationFile);
    if (!file) {
        return -1;
    }
    const ImageSlots slots = readSlots(*file);
    const bool firstIsCommitted = slots[0].committed == 1;
    first = firstIsCommitted ? "/etc/init.d/rcBSP -set_commit 1 0" : "/etc/init.d/rcBSP -set_commit 2 0";
    second = firstIsCommitted ? "/etc/init.d/rcBSP -set_commit 2 1" : "/etc/init.d/rcBSP -set_commit 1 1";
    return 0;
}

void OmciManagedEntitiesCore::updateSoftwareImage(unsigned char index, AttributeValues& values,
                                                  const std::string& /*factoryFile*/)
{
    NRVK_LOG(6, "Index(hhu)", index);
    const auto file = nrvk::IniFile::load("/opt/addons/etc/appinfo.ini");
    if (!file) {
        return;
    }
    constexpr std::size_t longestVersion = 12;
    const ImageSlots slots = readSlots(*file);
    const unsigned char slotNumber = slots[0].instance == index ? 0 : 1;
    const ImageSlot& slot = slots[slotNumber];
    NRVK_LOG(4, kSlotLine, slotNumber, slot.version.c_str(), slot.committed, slot.active, slot.valid, slot.instance);
    nrvk::writeStartupText(values, kVersion, slot.version.substr(0, longestVersion).c_str());
    nrvk::writeStartupNumber(values, kIsCommitted, slot.committed);
    nrvk::writeStartupNumber(values, kIsActive, slot.active);
    nrvk::writeStartupNumber(values, kIsValid, slot.valid);
}
