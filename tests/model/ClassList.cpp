#include "ClassList.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "sandbox/Sandbox.h"

namespace model {

namespace {

constexpr std::size_t kRowCountSize = 4;

/// The last octets of the number, zeros in front of it.
Bytes networkOrder(unsigned long long number, std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t place = size; place-- > 0; number >>= 8) {
        bytes[place] = static_cast<std::uint8_t>(number & 0xFF);
    }
    return bytes;
}

/// A default as the list writes it: a number, below zero too, or - where none is kept.
unsigned long long readDefault(const std::string& text)
{
    if (text == "-") {
        return 0;
    }
    return text[0] == '-' ? static_cast<unsigned long long>(std::stoll(text)) : std::stoull(text);
}

EntityClass readClass(std::istringstream& words)
{
    EntityClass entity;
    words >> entity.number >> entity.name;
    std::string word;
    while (words >> word) {
        entity.isInMibUpload = entity.isInMibUpload || word == "mib";
        if (word == "by") {
            words >> word;
            entity.isCreatedByOlt = word.find("olt") != std::string::npos;
            entity.isCreatedByOnu = word.find("onu") != std::string::npos;
        }
    }
    return entity;
}

Attribute readAttribute(const std::string& mask, std::istringstream& words)
{
    Attribute attribute;
    std::string kind;
    std::string defaultValue;
    words >> attribute.size >> kind >> attribute.access >> defaultValue >> attribute.name;
    if (!words) {
        throw std::runtime_error("no whole attribute: " + words.str());
    }
    attribute.mask = static_cast<std::uint16_t>(std::stoul(mask, nullptr, 16));
    attribute.isTable = kind == "table";
    attribute.defaultValue =
        networkOrder(readDefault(defaultValue), attribute.isTable ? kRowCountSize : attribute.size);
    return attribute;
}

void readFile(const std::filesystem::path& path, ClassList& classes)
{
    std::ifstream file(path);
    EntityClass* current = nullptr;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (first.empty() || first == "#") {
            continue;
        }
        if (first == "class") {
            const EntityClass entity = readClass(words);
            current = &(classes[entity.number] = entity);
        } else if (current != nullptr) {
            current->attributes.push_back(readAttribute(first, words));
        }
    }
}

}  // namespace

const Attribute* EntityClass::find(std::uint16_t mask) const
{
    for (const Attribute& attribute : attributes) {
        if (attribute.mask == mask) {
            return &attribute;
        }
    }
    return nullptr;
}

std::uint16_t EntityClass::maskOf(char letter) const
{
    unsigned int mask = 0;
    for (const Attribute& attribute : attributes) {
        mask |= attribute.has(letter) ? attribute.mask : 0U;
    }
    return static_cast<std::uint16_t>(mask);
}

ClassList readClassList(const std::string& directory)
{
    ClassList classes;
    // The library and its tests are one program here, so that the sandbox keeps both from the machine's files.
    Sandbox::exempt(directory);
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        if (entry.path().filename().string().rfind("classes-", 0) == 0) {
            Sandbox::exempt(entry.path());
            readFile(entry.path(), classes);
        }
    }
    if (classes.empty()) {
        throw std::runtime_error("no classes-*.txt in " + directory);
    }
    return classes;
}

}  // namespace model
