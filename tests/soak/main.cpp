// The OLT's side of a soak: sends so many mixed messages to an ONU and checks every answer. One line of JSON for each
// twentieth of them, for whoever watches the ONU meanwhile, and one at the end.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "OnuModel.h"

namespace {

constexpr std::uint64_t kSteps = 20;

struct Arguments
{
    std::string address;
    std::uint64_t messages = 0;
    unsigned window = 32;
    unsigned seed = 1;
};

Arguments parse(int argc, char** argv)
{
    if (argc < 3 || argc > 5) {
        throw soak::Failure("usage: soak_client ADDR:PORT MESSAGES [WINDOW [SEED]]");
    }
    Arguments arguments{argv[1], std::strtoull(argv[2], nullptr, 10)};
    arguments.window = argc > 3 ? static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10)) : arguments.window;
    arguments.seed = argc > 4 ? static_cast<unsigned>(std::strtoul(argv[4], nullptr, 10)) : arguments.seed;
    if (arguments.messages == 0 || arguments.window == 0 || arguments.window > 1024) {
        throw soak::Failure("MESSAGES is a number above 0, WINDOW one from 1 to 1024");
    }
    return arguments;
}

void report(const soak::WindowedPeer& peer, std::chrono::duration<double> seconds)
{
    std::printf("{\"messages\":%llu,\"seconds\":%.3f,\"retransmissions\":%llu,\"notifications\":%llu}\n",
                static_cast<unsigned long long>(peer.answers()), seconds.count(),
                static_cast<unsigned long long>(peer.retransmissions()),
                static_cast<unsigned long long>(peer.notifications()));
    std::fflush(stdout);
}

void run(const Arguments& arguments)
{
    const auto start = std::chrono::steady_clock::now();
    soak::WindowedPeer peer(arguments.address, arguments.window);
    soak::OnuModel model(peer, arguments.seed);
    model.begin();
    for (std::uint64_t step = 1; step <= kSteps; ++step) {
        while (peer.answers() < arguments.messages * step / kSteps) {
            model.step();
        }
        peer.finish();
        report(peer, std::chrono::steady_clock::now() - start);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        run(parse(argc, argv));
    } catch (const std::exception& problem) {
        std::cerr << "soak_client: " << problem.what() << '\n';
        return 1;
    }
    return 0;
}
