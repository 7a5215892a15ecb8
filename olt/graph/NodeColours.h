#ifndef OLT_GRAPH_NODE_COLOURS_H
#define OLT_GRAPH_NODE_COLOURS_H

#include "graph/MibGraph.h"

namespace olt {

struct NodeColours
{
    const char* fill;
    const char* line;
};

constexpr const char* kMissingColour = "#c62828";

[[nodiscard]] inline NodeColours coloursOf(const GraphNode& node)
{
    if (node.state == NodeState::Missing)
        return {"#ffebee", kMissingColour};
    if (node.state == NodeState::NotUploaded)
        return {"#fafafa", "#757575"};
    switch (node.kind) {
    case NodeKind::Uni:
        return {"#e3f2fd", "#1565c0"};
    case NodeKind::Bridge:
        return {"#eceff1", "#455a64"};
    case NodeKind::Vlan:
        return {"#fff8e1", "#b28704"};
    case NodeKind::Mapper:
        return {"#f3e5f5", "#7b1fa2"};
    case NodeKind::Gem:
        return {"#e8f5e9", "#2e7d32"};
    case NodeKind::Multicast:
        return {"#fce4ec", "#ad1457"};
    case NodeKind::TCont:
        break;
    }
    return {"#e0f2f1", "#00695c"};
}

}  // namespace olt

#endif
