#include <algorithm>
#include <array>
#include <map>

#include "graph/MibGraph.h"
#include "graph/NodeColours.h"
#include "model/XmlText.h"

namespace olt {

namespace {

// All lengths are pixels.
constexpr double kMargin = 16;
constexpr double kTitleHeight = 20;
constexpr double kLineHeight = 14;
constexpr double kPadding = 8;
constexpr double kColumnGap = 64;
constexpr double kStackGap = 18;
constexpr double kAttachedGap = 6;
constexpr double kAttachedIndent = 14;
constexpr double kCharacter = 6.3;
constexpr double kHeading = 24;
constexpr std::size_t kLongestLine = 34;

struct Box
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    std::vector<std::string> lines;

    [[nodiscard]] double middle() const { return y + height / 2; }
};

/// A node with everything that belongs to it below.
struct Stack
{
    std::vector<std::size_t> members;
    double y = 0;
    double height = 0;
};

std::string number(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.0f", value);
    return text.data();
}

/// Breaks between words, so that a sentence fits a box.
std::vector<std::string> wrapped(const std::string& text)
{
    std::vector<std::string> lines{""};
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > kLongestLine)
            lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
        at = end + 1;
    }
    return lines;
}

const char* headingOf(GraphLayer layer)
{
    constexpr std::array<const char*, 10> texts{"UNI",     "Ports", "Bridge", "Ports",      "Mapper",
                                                "GEM TPs", "GEM",   "T-CONT", "Schedulers", "T-CONT"};
    return texts.at(static_cast<std::size_t>(layer));
}

class SvgWriter
{
public:
    explicit SvgWriter(const MibGraph& graph) : m_Graph(graph), m_Boxes(graph.nodes.size()) {}

    std::string write()
    {
        measure();
        makeColumns();
        placeColumns();
        for (int round = 0; round < 6; ++round)
            alignColumns(round % 2 == 0);
        settle();
        return document();
    }

private:
    void measure()
    {
        for (std::size_t i = 0; i < m_Boxes.size(); ++i) {
            auto& box = m_Boxes[i];
            std::size_t longest = m_Graph.nodes[i].title.size() * 6 / 5 + 1;  // Bold letters are wider.
            for (const auto& detail : m_Graph.nodes[i].details) {
                for (auto& line : wrapped(detail)) {
                    longest = std::max(longest, line.size());
                    box.lines.push_back(std::move(line));
                }
            }
            box.width = static_cast<double>(longest) * kCharacter + 2 * kPadding;
            box.height = kTitleHeight + static_cast<double>(box.lines.size()) * kLineHeight + kPadding;
        }
    }

    void gather(std::size_t index, Stack& stack)
    {
        stack.members.push_back(index);
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i) {
            if (m_Graph.nodes[i].owner == static_cast<int>(index))
                gather(i, stack);
        }
    }

    void makeColumns()
    {
        m_Stack.resize(m_Graph.nodes.size());
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i) {
            if (m_Graph.nodes[i].owner >= 0)
                continue;
            Stack stack;
            gather(i, stack);
            for (const auto member : stack.members) {
                stack.height += m_Boxes[member].height + (member == i ? 0 : kAttachedGap);
                m_Stack[member] = i;
            }
            m_Columns[m_Graph.nodes[i].layer].push_back(std::move(stack));
        }
    }

    void placeColumns()
    {
        double x = kMargin;
        for (auto& [layer, column] : m_Columns) {
            double width = 0;
            for (const auto& stack : column) {
                for (const auto member : stack.members) {
                    const double indent = member == stack.members.front() ? 0 : kAttachedIndent;
                    m_Boxes[member].x = x + indent;
                    width = std::max(width, m_Boxes[member].width + indent);
                }
            }
            m_Headings.emplace_back(x, headingOf(layer));
            x += width + kColumnGap;
            spread(column);
        }
        m_Width = x - kColumnGap + kMargin;
    }

    /// The stacks below one another, each as near to its wish as those above allow.
    void spread(std::vector<Stack>& column)
    {
        double y = kMargin + kHeading;
        for (auto& stack : column) {
            stack.y = std::max(stack.y, y);
            double top = stack.y;
            for (const auto member : stack.members) {
                m_Boxes[member].y = top;
                top += m_Boxes[member].height + kAttachedGap;
            }
            y = stack.y + stack.height + kStackGap;
        }
    }

    /// Where the boxes that the stack is joined to have their middle, on the left or on the right side.
    double wish(const Stack& stack, bool left) const
    {
        double sum = 0;
        unsigned count = 0;
        for (const auto& edge : m_Graph.edges) {
            const std::size_t own = left ? edge.to : edge.from;
            const std::size_t other = left ? edge.from : edge.to;
            if (m_Stack[own] != stack.members.front())
                continue;
            sum += m_Boxes[other].middle();
            ++count;
        }
        return count == 0 ? stack.y : sum / count - m_Boxes[stack.members.front()].height / 2;
    }

    void alignColumns(bool left)
    {
        const auto align = [&](std::vector<Stack>& column) {
            for (auto& stack : column)
                stack.y = wish(stack, left);
            std::stable_sort(column.begin(), column.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
            spread(column);
        };
        if (left)
            std::for_each(m_Columns.begin(), m_Columns.end(), [&](auto& entry) { align(entry.second); });
        else
            std::for_each(m_Columns.rbegin(), m_Columns.rend(), [&](auto& entry) { align(entry.second); });
    }

    /// Takes out the empty room above everything, and finds the height.
    void settle()
    {
        double top = m_Boxes.empty() ? 0 : 1e9;
        double bottom = kMargin + kHeading;
        for (const auto& box : m_Boxes)
            top = std::min(top, box.y);
        for (auto& box : m_Boxes) {
            box.y -= top - kMargin - kHeading;
            bottom = std::max(bottom, box.y + box.height);
        }
        m_Height = bottom + kMargin;
    }

    [[nodiscard]] bool isBroken(const GraphEdge& edge) const
    {
        return m_Graph.nodes[edge.from].state == NodeState::Missing ||
               m_Graph.nodes[edge.to].state == NodeState::Missing;
    }

    [[nodiscard]] std::string edgeText(const GraphEdge& edge) const
    {
        const Box& from = m_Boxes[edge.from];
        const Box& to = m_Boxes[edge.to];
        const double x1 = from.x + from.width;
        const double bend = std::max(24.0, (to.x - x1) / 2);
        const std::string colour = isBroken(edge) ? kMissingColour : "#78909c";
        std::string text = "<path d=\"M" + number(x1) + " " + number(from.middle()) + " C" + number(x1 + bend) + " " +
                           number(from.middle()) + " " + number(to.x - bend) + " " + number(to.middle()) + " " +
                           number(to.x) + " " + number(to.middle()) + "\" fill=\"none\" stroke=\"" + colour +
                           "\" stroke-width=\"1.5\"" + (isBroken(edge) ? " stroke-dasharray=\"5 3\"" : "") + "/>\n";
        if (!edge.label.empty())
            text += "<text x=\"" + number(to.x - 6) + "\" y=\"" +
                    number(to.middle() + (to.middle() > from.middle() + 1 ? 13 : -5)) +
                    "\" text-anchor=\"end\" class=\"d\" fill=\"" + colour + "\">" + xmlText(edge.label) + "</text>\n";
        return text;
    }

    [[nodiscard]] std::string boxText(std::size_t index) const
    {
        const Box& box = m_Boxes[index];
        const auto& node = m_Graph.nodes[index];
        const auto colours = coloursOf(node);
        std::string text;
        if (node.owner >= 0)
            text += "<path d=\"M" + number(box.x - kAttachedIndent / 2) + " " + number(box.y - kAttachedGap) + " V" +
                    number(box.y + 12) + " H" + number(box.x) + "\" fill=\"none\" stroke=\"" + colours.line + "\"/>\n";
        text += "<rect x=\"" + number(box.x) + "\" y=\"" + number(box.y) + "\" width=\"" + number(box.width) +
                "\" height=\"" + number(box.height) + "\" rx=\"5\" fill=\"" + colours.fill + "\" stroke=\"" +
                colours.line + "\"" + (node.state == NodeState::Present ? "" : " stroke-dasharray=\"5 3\"") + "/>\n";
        const std::string ink = node.state == NodeState::Present ? "#212121" : colours.line;
        text += "<text x=\"" + number(box.x + kPadding) + "\" y=\"" + number(box.y + 15) + "\" class=\"t\" fill=\"" +
                ink + "\">" + xmlText(node.title) + "</text>\n";
        double y = box.y + kTitleHeight;
        for (const auto& line : box.lines) {
            y += kLineHeight;
            text += "<text x=\"" + number(box.x + kPadding) + "\" y=\"" + number(y - 2) + "\" class=\"d\" fill=\"" +
                    ink + "\">" + xmlText(line) + "</text>\n";
        }
        return text;
    }

    [[nodiscard]] std::string document() const
    {
        const std::string size = "width=\"" + number(m_Width) + "\" height=\"" + number(m_Height) + "\"";
        std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + " viewBox=\"0 0 " + number(m_Width) +
                           " " + number(m_Height) +
                           "\">\n<style>text{font-family:sans-serif;font-size:11px}.t{font-weight:bold;"
                           "font-size:12px}.h{fill:#607d8b;font-size:12px}</style>\n<rect " +
                           size + " fill=\"#ffffff\"/>\n";
        for (const auto& [x, heading] : m_Headings)
            text +=
                "<text x=\"" + number(x) + "\" y=\"" + number(kMargin + 8) + "\" class=\"h\">" + heading + "</text>\n";
        for (const auto& edge : m_Graph.edges)
            text += edgeText(edge);
        for (std::size_t i = 0; i < m_Boxes.size(); ++i)
            text += boxText(i);
        return text + "</svg>\n";
    }

    const MibGraph& m_Graph;
    std::vector<Box> m_Boxes;
    std::vector<std::size_t> m_Stack;  ///< Of each node the first member of its stack.
    std::map<GraphLayer, std::vector<Stack>> m_Columns;
    std::vector<std::pair<double, std::string>> m_Headings;
    double m_Width = 0;
    double m_Height = 0;
};

}  // namespace

std::string toSvg(const MibGraph& graph)
{
    return SvgWriter(graph).write();
}

}  // namespace olt
