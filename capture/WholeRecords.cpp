#include "WholeRecords.h"

#include <cerrno>

#include <stdio_ext.h>
#include <unistd.h>

namespace omci {

bool flushWhole(FILE* file, off_t whole)
{
    if (std::fflush(file) == 0 && std::ferror(file) == 0) {
        return true;
    }
    const int error = errno;
    __fpurge(file);
    // A pipe or a device keeps what it has.
    static_cast<void>(!ftruncate(fileno(file), whole));
    errno = error;
    return false;
}

}  // namespace omci
