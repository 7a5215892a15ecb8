#include "terminal/Output.h"

#include <cstdio>

namespace olt {

namespace {

/// Readers of a pipe see a result as soon as it is there.
void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

}  // namespace

void Output::object(const Json& json)
{
    print(json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
}

void Output::line(const std::string& text, Style style)
{
    print(m_Terminal.styled(style, text) + "\n");
}

void Output::table(const Table& table)
{
    print(table.text(m_Terminal));
}

void Output::note(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
}

}  // namespace olt
