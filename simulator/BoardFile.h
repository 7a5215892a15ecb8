#ifndef SIMULATOR_BOARD_FILE_H
#define SIMULATOR_BOARD_FILE_H

#include <optional>
#include <string>

#include "BoardSpecificConfig.h"
#include "Identity.h"

/// The board that is simulated.
struct Board
{
    BoardSpecificConfig counts{8, 4, 0, 1, 1, 8, 4, 2};

    /// What the board's identity replaces; nothing: the start-up value stands.
    std::optional<std::string> serialNumber;  ///< up to 16 hexadecimal digits
    std::optional<std::string> version;
    std::optional<std::string> macAddress;  ///< "00:11:22:33:44:55"
    Identity identity;
    /// A real path of the machine; empty: none.
    std::string factoryFile;

    bool hasIdentity() const { return serialNumber || version || macAddress; }
};

/// Reads a board description. std::runtime_error with file, line and field when anything in it is wrong.
Board readBoardFile(const std::string& path);

#endif
