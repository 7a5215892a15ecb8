#include "session/VlanTable.h"

#include <algorithm>

#include "model/Value.h"
#include "model/VlanRow.h"

namespace olt {

namespace {

/// A size is a small multiple of the row's; as the beginning of a row it would set padding bits alone.
bool isSize(const Bytes& octets)
{
    const bool restIsZero =
        std::all_of(octets.begin() + 4, octets.end(), [](std::uint8_t octet) { return octet == 0; });
    const auto number = bigEndian(octets.data(), 4);
    return restIsZero && number % kVlanRowSize == 0 && number < 0x1000 * kVlanRowSize;
}

}  // namespace

TableContents readVlanTable(Session& session, const EntityId& entity, const Attribute& attribute)
{
    TableContents table;
    const GetOutcome got = getAttributes(session, entity, {&attribute});
    table.merge(got);
    if (!got.succeeded())
        return table;
    const bool isRow = !got.values.values.empty() && !isSize(got.values.values.front().value);
    if (!isRow)
        return readTable(session, entity, attribute);
    table.rows = readRowsWithoutSize(session, entity, attribute);
    table.newestOnly = table.rows.empty();
    if (table.newestOnly)
        table.rows.push_back(got.values.values.front().value);
    table.size = static_cast<std::uint32_t>(table.rows.size() * kVlanRowSize);
    return table;
}

}  // namespace olt
