#ifndef OLT_GRAPH_MIB_GRAPH_H
#define OLT_GRAPH_MIB_GRAPH_H

// The layer-2 service of an ONU as a graph: which UNI leads over which bridge, mapper and GEM port to which T-CONT.

#include <string>
#include <vector>

#include "model/Pointers.h"

namespace olt {

/// Columns of a picture, from the user's side to the optical one.
enum class GraphLayer
{
    Uni,
    UniSidePort,
    Bridge,
    AniSidePort,
    Mapper,
    InterworkingTp,
    GemPort,
    Queue,
    Scheduler,
    TCont
};

/// What a node is, for colours.
enum class NodeKind
{
    Uni,
    Bridge,
    Vlan,
    Mapper,
    Gem,
    Multicast,
    TCont
};

enum class NodeState
{
    Present,
    Missing,     ///< Pointed to, and not there.
    NotUploaded  ///< Pointed to, and of a class that MIB uploads leave out.
};

struct GraphNode
{
    Mib::Key key;
    std::string title;  ///< "Bridge port 1"
    std::vector<std::string> details;
    GraphLayer layer = GraphLayer::Uni;
    NodeKind kind = NodeKind::Uni;
    NodeState state = NodeState::Present;
    int owner = -1;  ///< Index of the node that this one belongs to, such as a filter to its port; -1: none.
};

/// Between nodes that belong to different columns, from the lower to the higher one.
struct GraphEdge
{
    std::size_t from;
    std::size_t to;
    std::string label;  ///< "p-bits 0, 1"; mostly empty.
};

struct MibGraph
{
    std::vector<GraphNode> nodes;  ///< In order of column, class and instance.
    std::vector<GraphEdge> edges;
    std::vector<std::string> unconnected;  ///< Titles of UNIs that no service uses.
};

/// Bridges, mappers, GEM ports and VLAN entities with all that they lead to. Queues, schedulers and T-CONTs that
/// nothing leads to are left out; UNIs without a service are listed apart.
[[nodiscard]] MibGraph graphOf(const Mib& mib, const Catalogue& catalogue);

/// Graphviz source.
[[nodiscard]] std::string toDot(const MibGraph& graph);

/// A picture in columns, complete in itself.
[[nodiscard]] std::string toSvg(const MibGraph& graph);

/// One line of the graph as a tree.
struct TreeLine
{
    std::string branches;  ///< "|  +- "
    const GraphNode* node = nullptr;
    std::string label;      ///< Of the edge that leads here.
    bool repeated = false;  ///< Shown with what follows it further above.
};

/// Each bridge with its ports to both sides; then what no bridge leads to.
[[nodiscard]] std::vector<TreeLine> toTree(const MibGraph& graph);
/// The lines point into the graph.
std::vector<TreeLine> toTree(MibGraph&& graph) = delete;

/// The node's details in one text.
[[nodiscard]] std::string detailText(const GraphNode& node);

}  // namespace olt

#endif
