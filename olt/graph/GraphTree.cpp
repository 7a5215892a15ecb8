#include <set>

#include "graph/MibGraph.h"

namespace olt {

namespace {

enum class Way
{
    Left,
    Right,
    Both
};

class TreeWriter
{
public:
    explicit TreeWriter(const MibGraph& graph) : m_Graph(graph) {}

    std::vector<TreeLine> write()
    {
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i) {
            if (m_Graph.nodes[i].layer == GraphLayer::Bridge && m_Graph.nodes[i].owner < 0)
                add(i, "", "", "", Way::Both);
        }
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i) {
            if (m_Seen.count(i) == 0 && m_Graph.nodes[i].owner < 0)
                add(i, "", "", "", Way::Right);
        }
        return std::move(m_Lines);
    }

private:
    struct Child
    {
        std::size_t index;
        std::string label;
        Way way;
    };

    std::vector<Child> childrenOf(std::size_t index, Way way) const
    {
        std::vector<Child> children;
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i) {
            if (m_Graph.nodes[i].owner == static_cast<int>(index))
                children.push_back({i, "", Way::Right});
        }
        for (const auto& edge : m_Graph.edges) {
            if (edge.to == index && way != Way::Right)
                children.push_back({edge.from, edge.label, Way::Left});
        }
        for (const auto& edge : m_Graph.edges) {
            if (edge.from == index && way != Way::Left)
                children.push_back({edge.to, edge.label, Way::Right});
        }
        return children;
    }

    void add(std::size_t index, const std::string& indent, const std::string& branch, const std::string& label, Way way)
    {
        const bool seen = !m_Seen.insert(index).second;
        const auto children = childrenOf(index, way);
        m_Lines.push_back({indent + branch, &m_Graph.nodes[index], label, seen && !children.empty()});
        if (seen)
            return;
        const std::string below = branch.empty() ? "" : indent + (branch.front() == '`' ? "   " : "|  ");
        for (std::size_t i = 0; i < children.size(); ++i)
            add(children[i].index, below, i + 1 == children.size() ? "`- " : "|- ", children[i].label, children[i].way);
    }

    const MibGraph& m_Graph;
    std::set<std::size_t> m_Seen;
    std::vector<TreeLine> m_Lines;
};

}  // namespace

std::vector<TreeLine> toTree(const MibGraph& graph)
{
    return TreeWriter(graph).write();
}

}  // namespace olt
