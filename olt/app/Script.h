#ifndef OLT_APP_SCRIPT_H
#define OLT_APP_SCRIPT_H

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace olt {

/// One command of a script.
struct ScriptLine
{
    std::size_t number = 0;  ///< From 1.
    std::string text;        ///< As written, without the blanks around it.
    std::vector<std::string> words;
};

/// The words of a line as a shell would have them: blanks part words, '...' and "..." keep blanks, a backslash takes
/// the next character as it is, # at the beginning of a word starts a comment. Throws UsageError on an open quote.
[[nodiscard]] std::vector<std::string> splitWords(std::string_view line);

/// The lines that hold commands. `name` is the file's, for complaints. Throws UsageError with file and line.
[[nodiscard]] std::vector<ScriptLine> readScript(std::istream& input, const std::string& name);

}  // namespace olt

#endif
