#ifndef OLT_MODEL_MIB_CHECK_H
#define OLT_MODEL_MIB_CHECK_H

#include "model/Pointers.h"

namespace olt {

/// Something in a MIB that no service can work with.
struct MibFinding
{
    Mib::Key entity;
    std::string text;  ///< Without the entity: "TpPointer names AniG (263) instance 7, which doesn't exist".
};

struct MibCheck
{
    std::vector<MibFinding> findings;  ///< In order of class and instance.
    /// Pointers to classes that MIB uploads leave out and the MIB doesn't have.
    std::size_t unchecked = 0;
};

/// Pointers to missing entities, GEM ports without a usable T-CONT, GEM port-IDs used twice, mappers and GEM TPs that
/// don't agree.
[[nodiscard]] MibCheck checkMib(const Mib& mib, const Catalogue& catalogue);

}  // namespace olt

#endif
