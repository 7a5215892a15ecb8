#include "impl/Shell.h"

#include <cstdlib>

namespace nrvk {

void runCommand(const char* command)
{
    [[maybe_unused]] const int result = system(command);
}

}  // namespace nrvk
