#include "board/ImageDescriptions.h"

// Plain bytes: the reader need not convert between character sets.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "board/BoardFiles.h"

namespace {
constexpr std::array<const char*, 5> kKeysOfSlot = {"SW_VERSION", "COMMIT", "ACTIVE", "VALID", "PART_SEL"};
constexpr const char* kSection = "";

std::string keyOf(Slot slot, const char* what)
{
    return "APP" + std::to_string(static_cast<int>(slot)) + "_" + what;
}

/// Readers of the file take its keys in any case.
std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

std::map<std::string, std::string> factoryValues()
{
    return {{"APP1_SW_VERSION", "V1.0.0"}, {"APP1_COMMIT", "1"},    {"APP1_ACTIVE", "1"}, {"APP1_VALID", "1"},
            {"APP1_PART_SEL", "1"},        {"APP2_SW_VERSION", ""}, {"APP2_COMMIT", "0"}, {"APP2_ACTIVE", "0"},
            {"APP2_VALID", "0"},           {"APP2_PART_SEL", "2"}};
}
}  // namespace

ImageDescriptions ImageDescriptions::load()
{
    ImageDescriptions descriptions;
    if (!exist()) {
        descriptions.m_Values = factoryValues();
        return descriptions;
    }
    CSimpleIniA file;
    // A directory opens like a file, with a length that no memory holds.
    if (!std::filesystem::is_regular_file(board::path(kPath)) || file.LoadFile(board::path(kPath).c_str()) < 0) {
        throw std::runtime_error(board::path(kPath) + " is no INI file that can be read");
    }
    CSimpleIniA::TNamesDepend keys;
    file.GetAllKeys(kSection, keys);
    for (const auto& key : keys) {
        descriptions.m_Values[upperCase(key.pItem)] = file.GetValue(kSection, key.pItem, "");
    }
    return descriptions;
}

bool ImageDescriptions::exist()
{
    return std::filesystem::exists(board::path(kPath));
}

void ImageDescriptions::remove()
{
    std::filesystem::remove(board::path(kPath));
}

void ImageDescriptions::save() const
{
    std::string text;
    for (const auto& [key, value] : m_Values) {
        text += key;
        text += '=';
        text += value;
        text += '\n';
    }
    board::writeFile(kPath, text);
}

bool ImageDescriptions::isKnown(const std::string& key)
{
    for (const Slot slot : {Slot::App1, Slot::App2}) {
        const auto isKey = [&](const char* what) { return key == keyOf(slot, what); };
        if (std::any_of(kKeysOfSlot.begin(), kKeysOfSlot.end(), isKey)) {
            return true;
        }
    }
    return false;
}

void ImageDescriptions::set(const std::string& key, const std::optional<std::string>& value)
{
    if (value) {
        m_Values[key] = *value;
    } else {
        m_Values.erase(key);
    }
}

bool ImageDescriptions::isSet(Slot slot, const char* what) const
{
    const auto found = m_Values.find(keyOf(slot, what));
    return found != m_Values.end() && std::strtol(found->second.c_str(), nullptr, 0) == 1;
}

void ImageDescriptions::mark(Slot slot, const char* what)
{
    m_Values[keyOf(slot, what)] = "1";
    m_Values[keyOf(otherThan(slot), what)] = "0";
}

void ImageDescriptions::setImage(Slot slot, const std::string& version)
{
    m_Values[keyOf(slot, "SW_VERSION")] = version;
    m_Values[keyOf(slot, "COMMIT")] = "0";
    m_Values[keyOf(slot, "VALID")] = "1";
}
