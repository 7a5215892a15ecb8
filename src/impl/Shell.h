#ifndef NRVK_IMPL_SHELL_H
#define NRVK_IMPL_SHELL_H

namespace nrvk {

/// Runs a command of the board by the shell and waits for it. Nobody could act on its outcome, so there is none.
void runCommand(const char* command);

}  // namespace nrvk

#endif
