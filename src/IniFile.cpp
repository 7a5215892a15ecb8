#include "IniFile.h"

#include <cstdio>
#include <utility>

#include <sys/stat.h>

// Its wide-character variants need a conversion library; none of them is used here.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#include <SimpleIni.h>
#pragma GCC diagnostic pop

#include "impl/Log.h"

namespace nrvk {

struct IniFile::Contents
{
    static constexpr bool kUtf8 = true;
    static constexpr bool kMultiKey = false;
    static constexpr bool kMultiLine = true;
    static constexpr const char* kSection = "";

    CSimpleIniTempl<char, SI_GenericNoCase<char>, SI_ConvertA<char>> ini{kUtf8, kMultiKey, kMultiLine};
};

namespace {

/// A directory opens like a file, with a length that no memory holds.
bool isRegularFile(std::FILE* file)
{
    struct stat status = {};
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

IniFile::IniFile(std::unique_ptr<Contents> contents) : m_Contents(std::move(contents))
{}
IniFile::IniFile(IniFile&&) noexcept = default;
IniFile::~IniFile() = default;

std::optional<IniFile> IniFile::load(const std::string& path, const char* function, const char* file, unsigned int line)
{
    auto contents = std::make_unique<Contents>();
    bool loaded = false;
    if (std::FILE* opened = fopen(path.c_str(), "rb"); opened != nullptr) {
        loaded = isRegularFile(opened) && contents->ini.LoadFile(opened) >= 0;
        std::fclose(opened);
    }
    if (!loaded) {
        logger().writeToLog(0, function, file, line, 3, "Can't load file(%s)", path.c_str());
        return std::nullopt;
    }
    return IniFile(std::move(contents));
}

std::string IniFile::text(const char* key) const
{
    return m_Contents->ini.GetValue(Contents::kSection, key, "");
}

unsigned char IniFile::byte(const char* key, unsigned char missing) const
{
    return static_cast<unsigned char>(m_Contents->ini.GetLongValue(Contents::kSection, key, missing));
}

}  // namespace nrvk
