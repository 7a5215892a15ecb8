#ifndef OLT_SESSION_OPERATIONS_H
#define OLT_SESSION_OPERATIONS_H

#include <functional>

#include "model/AttributeValues.h"
#include "model/Mib.h"
#include "session/Session.h"

/// What an OLT does with one entity, as a caller thinks of it: values that exceed one message are spread over several.
/// All of it throws what Session::request throws, and BadAnswer for an answer that isn't one.
namespace olt {

/// Which entity is meant.
struct EntityId
{
    const EntityClass* entityClass = nullptr;  ///< Owned by the catalogue.
    std::uint16_t instance = 0;
};

/// How the ONU took it: the first result other than success, the masks of all messages together.
struct Outcome
{
    omci::Result result = omci::Result::Success;
    std::uint16_t unsupported = 0;  ///< Attributes that the ONU doesn't have (optional-attribute mask).
    std::uint16_t failed = 0;       ///< Attributes that it refused (attribute execution mask).

    [[nodiscard]] bool succeeded() const { return result == omci::Result::Success; }
    void merge(const Outcome& other);
};

struct GetOutcome : Outcome
{
    AttributeValues values;
    std::uint16_t absent = 0;  ///< Asked for, not returned and not complained about.
};

/// `type` is Get or GetCurrentData.
[[nodiscard]] GetOutcome getAttributes(Session& session, const EntityId& entity,
                                       const std::vector<const Attribute*>& attributes,
                                       omci::MessageType type = omci::MessageType::Get);

/// All of the values, in attribute order, in as few messages as they fit. Stops at the first message that fails.
[[nodiscard]] Outcome setAttributes(Session& session, const EntityId& entity,
                                    const std::vector<AttributeValue>& values);

/// Whole rows of one table by the set table message of the extended format.
[[nodiscard]] Outcome setTableRows(Session& session, const EntityId& entity, const Attribute& table,
                                   const std::vector<Bytes>& rows);

/// Attributes that are set by create and not among `values` go out with their defaults.
[[nodiscard]] Outcome createEntity(Session& session, const EntityId& entity, const std::vector<AttributeValue>& values);

/// A command that is answered by a result alone: delete, MIB reset, reboot, synchronize time, test, activate, commit.
[[nodiscard]] Outcome command(Session& session, const EntityId& entity, omci::MessageType type, Bytes contents = {});

/// A whole table, read by get next.
struct TableContents : Outcome
{
    std::uint32_t size = 0;   ///< As the ONU announces it.
    std::vector<Bytes> rows;  ///< The last one may be short.
    /// The ONU answers a get with the row that was set last instead of the table's size, and refuses get next.
    bool newestOnly = false;
};
[[nodiscard]] TableContents readTable(Session& session, const EntityId& entity, const Attribute& table);
/// The rows of a table whose size the ONU does not tell, until it has no more; a get must have gone before. None where
/// the ONU refuses get next.
[[nodiscard]] std::vector<Bytes> readRowsWithoutSize(Session& session, const EntityId& entity, const Attribute& table);

/// Called with what is done and what there is to do.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

/// The whole MIB. Throws BadAnswer when the ONU's snapshot has holes.
[[nodiscard]] Mib uploadMib(Session& session, const Catalogue& catalogue, const Progress& progress);

/// Whether entities under alarm reporting control are listed.
enum class AlarmRetrieval : std::uint8_t
{
    All = 0,
    WithoutArc = 1
};
[[nodiscard]] std::vector<omci::AlarmedEntity> readAlarms(Session& session, const EntityClass& onuData,
                                                          AlarmRetrieval mode);

}  // namespace olt

#endif
