#ifndef NRVK_INI_FILE_H
#define NRVK_INI_FILE_H

#include <memory>
#include <optional>
#include <string>

namespace nrvk {

/// A file in INI form, as the board's scripts write it: keys without regard to case, UTF-8, one value a key, values of
/// several lines. Only the section without a name is read.
class IniFile
{
public:
    /// Nothing when the file can't be read, with "Can't load file(%s)" at level 3 in the caller's name.
    static std::optional<IniFile> load(const std::string& path, const char* function = __builtin_FUNCTION(),
                                       const char* file = __builtin_FILE(), unsigned int line = __builtin_LINE());

    IniFile(IniFile&&) noexcept;
    ~IniFile();

    /// Empty when there is no such key.
    std::string text(const char* key) const;
    /// The number's low 8 bits; `missing` also for a value that is no number.
    unsigned char byte(const char* key, unsigned char missing) const;

private:
    struct Contents;

    explicit IniFile(std::unique_ptr<Contents> contents);

    std::unique_ptr<Contents> m_Contents;
};

}  // namespace nrvk

#endif
