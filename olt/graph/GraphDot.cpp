#include <map>

#include "graph/MibGraph.h"
#include "graph/NodeColours.h"

namespace olt {

namespace {

std::string dotText(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

std::string nodeText(std::size_t index, const GraphNode& node)
{
    std::string label = node.title;
    for (const auto& detail : node.details)
        label += "\n" + detail;
    const auto colours = coloursOf(node);
    std::string text = "  n" + std::to_string(index) + " [label=" + dotText(label) +
                       ", fillcolor=" + dotText(colours.fill) + ", color=" + dotText(colours.line);
    if (node.state != NodeState::Present)
        text += ", fontcolor=" + dotText(colours.line) + R"(, style="filled,rounded,dashed")";
    return text + "];\n";
}

}  // namespace

std::string toDot(const MibGraph& graph)
{
    std::string text = "digraph mib {\n  rankdir=LR;\n"
                       "  node [shape=box, style=\"filled,rounded\", fontname=\"sans-serif\", fontsize=11];\n"
                       "  edge [fontname=\"sans-serif\", fontsize=9, arrowsize=0.6];\n";
    std::map<GraphLayer, std::string> columns;
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        text += nodeText(i, graph.nodes[i]);
        if (graph.nodes[i].owner < 0)
            columns[graph.nodes[i].layer] += " n" + std::to_string(i) + ";";
    }
    for (const auto& [layer, members] : columns)
        text += "  { rank=same;" + members + " }\n";
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        if (graph.nodes[i].owner >= 0)
            text += "  n" + std::to_string(graph.nodes[i].owner) + " -> n" + std::to_string(i) +
                    " [style=dashed, arrowhead=none];\n";
    }
    for (const auto& edge : graph.edges) {
        const bool broken =
            graph.nodes[edge.from].state == NodeState::Missing || graph.nodes[edge.to].state == NodeState::Missing;
        text += "  n" + std::to_string(edge.from) + " -> n" + std::to_string(edge.to) +
                " [label=" + dotText(edge.label) + (broken ? ", color=\"" + std::string(kMissingColour) + "\"" : "") +
                "];\n";
    }
    return text + "}\n";
}

}  // namespace olt
