#include "impl/Shell.h"

#include <cstdlib>

namespace nrvk {

bool runCommand(const char* command)
{
    return system(command) != -1;
}

}  // namespace nrvk
