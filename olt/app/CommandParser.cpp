#include "app/CommandParser.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "model/Names.h"

namespace olt {

namespace {

const char* groupTitle(CommandGroup group)
{
    switch (group) {
    case CommandGroup::Mib:
        return "The MIB as a whole";
    case CommandGroup::Entity:
        return "One managed entity";
    case CommandGroup::Action:
        return "The ONU";
    case CommandGroup::Tool:
        break;
    }
    return "Tools";
}

/// The options that a command takes, those of the program among them.
std::vector<std::string> optionNames(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* level = &app; level != nullptr; level = level->get_parent()) {
        for (const CLI::Option* const option : level->get_options()) {
            for (const auto& name : option->get_lnames())
                names.push_back("--" + name);
        }
    }
    return names;
}

/// What is said of the first of these words that is an option; nothing when none is.
std::string explainOption(const CLI::App& app, const std::vector<std::string>& words)
{
    const auto option =
        std::find_if(words.begin(), words.end(), [](const auto& text) { return text.rfind("--", 0) == 0; });
    if (option == words.end())
        return "";
    return "there is no option " + *option + didYouMean(*option, optionNames(app));
}

}  // namespace

CommandParser::CommandParser(CLI::App& app) : m_App(app)
{
    app.require_subcommand(1);
    for (const auto& entry : commandEntries()) {
        CLI::App* const sub = app.add_subcommand(entry.name, entry.summary);
        sub->group(groupTitle(entry.group));
        sub->footer(entry.details);
        auto command = entry.make();
        Options options(*sub);
        command->declare(options);
        // CLI11 ends a program's help with a newline, a command's it doesn't.
        sub->footer(sub->get_footer() + "\n");
        m_Commands.emplace(sub, std::move(command));
    }
}

std::unique_ptr<Command> CommandParser::take()
{
    return std::move(m_Commands.at(m_App.get_subcommands().front()));
}

std::string CommandParser::explain(const CLI::ParseError& error) const
{
    if (const auto commands = m_App.get_subcommands(); !commands.empty()) {
        const std::string option = explainOption(*commands.front(), m_App.remaining(true));
        return option.empty() ? error.what() : option;
    }
    std::vector<std::string> names;
    for (const auto& entry : commandEntries())
        names.push_back(entry.name);
    const auto rest = m_App.remaining();
    const auto word = std::find_if(rest.begin(), rest.end(), [](const auto& text) { return text.rfind('-', 0) != 0; });
    if (word != rest.end())
        return "there is no command \"" + *word + "\"" + didYouMean(*word, names);
    if (rest.empty())
        return "a command is required";
    const std::string option = explainOption(m_App, rest);
    return option.empty() ? "there is no option " + rest.front() : option;
}

std::unique_ptr<Command> CommandParser::parseWords(std::vector<std::string> words)
{
    CLI::App app;
    app.set_help_flag();
    CommandParser parser(app);
    for (CLI::App* const sub : app.get_subcommands([](const CLI::App*) { return true; }))
        sub->set_help_flag();
    std::reverse(words.begin(), words.end());
    try {
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        throw UsageError(parser.explain(error));
    }
    return parser.take();
}

}  // namespace olt
