#ifndef OLT_APP_COMMAND_H
#define OLT_APP_COMMAND_H

#include <memory>
#include <string>
#include <vector>

#include "app/Context.h"
#include "app/Options.h"
#include "model/Errors.h"

namespace olt {

/// One command of the tool. A new command is one file in commands/: a class derived from this and a registration.
///
/// The order is declare, parse, prepare, run; a script prepares all of its lines before it runs the first.
class Command
{
public:
    virtual ~Command() = default;

    /// Binds options and positionals to members.
    virtual void declare(Options& options) = 0;

    /// Turns texts into classes, attributes and values. Throws UsageError; sends nothing.
    virtual void prepare(Context& context) { static_cast<void>(context); }

    /// Does it and prints the result.
    [[nodiscard]] virtual ExitCode run(Context& context) = 0;
};

/// Where a command stands in the help.
enum class CommandGroup
{
    Mib,
    Entity,
    Action,
    Tool
};

struct CommandEntry
{
    std::string name;
    CommandGroup group;
    std::string summary;
    std::string details;  ///< Below the options in the command's help: notes and examples.
    std::unique_ptr<Command> (*make)();
};

/// All commands, by group and name.
[[nodiscard]] const std::vector<CommandEntry>& commandEntries();

void registerCommand(CommandEntry entry);

/// A static object of this kind, one beside each command class, puts the command into the list.
template <typename T>
class CommandRegistration
{
public:
    CommandRegistration(const char* name, CommandGroup group, const char* summary, const char* details = "")
    {
        registerCommand(
            {name, group, summary, details, []() -> std::unique_ptr<Command> { return std::make_unique<T>(); }});
    }
};

}  // namespace olt

#endif
