#ifndef OLT_TERMINAL_TERMINAL_H
#define OLT_TERMINAL_TERMINAL_H

#include <cstddef>
#include <string>

namespace olt {

enum class Style
{
    Plain,
    Bold,
    Dim,
    Red,
    Green,
    Yellow,
    Cyan
};

/// What standard output and standard error can show. Pipes and files get plain text, whole lines and no progress;
/// NO_COLOR and TERM=dumb turn colour off on a terminal too.
class Terminal
{
public:
    /// What this process was started with.
    Terminal();
    /// For tests. Width 0: no limit.
    Terminal(bool colour, std::size_t width, bool progress) : m_Colour(colour), m_Width(width), m_Progress(progress) {}

    /// Columns of standard output; 0 when it is no terminal and lines may be of any length.
    [[nodiscard]] std::size_t width() const { return m_Width; }
    /// Columns of standard error.
    [[nodiscard]] std::size_t progressWidth() const;
    [[nodiscard]] bool showsProgress() const { return m_Progress; }
    /// The text, in that style where the terminal has colour.
    [[nodiscard]] std::string styled(Style style, const std::string& text) const;

private:
    bool m_Colour;
    std::size_t m_Width;
    bool m_Progress;
};

}  // namespace olt

#endif
