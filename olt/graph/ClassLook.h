#ifndef OLT_GRAPH_CLASS_LOOK_H
#define OLT_GRAPH_CLASS_LOOK_H

#include "graph/MibGraph.h"

namespace olt {

enum class Showing
{
    Each,            ///< Even when nothing leads to it.
    IfUsed,          ///< When something leads to it.
    ListedIfUnused,  ///< As IfUsed, and by name apart from the picture otherwise.
};

/// How entities of a class stand in a picture.
struct ClassLook
{
    std::uint16_t entityClass;
    const char* title;
    GraphLayer layer;
    NodeKind kind;
    Showing showing;
    bool attached;                                             ///< Stands below what it belongs to.
    std::vector<std::pair<const char*, const char*>> details;  ///< Attribute, and what stands before its value.
};

/// Null for a class that no picture shows.
[[nodiscard]] const ClassLook* lookOf(std::uint16_t entityClass);

/// The lines below the title of an entity.
[[nodiscard]] std::vector<std::string> detailsOf(const MibEntity& entity, const Mib& mib);

/// The title of an entity by class and number, whether it exists or not.
[[nodiscard]] std::string titleOf(Mib::Key key);

}  // namespace olt

#endif
