#ifndef SIMULATOR_LIBRARY_LOG_H
#define SIMULATOR_LIBRARY_LOG_H

#include "JsonLog.h"
#include "Logger.h"

/// Writes each log line of the library, of every level, into a file of JSON lines.
class LibraryLog
{
public:
    /// Both outlive the object; the log is open.
    LibraryLog(JsonLog& log, RunningNumber& number);
    ~LibraryLog();
    LibraryLog(const LibraryLog&) = delete;
    LibraryLog& operator=(const LibraryLog&) = delete;

private:
    static void write(const Logger::Line& line, void* context);

    JsonLog& m_Log;
    RunningNumber& m_Number;
};

#endif
