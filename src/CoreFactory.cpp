// The identity of one unit: serial number, versions, part number and MAC addresses.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "HALFactory.h"
#include "IniFile.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeCircuitPackIf.h"
#include "OmciMeFactory.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeOnuGIf.h"
#include "StartupTable.h"
#include "impl/Log.h"

namespace {

constexpr const char* kPartNumberKey = "partNo";
constexpr std::size_t kVersionBytes = 14;
constexpr std::size_t kSerialNumberBytes = 8;
constexpr std::size_t kMacAddressBytes = 6;

constexpr unsigned short kCircuitPackClass = 6;
constexpr unsigned short kCircuitPackSerialNumber = 0x2000;
constexpr unsigned short kCircuitPackVersion = 0x1000;
constexpr unsigned short kCircuitPackVendorId = 0x800;
constexpr unsigned short kOnuGClass = 256;
constexpr unsigned short kOnuGVersion = 0x4000;
constexpr unsigned short kOnuGSerialNumber = 0x2000;
constexpr unsigned short kOnu2GClass = 257;
constexpr unsigned short kOnu2GEquipmentId = 0x8000;
constexpr unsigned short kOnu2GVendorProductCode = 0x2000;
constexpr unsigned short kIpHostClass = 134;
constexpr unsigned short kIpHostMacAddress = 0x4000;
constexpr unsigned short kVeipClass = 329;

using SerialNumber = std::array<unsigned char, kSerialNumberBytes>;

void updateText(unsigned short classId, unsigned short instance, unsigned short attributeMask, const std::string& value)
{
    OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(classId, instance, attributeMask, value);
}

/// Two digits a byte; a last digit alone is a byte, and what is missing is zero.
SerialNumber serialNumberBytes(const char* digits)
{
    SerialNumber bytes{};
    const std::size_t length = strnlen(digits, 2 * bytes.size());
    for (std::size_t i = 0; 2 * i < length; ++i) {
        const char pair[3] = {digits[2 * i], 2 * i + 1 < length ? digits[2 * i + 1] : '\0', '\0'};
        bytes[i] = static_cast<unsigned char>(std::strtoul(pair, nullptr, 16));
    }
    return bytes;
}

/// Bytes as the text that a C string makes of them: the first zero byte ends it.
template <std::size_t Size>
std::string textOf(const std::array<unsigned char, Size>& bytes)
{
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
}

void updateIdentityOfCircuitPacks(const std::string& serialNumber, const std::string& version)
{
    const OmciMeCircuitPackIf* pack = OmciMeCircuitPackIf::getFirstManagedEntityInstance();
    while (pack != nullptr) {
        const unsigned short instance = pack->getManagedEntityInstance();
        updateText(kCircuitPackClass, instance, kCircuitPackSerialNumber, serialNumber);
        updateText(kCircuitPackClass, instance, kCircuitPackVendorId, "NRVK");
        updateText(kCircuitPackClass, instance, kCircuitPackVersion, version);
        pack = OmciMeCircuitPackIf::getNextManagedEntityInstance(instance);
    }
}

void updateIdentityOfOnuG(const std::string& serialNumber, const std::string& version)
{
    if (const OmciMeOnuGIf* onuG = OmciMeOnuGIf::getFirstManagedEntityInstance()) {
        updateText(kOnuGClass, onuG->getManagedEntityInstance(), kOnuGVersion, version);
        updateText(kOnuGClass, onuG->getManagedEntityInstance(), kOnuGSerialNumber, serialNumber);
    }
}

/// The letter or two that a hardware version such as "REV-B" ends in.
std::string hardwareRevision(std::string version)
{
    const std::string fallback = "A";
    if (version.empty()) {
        NRVK_LOG(6, "key or value not present in factoryinfo.ini file \n");
        return fallback;
    }
    if (const std::size_t hyphen = version.find('-'); hyphen != std::string::npos) {
        version.erase(0, hyphen + 1);
    }
    return version.size() == 1 || version.size() == 2 ? version : fallback;
}

/// The management host of the ONU has the primary address, under its id before and after the swap.
std::string macAddressOfHost(NrvkHal& hal, unsigned short instance)
{
    const bool primary = instance == 1 || instance == 514;
    return primary ? hal.halGetPrimaryMacAddress("") : hal.halGetSecondaryMacAddress("");
}

}  // namespace

int OmciManagedEntitiesCore::updateBoardSpecificParameters(char* serialNumber, char* version, char* macAddress)
{
    if (serialNumber == nullptr || version == nullptr || macAddress == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    const SerialNumber bytes = serialNumberBytes(serialNumber);
    NRVK_LOG(3, "Serial number from IPC(%s), sNumber copied to byte-stream(%02x%02x%02x%02x%02x%02x%02x%02x)",
             serialNumber, bytes[0], bytes[1], bytes[2], bytes[3], bytes[4], bytes[5], bytes[6], bytes[7]);
    const std::string versionText(version, strnlen(version, kVersionBytes));
    updateIdentityOfCircuitPacks(textOf(bytes), versionText);
    updateIdentityOfOnuG(textOf(bytes), versionText);

    std::array<unsigned char, kMacAddressBytes> mac{};
    std::memcpy(mac.data(), macAddress, mac.size());
    NRVK_LOG(4, "Base Mac address from IPC(%s), Mac address copied to byte-stream(%02x:%02x:%02x:%02x:%02x:%02x)",
             textOf(mac).c_str(), mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
    if (OmciMeIpHostConfigDataIf* ipHost = OmciMeIpHostConfigDataIf::getFirstManagedEntityInstance()) {
        ipHost->setMacAddress(mac.data());
    }
    return 0;
}

std::string OmciManagedEntitiesCore::incrementMacAddress(std::string mac, std::string scratch, int increment)
{
    NRVK_LOG(6, "MAC address(%s); Increment(%d)", mac.c_str(), increment);
    std::array<unsigned char, kMacAddressBytes> bytes{};
    std::sscanf(mac.c_str(), "%hhx:%hhx:%hhx:%hhx:%hhx:%hhx", &bytes[0], &bytes[1], &bytes[2], &bytes[3], &bytes[4],
                &bytes[5]);
    // The maker's part of the address never changes: a carry is lost.
    unsigned int number = static_cast<unsigned int>(bytes[3] << 16 | bytes[4] << 8 | bytes[5]);
    number += static_cast<unsigned int>(increment);
    bytes[3] = static_cast<unsigned char>(number >> 16);
    bytes[4] = static_cast<unsigned char>(number >> 8);
    bytes[5] = static_cast<unsigned char>(number);
    scratch.assign(bytes.begin(), bytes.end());
    return scratch;
}

int OmciManagedEntitiesCore::updateOnuGME()
{
    NRVK_LOG(6, "Factory file(%s)", m_FactoryConfigurationFile.c_str());
    const auto factoryFile = nrvk::IniFile::load(m_FactoryConfigurationFile);
    if (!factoryFile) {
        return -1;
    }
    updateText(kOnuGClass, 0, kOnuGVersion, factoryFile->text(kPartNumberKey));
    return 0;
}

int OmciManagedEntitiesCore::updateOnu2GME()
{
    const std::string revision = hardwareRevision("REV-A");
    NRVK_LOG(6, "Hardware version(%s)", revision.c_str());
    updateText(kOnu2GClass, 0, kOnu2GVendorProductCode, revision);
    const bool supported =
        std::any_of(std::begin(defaultConfigManagedEntity), std::end(defaultConfigManagedEntity),
                    [](const DefaultConfigManagedEntity& row) { return row.classId == kOnu2GClass; });
    updateText(kOnu2GClass, 0, kOnu2GEquipmentId, supported ? " " : "");
    return 0;
}

int OmciManagedEntitiesCore::updateIpHostConfigDataMEs()
{
    auto* hal = static_cast<NrvkHal*>(nrvkHalPtr);
    if (hal == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return 0;
    }
    std::string address;
    unsigned short instance = 0;
    const OmciMe* ipHosts = OmciMeFactory::getInstance()->getManagedEntity(kIpHostClass);
    int found = ipHosts != nullptr ? ipHosts->getFirstManagedEntityInstance(&instance) : -1;
    while (found == 0) {
        address = macAddressOfHost(*hal, instance);
        updateText(kIpHostClass, instance, kIpHostMacAddress, incrementMacAddress(address, std::string(), 0));
        found = ipHosts->getNextManagedEntityInstance(&instance);
    }
    NRVK_LOG(6, "MAC address(%s)", address.c_str());
    return 0;
}

void OmciManagedEntitiesCore::updateVerizonOpenOmci(unsigned char index, AttributeValues& values,
                                                    const std::string& factoryFile)
{
    NRVK_LOG(6, "Index(hhu)", index);
    const auto file = nrvk::IniFile::load(factoryFile);
    if (file && file->text(kPartNumberKey) == "9100452F2V") {
        nrvk::writeStartupText(values, 0x4000, "4");
        nrvk::writeInstanceCount(kVeipClass, 0);
    }
}
