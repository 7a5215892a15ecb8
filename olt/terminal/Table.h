#ifndef OLT_TERMINAL_TABLE_H
#define OLT_TERMINAL_TABLE_H

#include <string>
#include <vector>

#include "terminal/Terminal.h"

namespace olt {

/// Rows of text in columns. On a terminal a cell of the last column that would run over the edge continues on the next
/// line, below its own beginning.
class Table
{
public:
    enum class Align
    {
        Left,
        Right
    };
    struct Column
    {
        std::string title;
        Align align = Align::Left;
    };
    struct Cell
    {
        Cell(std::string content, Style look = Style::Plain) : text(std::move(content)), style(look) {}
        Cell(const char* content) : text(content) {}

        std::string text;
        Style style = Style::Plain;
    };

    explicit Table(std::vector<Column> columns) : m_Columns(std::move(columns)) {}

    /// A row with fewer cells than columns ends early.
    void add(std::vector<Cell> row) { m_Rows.push_back(std::move(row)); }
    [[nodiscard]] bool isEmpty() const { return m_Rows.empty(); }

    /// Titles and rows, each line ended. A table of empty titles has no title line.
    [[nodiscard]] std::string text(const Terminal& terminal) const;

private:
    [[nodiscard]] std::vector<std::size_t> widths() const;

    std::vector<Column> m_Columns;
    std::vector<std::vector<Cell>> m_Rows;
};

}  // namespace olt

#endif
