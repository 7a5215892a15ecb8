#ifndef SIMULATOR_PROGRAM_LOG_H
#define SIMULATOR_PROGRAM_LOG_H

#include <string>

/// A line of the program's own, at notice level, on standard error.
void logNotice(const char* function, const char* file, unsigned int line, const std::string& text);

#endif
