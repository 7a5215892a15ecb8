#include "graph/MibGraph.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "graph/ClassLook.h"

namespace olt {

namespace {

constexpr std::uint16_t kBridgePort = 47;
constexpr std::uint16_t kMulticastProfile = 309;

class GraphBuilder
{
public:
    GraphBuilder(const Mib& mib, const Catalogue& catalogue) : m_Mib(mib)
    {
        for (const auto& pointer : pointersOf(mib, catalogue)) {
            if (pointer.rule->drawn && lookOf(pointer.from.first) && lookOf(pointer.to.first))
                m_Pointers.push_back(pointer);
        }
    }

    MibGraph build()
    {
        for (const auto& [key, entity] : m_Mib.entities()) {
            const ClassLook* const look = lookOf(key.first);
            if (look && look->showing == Showing::Each)
                show(key, NodeState::Present);
        }
        followPointers();
        sortNodes();
        placePorts();
        sortNodes();
        for (const auto& pointer : m_Pointers)
            connect(pointer);
        placeTConts();
        listUnconnected();
        return std::move(m_Graph);
    }

private:
    void show(Mib::Key key, NodeState state)
    {
        if (!m_Shown.insert({key, 0}).second)
            return;
        const ClassLook& look = *lookOf(key.first);
        GraphNode node;
        node.key = key;
        node.title = titleOf(key);
        node.layer = look.layer;
        node.kind = look.kind;
        node.state = state;
        if (state == NodeState::Present)
            node.details = detailsOf(m_Mib.entities().at(key), m_Mib);
        else
            node.details.emplace_back(state == NodeState::Missing ? "missing" : "not in the upload");
        m_Graph.nodes.push_back(std::move(node));
    }

    /// What is shown shows what it points to.
    void followPointers()
    {
        for (std::size_t before = 0; before != m_Graph.nodes.size();) {
            before = m_Graph.nodes.size();
            for (const auto& pointer : m_Pointers) {
                if (m_Shown.count(pointer.from) != 0)
                    show(pointer.to, pointer.exists     ? NodeState::Present
                                     : pointer.canExist ? NodeState::Missing
                                                        : NodeState::NotUploaded);
            }
        }
    }

    void sortNodes()
    {
        std::sort(m_Graph.nodes.begin(), m_Graph.nodes.end(),
                  [](const auto& a, const auto& b) { return std::tie(a.layer, a.key) < std::tie(b.layer, b.key); });
        for (std::size_t i = 0; i < m_Graph.nodes.size(); ++i)
            m_Shown[m_Graph.nodes[i].key] = i;
    }

    GraphNode& node(Mib::Key key) { return m_Graph.nodes[m_Shown.at(key)]; }

    /// A port stands on the side of what it leads to.
    void placePorts()
    {
        for (const auto& pointer : m_Pointers) {
            if (pointer.from.first == kBridgePort && lookOf(pointer.to.first)->layer > GraphLayer::Bridge)
                node(pointer.from).layer = GraphLayer::AniSidePort;
        }
    }

    void connect(const Pointer& pointer)
    {
        if (m_Shown.count(pointer.from) == 0)
            return;
        const bool ownsTarget = pointer.to.first == kMulticastProfile;
        const Mib::Key attached = ownsTarget ? pointer.to : pointer.from;
        const Mib::Key owner = ownsTarget ? pointer.from : pointer.to;
        if (lookOf(attached.first)->attached && node(attached).owner < 0) {
            node(attached).owner = static_cast<int>(m_Shown.at(owner));
            return;
        }
        addEdge(pointer);
    }

    void addEdge(const Pointer& pointer)
    {
        std::size_t from = m_Shown.at(pointer.from);
        std::size_t to = m_Shown.at(pointer.to);
        if (m_Graph.nodes[from].layer > m_Graph.nodes[to].layer)
            std::swap(from, to);
        const std::string label = labelOf(pointer);
        for (auto& edge : m_Graph.edges) {
            if (edge.from != from || edge.to != to)
                continue;
            // The p-bits of a mapper that lead to the same TP share a line.
            if (!label.empty())
                edge.label = edge.label.empty() ? label
                                                : "p-bits" + edge.label.substr(edge.label.find(' ')) + ", " +
                                                      label.substr(label.find(' ') + 1);
            return;
        }
        m_Graph.edges.push_back({from, to, label});
    }

    static std::string labelOf(const Pointer& pointer)
    {
        const std::string name = pointer.rule->attribute ? pointer.rule->attribute : "";
        return name.rfind("InterworkTpPointerForPBit", 0) == 0 ? std::string("p-bit ") + name.back() : "";
    }

    /// T-CONTs stand right of the last column that leads to them, so that no line runs behind queues without need.
    void placeTConts()
    {
        auto layer = GraphLayer::Queue;
        for (const auto& edge : m_Graph.edges) {
            const auto before = m_Graph.nodes[edge.from].layer;
            if (m_Graph.nodes[edge.to].layer == GraphLayer::TCont && before >= GraphLayer::Queue)
                layer = GraphLayer::TCont;
        }
        for (auto& node : m_Graph.nodes) {
            if (node.layer == GraphLayer::TCont)
                node.layer = layer;
        }
    }

    void listUnconnected()
    {
        for (const auto& [key, entity] : m_Mib.entities()) {
            const ClassLook* const look = lookOf(key.first);
            if (look && look->showing == Showing::ListedIfUnused && m_Shown.count(key) == 0)
                m_Graph.unconnected.push_back(titleOf(key));
        }
    }

    const Mib& m_Mib;
    std::vector<Pointer> m_Pointers;
    MibGraph m_Graph;
    std::map<Mib::Key, std::size_t> m_Shown;  ///< Index of each shown node, once they are in order.
};

}  // namespace

MibGraph graphOf(const Mib& mib, const Catalogue& catalogue)
{
    return GraphBuilder(mib, catalogue).build();
}

std::string detailText(const GraphNode& node)
{
    std::string text;
    for (const auto& detail : node.details)
        text += (text.empty() ? "" : ", ") + detail;
    return text;
}

}  // namespace olt
