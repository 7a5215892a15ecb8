// onu-sim: the library in a host process with simulated hardware.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <optional>
#include <system_error>

#include "Describe.h"
#include "HeldOutput.h"
#include "OmciManagedEntityRegistrar.h"
#include "Options.h"
#include "ServiceManager.h"
#include "Simulator.h"
#include "sandbox/Sandbox.h"

namespace {
constexpr int kFailed = 1;
constexpr int kUsage = 2;

/// Before any thread exists, so that all inherit it: the event loop takes these signals from a descriptor.
void blockSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
}

void run(const Options& options)
{
    Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&OmciManagedEntityRegistrar::getInstance));
    if (!options.stateDirectory.empty()) {
        Sandbox::useDirectory(options.stateDirectory);
    } else {
        // Made now, so that a machine without room for it says so at the start.
        Sandbox::directory();
    }
    if (options.describe) {
        std::cout << describeClasses().dump(2) << std::endl;
        if (!std::cout) {
            throw std::system_error(errno, std::generic_category(), "cannot write to standard output");
        }
        return;
    }
    std::optional<HeldOutput> held(std::in_place);
    Simulator simulator(options);
    held->printFirst(("listening on " + simulator.listenAddress() + '\n').c_str());
    held.reset();
    service_manager::tellReady();
    simulator.run();
    service_manager::tellStopping();
}
}  // namespace

int main(int argc, char** argv)
{
    Options options;
    if (const auto exitCode = parseOptions(argc, argv, options)) {
        return *exitCode == 0 ? 0 : kUsage;
    }
    blockSignals();
    try {
        run(options);
    } catch (const std::exception& problem) {
        std::cerr << "onu-sim: " << problem.what() << '\n';
        return kFailed;
    }
    return 0;
}
