#ifndef NRVK_IMPL_TABLE_ROW_H
#define NRVK_IMPL_TABLE_ROW_H

#include <array>
#include <cstddef>

namespace nrvk {

/// One row of a table attribute.
template <std::size_t Size>
using TableRow = std::array<unsigned char, Size>;

/// A row from the wire. The first zero byte ends it, and zeros fill the rest: so for every table, not only those of
/// texts.
template <std::size_t Size>
TableRow<Size> tableRow(const unsigned char* bytes)
{
    TableRow<Size> row{};
    for (std::size_t i = 0; i < Size && bytes[i] != 0; ++i) {
        row[i] = bytes[i];
    }
    return row;
}

}  // namespace nrvk

#endif
