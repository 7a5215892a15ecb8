#include "terminal/Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "model/Errors.h"

namespace olt {

namespace {

/// Readers of a pipe see a result as soon as it is there.
void print(const std::string& text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
        throw UsageError(std::string("standard output can't be written: ") + std::strerror(errno));
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
