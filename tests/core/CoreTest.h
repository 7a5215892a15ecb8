#ifndef NRVK_TESTS_CORE_CORE_TEST_H
#define NRVK_TESTS_CORE_CORE_TEST_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "HALFactory.h"
#include "LibraryTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "sandbox/Sandbox.h"

using Bytes = std::vector<unsigned char>;
using Texts = std::vector<std::string>;

/// A board whose addresses are known.
class FakeHal : public NrvkHal
{
public:
    std::string halGetPrimaryMacAddress(std::string /*name*/) override { return "00:11:22:33:44:55"; }
    std::string halGetSecondaryMacAddress(std::string /*name*/) override { return "00:11:22:aa:bb:cc"; }
};

/// What is printed on the standard output while it lives. GoogleTest's own capture reads a file back, which the sandbox
/// takes for one of the library's.
class PrintedText
{
public:
    PrintedText() { stdout = open_memstream(&m_Buffer, &m_Length); }
    ~PrintedText()
    {
        std::fclose(stdout);
        stdout = m_Saved;
        std::free(m_Buffer);
    }
    PrintedText(const PrintedText&) = delete;
    PrintedText& operator=(const PrintedText&) = delete;

    std::string get()
    {
        std::fflush(stdout);
        return {m_Buffer, m_Length};
    }

private:
    std::FILE* m_Saved = stdout;
    char* m_Buffer = nullptr;
    std::size_t m_Length = 0;
};

/// The core as a host has it: constructed, its MIB not yet live.
class CoreTest : public LibraryTest
{
protected:
    static OmciManagedEntityRegistrar& registrar() { return *OmciManagedEntityRegistrar::getInstance(); }

    /// Bytes of the registrar's picture; empty when there is no such entry.
    static Bytes stored(unsigned short classId, unsigned short instance, unsigned short attributeMask)
    {
        std::vector<StartupConfigManagedEntity> picture;
        registrar().getConfigManagedEntityVector(picture);
        const unsigned int key = (static_cast<unsigned int>(instance) << 16) | attributeMask;
        for (const StartupConfigManagedEntity& record : picture) {
            const auto entry = record.attributeValues.find(key);
            if (record.classId == classId && entry != record.attributeValues.end()) {
                return entry->second;
            }
        }
        return {};
    }

    /// Adds a class that the start-up table lacks, with zeros for `attributes` attributes of `width` bytes.
    static void addClass(unsigned short classId, const std::vector<unsigned short>& instances,
                         unsigned int attributes = 16, std::size_t width = 1)
    {
        StartupConfigManagedEntity record;
        record.classId = classId;
        for (const unsigned short instance : instances) {
            record.instances.push_back(instance);
            for (unsigned int i = 0; i < attributes; ++i) {
                record.attributeValues[(static_cast<unsigned int>(instance) << 16) | (0x8000U >> i)] = Bytes(width);
            }
        }
        std::vector<StartupConfigManagedEntity> picture;
        registrar().getConfigManagedEntityVector(picture);
        picture.push_back(record);
        registrar().setSupportedManagedEntities(picture);
    }

    /// Every write through the registrar's update, in order: "class; instance; mask = value".
    Texts updates() const
    {
        const std::string head = "Managed entity(";
        const std::string middle = "); Value(";
        Texts found;
        for (const std::string& text : log.texts(6)) {
            const std::size_t split = text.find(middle);
            if (text.rfind(head, 0) == 0 && split != std::string::npos) {
                const std::size_t value = split + middle.size();
                found.push_back(text.substr(head.size(), split - head.size()) + " = " +
                                text.substr(value, text.size() - value - 1));
            }
        }
        return found;
    }

    /// Writes a file that the library finds at `path`.
    static void writeFile(const std::string& path, const std::string& contents)
    {
        const std::filesystem::path real = Sandbox::realPath(path);
        std::filesystem::create_directories(real.parent_path());
        std::ofstream(real) << contents;
    }
    static void removeFile(const std::string& path) { std::filesystem::remove_all(Sandbox::realPath(path)); }

    /// The text of an attribute in a row of the start-up table.
    static std::string text(const OmciManagedEntitiesCore::AttributeValues& values, unsigned short attributeMask)
    {
        return reinterpret_cast<const char*>(values[15 - __builtin_ctz(attributeMask)]);
    }
};

#endif
