#include "session/Interrupt.h"

#include <array>
#include <csignal>
#include <stdexcept>
#include <unistd.h>

#include "model/Errors.h"

namespace olt {

namespace {

volatile std::sig_atomic_t interrupted = 0;
std::array<int, 2> wakeUp{-1, -1};

void onSignal(int)
{
    interrupted = 1;
    const char byte = 0;
    // A full pipe wakes the reader just as well.
    [[maybe_unused]] const auto written = write(wakeUp[1], &byte, 1);
}

}  // namespace

Interrupt::Interrupt()
{
    if (pipe(wakeUp.data()) != 0)
        throw std::runtime_error("no pipe for signals");
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

Interrupt::~Interrupt()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    for (int& end : wakeUp) {
        close(end);
        end = -1;
    }
    interrupted = 0;
}

int Interrupt::descriptor()
{
    return wakeUp[0];
}

void Interrupt::check()
{
    if (interrupted != 0)
        throw Interrupted();
}

}  // namespace olt
