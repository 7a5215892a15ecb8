#include "ProgramLog.h"

#include "Logger.h"
#include "host/LogSink.h"

void logNotice(const char* function, const char* file, unsigned int line, const std::string& text)
{
    constexpr unsigned char notice = 5;
    Logger::getInstance(omci::kHostLoggerId)->writeToLog(0, function, file, line, notice, "%s", text.c_str());
}
