#ifndef NRVK_IMPL_SHELL_H
#define NRVK_IMPL_SHELL_H

namespace nrvk {

/// Runs a command of the board by the shell and waits for it. False when no shell could be started;
/// what the command itself made of it, nobody could act on.
bool runCommand(const char* command);

}  // namespace nrvk

#endif
