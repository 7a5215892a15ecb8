// One attribute through a whole frame and the dispatcher.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <vector>

#include "Frames.h"
#include "Mib.h"
#include "OmciMe.h"
#include "host/Dispatcher.h"
#include "host/Mic.h"

namespace {

using bench::baselineRequest;

void throughDispatcher(benchmark::State& state, std::vector<unsigned char> request)
{
    omci::Dispatcher dispatcher{omci::Mic()};
    unsigned short transaction = 0;
    for (auto _ : state) {
        bench::setTransactionId(request, ++transaction);
        benchmark::DoNotOptimize(dispatcher.handle(request.data(), request.size()).data);
    }
    state.SetItemsProcessed(state.iterations());
}

/// The attribute by the adapter, and a frame in and out of memory.
void frameFloor(benchmark::State& state, bool set)
{
    const OmciMe& me = bench::adapter(263);
    const attributeDefinition definition = bench::definition(263, 0x2000);
    std::array<unsigned char, 48> request{};
    std::array<unsigned char, 48> reply{};
    for (auto _ : state) {
        ++request[9];
        std::memcpy(reply.data(), request.data(), reply.size());
        if (set) {
            benchmark::DoNotOptimize(me.setAttribute(1025, &definition, request.data() + 8));
        } else {
            benchmark::DoNotOptimize(me.getAttribute(1025, &definition, reply.data() + 11, OMCI_ACTION_GET));
        }
        benchmark::ClobberMemory();
    }
}

const std::vector<unsigned char> kMaskGemBlockLength = {0x20, 0x00};
const std::vector<unsigned char> kSetGemBlockLength = {0x20, 0x00, 0x00, 0x30};

BENCHMARK_CAPTURE(throughDispatcher, get, baselineRequest(omci::MessageType::Get, 263, 1025, kMaskGemBlockLength))
    ->Name("frame_get_u16");
BENCHMARK_CAPTURE(frameFloor, get, false)->Name("frame_get_u16_floor");
BENCHMARK_CAPTURE(throughDispatcher, set, baselineRequest(omci::MessageType::Set, 263, 1025, kSetGemBlockLength))
    ->Name("frame_set_u16");
BENCHMARK_CAPTURE(frameFloor, set, true)->Name("frame_set_u16_floor");

}  // namespace
