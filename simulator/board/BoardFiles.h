#ifndef SIMULATOR_BOARD_BOARD_FILES_H
#define SIMULATOR_BOARD_BOARD_FILES_H

#include <optional>
#include <string>

/// Files of the simulated board, by the absolute names that they have there.
namespace board {

/// Where a file of the board lies on this machine.
std::string path(const std::string& name);

/// Its contents; nothing when it can't be read.
std::optional<std::string> readFile(const std::string& name);
/// Replaces it in one step and makes its directories. std::system_error when that fails.
void writeFile(const std::string& name, const std::string& contents);
void removeFile(const std::string& name);

}  // namespace board

#endif
