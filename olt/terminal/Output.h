#ifndef OLT_TERMINAL_OUTPUT_H
#define OLT_TERMINAL_OUTPUT_H

#include <nlohmann/json.hpp>
#include <string>

#include "terminal/Table.h"
#include "terminal/Terminal.h"

namespace olt {

/// Where results go: text for people, or one JSON object a line for programs. Standard output only; complaints
/// go to standard error by way of exceptions.
class Output
{
public:
    using Json = nlohmann::ordered_json;

    Output(const Terminal& terminal, bool json) : m_Terminal(terminal), m_Json(json) {}

    [[nodiscard]] bool isJson() const { return m_Json; }
    [[nodiscard]] const Terminal& terminal() const { return m_Terminal; }

    void object(const Json& json);
    void line(const std::string& text, Style style = Style::Plain);
    void table(const Table& table);
    /// A remark that belongs to no result, on standard error.
    void note(const std::string& text);

private:
    const Terminal& m_Terminal;
    bool m_Json;
};

}  // namespace olt

#endif
