#ifndef OLT_APP_COMMAND_PARSER_H
#define OLT_APP_COMMAND_PARSER_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/Command.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace olt {

/// Hangs every command below an application, so that the command line and the lines of a script read the same.
class CommandParser
{
public:
    explicit CommandParser(CLI::App& app);

    /// The command that was given, after the application has parsed.
    [[nodiscard]] std::unique_ptr<Command> take();

    /// What CLI11 objects to, or, where a command's name is misspelt, a suggestion.
    [[nodiscard]] std::string explain(const CLI::ParseError& error) const;

    /// A line of a script, given as words. Throws UsageError.
    [[nodiscard]] static std::unique_ptr<Command> parseWords(std::vector<std::string> words);

private:
    CLI::App& m_App;
    std::map<const CLI::App*, std::unique_ptr<Command>> m_Commands;
};

}  // namespace olt

#endif
