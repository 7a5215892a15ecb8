#include "Options.h"

#include <CLI/CLI.hpp>
#include <limits>

#include "hardware/HardwareSettings.h"

namespace {
constexpr unsigned int kHighestLogLevel = 7;
constexpr double kLongestPmInterval = 86400;

std::string checkTimeScale(const std::string& text)
{
    double scale = 0;
    const bool isUsable = CLI::detail::lexical_cast(text, scale) && scale > 0 && scale <= 1e6;
    return isUsable ? "" : "\"" + text + "\" is not a factor above 0, up to 1000000";
}
}  // namespace

std::optional<int> parseOptions(int argc, char** argv, Options& options)
{
    CLI::App program("A simulated ONU: answers OMCI messages on a UDP socket", "onu-sim");
    program.add_option("--listen", options.listen, "UDP address, one OMCI message per datagram; port 0 picks one")
        ->type_name("ADDR:PORT")
        ->capture_default_str();
    program.add_option("--mic", options.mic, "integrity check: none, crc32 or cmac:HEXKEY")->capture_default_str();
    program.add_option("--board", options.boardFile, "board description (INI)")->type_name("FILE");
    program.add_option("--state-dir", options.stateDirectory, "directory that stands for the board's root")
        ->type_name("DIR");
    program.add_option("--hardware-log", options.hardwareLog, "JSON lines, one per call on the hardware")
        ->type_name("FILE");
    program.add_option("--library-log", options.libraryLog, "JSON lines, one per log line of the library")
        ->type_name("FILE");
    program.add_option("--control", options.control, "Unix stream socket that takes JSON requests")->type_name("PATH");
    program.add_option("--pcap", options.capture, "capture of all frames")->type_name("FILE");
    program.add_option("--log-level", options.logLevel, "what is printed on standard error, 0 to 7")
        ->check(CLI::Range(0U, kHighestLogLevel))
        ->capture_default_str();
    program.add_option("--fifo-depth", options.fifoDepth, "depth of the receive FIFO in octets");
    program.add_option("--time-scale", options.timeScale, "all timers run this many times faster")
        ->check(checkTimeScale)
        ->capture_default_str();
    program.add_option("--pm-interval", options.pmInterval, "seconds of a performance monitoring interval")
        ->check(CLI::Range(0.1, kLongestPmInterval))
        ->type_name("SECONDS")
        ->capture_default_str();
    program.add_option("--hardware-delay", options.hardwareDelay, "milliseconds until the hardware has done its work")
        ->check(CLI::Range(0U, HardwareSettings::kLongestDelay))
        ->type_name("MS")
        ->capture_default_str();
    program.add_flag("--traffic", options.traffic, "simulated traffic, which makes counters grow");
    program.add_flag("--baseline-only", options.baselineOnly, "drop extended messages, and say so in the OMCC version");
    program.add_flag("--describe", options.describe, "print the managed-entity classes as JSON and exit");
    program.set_version_flag("--version", "onu-sim " NRVK_VERSION);
    program.footer("Examples:\n"
                   "  onu-sim --listen 127.0.0.1:5000 --control /tmp/onu.sock --hardware-log calls.jsonl\n"
                   "  onu-sim --listen 127.0.0.1:0 --board board.ini --traffic --pm-interval 10\n\n"
                   "Exit codes: 0 ended by SIGINT or SIGTERM; 1 cannot start or go on; 2 wrong options");
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error);
    }
    return std::nullopt;
}
