#include "terminal/Table.h"

#include <algorithm>

namespace olt {

namespace {

constexpr std::size_t kGap = 2;
/// Below this a wrapped column can't be read, and the terminal's own wrapping is the lesser evil.
constexpr std::size_t kNarrowest = 12;

std::string padded(const std::string& text, std::size_t width, Table::Align align, bool last)
{
    const std::string blanks(width > text.size() ? width - text.size() : 0, ' ');
    if (align == Table::Align::Right)
        return blanks + text;
    return last ? text : text + blanks;
}

}  // namespace

std::vector<std::size_t> Table::widths() const
{
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < m_Columns.size(); ++column) {
        std::size_t width = m_Columns[column].title.size();
        for (const auto& row : m_Rows) {
            if (column < row.size())
                width = std::max(width, row[column].text.size());
        }
        widths.push_back(width);
    }
    return widths;
}

std::string Table::text(const Terminal& terminal) const
{
    const auto width = widths();
    std::size_t before = 0;
    for (std::size_t column = 0; column + 1 < width.size(); ++column)
        before += width[column] + kGap;
    const std::size_t limit = terminal.width();
    const std::size_t room = limit > before + kNarrowest ? limit - before : std::string::npos;

    const auto line = [&](const std::vector<Cell>& cells) {
        std::string out;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const auto& cell = cells[column];
            const bool last = column + 1 == cells.size();
            const std::string shown = last ? cell.text.substr(0, room) : cell.text;
            out += terminal.styled(cell.style, padded(shown, width[column], m_Columns[column].align, last));
            out += last ? "\n" : std::string(kGap, ' ');
            for (std::size_t at = shown.size(); last && at < cell.text.size(); at += room)
                out += std::string(before, ' ') + terminal.styled(cell.style, cell.text.substr(at, room)) + "\n";
        }
        return out;
    };

    std::string out;
    std::vector<Cell> titles;
    for (const auto& column : m_Columns)
        titles.emplace_back(column.title, Style::Bold);
    if (std::any_of(titles.begin(), titles.end(), [](const Cell& title) { return !title.text.empty(); }))
        out += line(titles);
    for (const auto& row : m_Rows)
        out += line(row);
    return out;
}

}  // namespace olt
