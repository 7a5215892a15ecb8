// omci-olt: the OLT's side of OMCI on the command line.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

#include "app/CommandParser.h"
#include "session/Interrupt.h"
#include "session/UdpChannel.h"

namespace {

using namespace olt;

constexpr const char* kFooter = R"(Examples:
  omci-olt --connect 127.0.0.1:5000 mib-reset
  omci-olt --connect 127.0.0.1:5000 mib-upload --save onu.json
  omci-olt --connect 127.0.0.1:5000 get ANI-G 0x0401 SrIndication OpticalSignalLevel
  omci-olt --connect 127.0.0.1:5000 set OnuG 0 AdministrativeState=locked
  omci-olt --connect 127.0.0.1:5000 create GalEthernetProfile 1 MaxGemPayloadSize=4095
  omci-olt --connect 127.0.0.1:5000 --extended --json watch
  omci-olt --connect [::1]:5000 --mic crc32 run provision.omci
  omci-olt classes AniG                 what a class has, without an ONU
  omci-olt get --help                   help on one command

Exit codes:
  0    success
  1    the ONU refused (a result other than success), or its answer makes no sense; a comparison found differences
  2    usage: wrong options, names, values or files
  3    no answer: unreachable, or no valid answer within the time-out and all retries
  130  Ctrl-C

Colour and progress show on terminals only; NO_COLOR turns colour off.)";

void declareGlobalOptions(CLI::App& app, GlobalOptions& options)
{
    app.set_version_flag("--version", "omci-olt " NRVK_VERSION);
    app.set_help_flag("-h,--help", "Help; after a command, help on that command");
    app.footer(kFooter);
    app.fallthrough();
    app.add_option("--connect", options.connect, "The ONU's UDP address")->type_name("ADDR:PORT");
    app.add_flag("--extended", options.extended, "Extended messages instead of baseline");
    app.add_option("--mic", options.mic, "Integrity check: none, crc32 or cmac: and 32 hexadecimal digits of the key")
        ->type_name("MODE")
        ->capture_default_str();
    app.add_option("--timeout", options.timeout, "Milliseconds to wait for each answer")
        ->type_name("MS")
        ->check(CLI::Range(1U, 3'600'000U))
        ->capture_default_str();
    app.add_option("--retries", options.retries, "Further attempts after a time-out, under the same transaction id")
        ->type_name("N")
        ->check(CLI::Range(0U, 1000U))
        ->capture_default_str();
    app.add_option("--pcap", options.capture, "Capture of all frames, readable while it grows")->type_name("FILE");
    app.add_flag("--json", options.json, "One JSON object a line instead of text");
}

/// Wrong global options are found before anything is sent or prepared.
void checkGlobalOptions(const GlobalOptions& options)
{
    std::string problem;
    if (!omci::Mic::parse(options.mic, problem))
        throw UsageError("--mic " + options.mic + ": " + problem);
    if (!options.connect.empty())
        static_cast<void>(Peer::parse(options.connect));
}

void printError(Output& output, const char* what, ExitCode code)
{
    try {
        output.object({{"error", what}, {"exit_code", static_cast<int>(code)}});
    } catch (const UsageError& error) {
        // Standard output is what the error is about, or as bad; standard error has it.
        output.note(std::string("omci-olt: ") + error.what());
    }
}

int complain(const GlobalOptions& options, Output& output, const char* what, ExitCode code)
{
    output.note(std::string("omci-olt: ") + what);
    if (options.json)
        printError(output, what, code);
    return static_cast<int>(code);
}

int runCommand(const GlobalOptions& options, Output& output, Command& command)
{
    const Interrupt interrupt;
    try {
        checkGlobalOptions(options);
        Context context(Catalogue::builtIn(), options, output);
        command.prepare(context);
        return static_cast<int>(command.run(context));
    } catch (const UsageError& error) {
        return complain(options, output, error.what(), ExitCode::Usage);
    } catch (const Unreachable& error) {
        return complain(options, output, error.what(), ExitCode::Unreachable);
    } catch (const Interrupted&) {
        return static_cast<int>(ExitCode::Interrupted);
    } catch (const std::exception& error) {
        return complain(options, output, error.what(), ExitCode::Refused);
    }
}

int parseAndRun(int argc, char** argv)
{
    GlobalOptions options;
    const Terminal terminal;
    CLI::App app("The OLT's side of OMCI (ITU-T G.988): reads, provisions and watches an ONU over UDP.", "omci-olt");
    declareGlobalOptions(app, options);
    CommandParser parser(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        const int code = app.exit(request);
        if (!std::cout.flush()) {
            std::fputs("omci-olt: standard output can't be written\n", stderr);
            return static_cast<int>(ExitCode::Usage);
        }
        return code;
    } catch (const CLI::ParseError& error) {
        Output output(terminal, options.json);
        return complain(options, output, (parser.explain(error) + " (--help tells more)").c_str(), ExitCode::Usage);
    }
    Output output(terminal, options.json);
    const auto command = parser.take();
    return runCommand(options, output, *command);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return parseAndRun(argc, argv);
    } catch (const std::exception& error) {
        // Without memory for a better message, say.
        std::fprintf(stderr, "omci-olt: %s\n", error.what());
        return static_cast<int>(ExitCode::Refused);
    }
}
