#ifndef SIMULATOR_OPTIONS_H
#define SIMULATOR_OPTIONS_H

#include <optional>
#include <string>

/// What the command line asks for. An empty text: not asked for.
struct Options
{
    std::string listen = "127.0.0.1:0";
    std::string mic = "none";
    std::string boardFile;
    std::string stateDirectory;
    std::string hardwareLog;
    std::string libraryLog;
    std::string control;
    std::string capture;
    unsigned int logLevel = 3;
    std::optional<unsigned int> fifoDepth;
    double timeScale = 1;
    double pmInterval = 900;
    unsigned int hardwareDelay = 0;  ///< milliseconds
    bool traffic = false;
    bool baselineOnly = false;
    bool describe = false;
};

/// Fills `options`. Yields the exit code when the program is to end at once (help, or a mistake, already told).
std::optional<int> parseOptions(int argc, char** argv, Options& options);

#endif
