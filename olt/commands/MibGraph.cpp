#include "graph/MibGraph.h"

#include "app/Command.h"
#include "app/MibReading.h"
#include "model/AtomicFile.h"

namespace olt {

namespace {

const char* stateName(NodeState state)
{
    return state == NodeState::Present ? "present" : state == NodeState::Missing ? "missing" : "not uploaded";
}

Output::Json toJson(const MibGraph& graph)
{
    Output::Json nodes = Output::Json::array();
    for (const auto& node : graph.nodes) {
        Output::Json json{{"class", node.key.first},
                          {"instance", node.key.second},
                          {"title", node.title},
                          {"details", node.details},
                          {"state", stateName(node.state)}};
        if (node.owner >= 0)
            json["belongs_to"] = node.owner;
        nodes.push_back(std::move(json));
    }
    Output::Json edges = Output::Json::array();
    for (const auto& edge : graph.edges)
        edges.push_back({{"from", edge.from}, {"to", edge.to}, {"label", edge.label}});
    return {{"nodes", std::move(nodes)}, {"edges", std::move(edges)}, {"unconnected", graph.unconnected}};
}

std::string lineText(const Terminal& terminal, const TreeLine& line)
{
    const GraphNode& node = *line.node;
    const Style style = node.state == NodeState::Missing       ? Style::Red
                        : node.state == NodeState::NotUploaded ? Style::Dim
                        : node.kind == NodeKind::Vlan          ? Style::Yellow
                                                               : Style::Bold;
    std::string text = line.branches + (line.label.empty() ? "" : line.label + ": ");
    const std::string details = detailText(node);
    if (node.state != NodeState::Present)
        return text + terminal.styled(style, node.title + " (" + details + ")");
    text += terminal.styled(style, node.title);
    if (line.repeated)
        return text + " (see above)";
    return text + (details.empty() ? "" : "  " + details);
}

class MibGraphCommand : public Command
{
public:
    void declare(Options& options) override
    {
        options.text("--mib", m_File, "A MIB that mib-upload saved, instead of the ONU's; - is standard input", "FILE");
        options.text("--svg", m_Svg, "Draw the graph as a picture", "FILE");
        options.text("--dot", m_Dot, "Write the graph for Graphviz", "FILE");
    }

    ExitCode run(Context& context) override
    {
        const MibGraph graph = graphOf(readMib(context, m_File), context.catalogue());
        if (!m_Svg.empty())
            writeFileAtomically(m_Svg, toSvg(graph));
        if (!m_Dot.empty())
            writeFileAtomically(m_Dot, toDot(graph));
        if (context.output().isJson())
            context.output().object(toJson(graph));
        else if (m_Svg.empty() && m_Dot.empty())
            print(context.output(), graph);
        return ExitCode::Success;
    }

private:
    static void print(Output& output, const MibGraph& graph)
    {
        for (const auto& line : toTree(graph))
            output.line(lineText(output.terminal(), line));
        if (graph.nodes.empty())
            output.line("no service is provisioned");
        std::string names;
        for (const auto& title : graph.unconnected)
            names += (names.empty() ? "" : ", ") + title;
        if (!names.empty())
            output.line("Without service: " + names, Style::Dim);
    }

    std::string m_File;
    std::string m_Svg;
    std::string m_Dot;
};

const CommandRegistration<MibGraphCommand>
    registration("mib-graph", CommandGroup::Mib, "Show the service as a graph: UNI, bridge, mapper, GEM port, T-CONT",
                 "Pointers to entities that don't exist are red. Entities that an upload leaves out, like mappers, are "
                 "asked for one\n"
                 "by one; a saved MIB has them when mib-upload --complete wrote it.\n\n"
                 "Examples:\n  mib-graph\n  mib-graph --svg service.svg\n  mib-graph --mib onu.json --dot service.dot");

}  // namespace

}  // namespace olt
