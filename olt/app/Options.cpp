#include "app/Options.h"

#include <CLI/CLI.hpp>

namespace olt {

void Options::positional(const char* name, std::string& value, const char* help, Need need)
{
    m_App.add_option(name, value, help)->required(need == Need::Required);
}

void Options::positionals(const char* name, std::vector<std::string>& values, const char* help, Need need)
{
    m_App.add_option(name, values, help)->required(need == Need::Required);
}

void Options::flag(const char* name, bool& value, const char* help)
{
    m_App.add_flag(name, value, help);
}

void Options::text(const char* name, std::string& value, const char* help, const char* typeName)
{
    m_App.add_option(name, value, help)->type_name(typeName);
}

void Options::optionalText(const char* name, std::optional<std::string>& value, const char* help, const char* typeName)
{
    const auto take = [&value](const CLI::results_t& words) {
        value = words.empty() ? "" : words.front();
        return true;
    };
    m_App.add_option(name, CLI::callback_t(take), help)->type_name(typeName)->expected(0, 1);
}

void Options::texts(const char* name, std::vector<std::string>& values, const char* help, const char* typeName)
{
    m_App.add_option(name, values, help)->type_name(typeName)->allow_extra_args(false);
}

void Options::choice(const char* name, std::string& value, const char* help, const std::vector<std::string>& choices)
{
    m_App.add_option(name, value, help)->check(CLI::IsMember(choices));
}

void Options::number(const char* name, unsigned& value, const char* help, Range<unsigned> range)
{
    m_App.add_option(name, value, help)->check(CLI::Range(range.lowest, range.highest))->capture_default_str();
}

void Options::number(const char* name, double& value, const char* help, Range<double> range)
{
    m_App.add_option(name, value, help)->check(CLI::Range(range.lowest, range.highest))->capture_default_str();
}

void Options::note(const char* text)
{
    m_App.footer(m_App.get_footer() + "\n" + text);
}

}  // namespace olt
