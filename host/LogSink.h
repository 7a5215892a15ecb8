#ifndef HOST_LOG_SINK_H
#define HOST_LOG_SINK_H

#include <spdlog/sinks/sink.h>

#include <memory>
#include <string>

namespace omci {

/// Logger id of the host's own lines.
constexpr int kHostLoggerId = 1;
/// Logger id of the library's lines.
constexpr int kLibraryLoggerId = 150;

/// Where the finished lines of every Logger go: standard error until told otherwise. To be called before other threads
/// log.
void setLogSink(std::shared_ptr<spdlog::sinks::sink> sink);

}  // namespace omci

#endif
