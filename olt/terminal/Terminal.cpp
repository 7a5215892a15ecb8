#include "terminal/Terminal.h"

#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace olt {

namespace {

constexpr std::size_t kUsualWidth = 80;

std::size_t columns(int descriptor)
{
    if (isatty(descriptor) == 0)
        return 0;
    winsize size = {};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return kUsualWidth;
}

bool wantsColour()
{
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool dumb = !terminal || std::string_view(terminal) == "dumb";
    return isatty(STDOUT_FILENO) != 0 && !dumb && (!noColour || *noColour == '\0');
}

const char* code(Style style)
{
    switch (style) {
    case Style::Plain:
        break;
    case Style::Bold:
        return "\033[1m";
    case Style::Dim:
        return "\033[2m";
    case Style::Red:
        return "\033[31m";
    case Style::Green:
        return "\033[32m";
    case Style::Yellow:
        return "\033[33m";
    case Style::Cyan:
        return "\033[36m";
    }
    return "";
}

}  // namespace

Terminal::Terminal() : m_Colour(wantsColour()), m_Width(columns(STDOUT_FILENO)), m_Progress(isatty(STDERR_FILENO) != 0)
{}

std::size_t Terminal::progressWidth() const
{
    const std::size_t width = columns(STDERR_FILENO);
    return width == 0 ? kUsualWidth : width;
}

std::string Terminal::styled(Style style, const std::string& text) const
{
    return m_Colour && style != Style::Plain ? code(style) + text + "\033[0m" : text;
}

}  // namespace olt
