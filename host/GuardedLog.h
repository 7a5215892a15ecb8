#ifndef HOST_GUARDED_LOG_H
#define HOST_GUARDED_LOG_H

#include "LogSink.h"
#include "omci_host/Logger.h"

namespace omci {

/// Hands the host's logger to `write(Logger&)`, where a line must not cost its writer more than the line: without
/// memory for it, or with an observer that throws, there is none.
template <typename Write>
void logGuarded(Write write) noexcept
{
    try {
        write(*Logger::getInstance(kHostLoggerId));
    } catch (...) {
        // There is nobody left to tell.
        return;
    }
}

}  // namespace omci

#endif
