#include "LibraryLog.h"

#include "host/LogSink.h"

LibraryLog::LibraryLog(JsonLog& log, RunningNumber& number) : m_Log(log), m_Number(number)
{
    Logger::getInstance(omci::kLibraryLoggerId)->setObserver(write, this);
}

LibraryLog::~LibraryLog()
{
    Logger::getInstance(omci::kLibraryLoggerId)->setObserver(nullptr, nullptr);
}

void LibraryLog::write(const Logger::Line& line, void* context)
{
    auto& log = *static_cast<LibraryLog*>(context);
    log.m_Log.write({{"n", log.m_Number.next()},
                     {"level", line.level},
                     {"function", line.function},
                     {"file", line.file},
                     {"line", line.line},
                     {"text", line.text}});
}
