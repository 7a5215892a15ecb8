#ifndef TESTS_MODEL_CLASS_RULES_H
#define TESTS_MODEL_CLASS_RULES_H

#include <map>
#include <optional>
#include <vector>

#include "ClassList.h"
#include "MibModel.h"

/// What single classes do beside keeping values: written from the description of each class, as tables where that will
/// do. The ONU of these tests has a hardware layer that knows no port, or none at all.
namespace model {

/// What becomes of a value that an OLT sets.
enum class Taken
{
    Stored,
    Refused,           ///< the old value stands
    StoredYetRefused,  ///< the new value stands, and the answer names the attribute
    Passed             ///< success, and the old value stands
};

struct Write
{
    Taken taken = Taken::Stored;
    Bytes value;                            ///< what is kept
    std::map<std::uint16_t, Bytes> others;  ///< values of the same entity that change with it
};

Write write(const MibModel& mib, std::uint16_t classId, std::uint16_t instance, const Attribute& attribute,
            const Bytes& value);

/// What an OLT reads by get or get current data; nothing when the attribute cannot be read.
std::optional<Bytes> read(const MibModel& mib, std::uint16_t classId, std::uint16_t instance,
                          const Attribute& attribute, std::uint8_t type);

/// Whether the hardware refuses what the entity has become, so that the set fails as a whole.
bool isRefusedByHardware(const MibModel& mib, std::uint16_t classId, std::uint16_t instance);

/// The default of the list, or that of an attribute whose default is no number.
Bytes defaultOf(std::uint16_t classId, const Attribute& attribute);

/// An entity that comes and goes with another one of the same instance number.
struct Companion
{
    std::uint16_t classId;
    bool isCreatedByOlt;
};

std::vector<Companion> companionsOf(std::uint16_t classId);

}  // namespace model

#endif
