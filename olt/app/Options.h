#ifndef OLT_APP_OPTIONS_H
#define OLT_APP_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace olt {

/// What a command takes, bound to its members. Stands between the commands and CLI11, whose header costs more to
/// compile than most commands.
class Options
{
public:
    enum class Need
    {
        Required,
        Optional
    };
    template <typename T>
    struct Range
    {
        T lowest;
        T highest;
    };

    explicit Options(CLI::App& app) : m_App(app) {}

    void positional(const char* name, std::string& value, const char* help, Need need);
    /// Takes all words that are left.
    void positionals(const char* name, std::vector<std::string>& values, const char* help, Need need);
    void flag(const char* name, bool& value, const char* help);
    /// `typeName` is what the help shows for the value.
    void text(const char* name, std::string& value, const char* help, const char* typeName);
    /// An option whose value may be left out, and is empty then. Not given: nothing.
    void optionalText(const char* name, std::optional<std::string>& value, const char* help, const char* typeName);
    /// May be repeated.
    void texts(const char* name, std::vector<std::string>& values, const char* help, const char* typeName);
    void choice(const char* name, std::string& value, const char* help, const std::vector<std::string>& choices);
    /// The value at the time of the call is the default that the help shows.
    void number(const char* name, unsigned& value, const char* help, Range<unsigned> range);
    void number(const char* name, double& value, const char* help, Range<double> range);
    /// Goes below the command's help, after what its registration says.
    void note(const char* text);

private:
    CLI::App& m_App;
};

}  // namespace olt

#endif
