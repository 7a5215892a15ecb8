// A MIB of thousands of entities: what grows with it, and how.
#include <benchmark/benchmark.h>

#include "ManyEntities.h"
#include "Mib.h"
#include "OmciMe.h"
#include "Requests.h"

namespace {

void uploadOfMany(benchmark::State& state)
{
    bench::dropReports();
    const bench::ManyEntities entities(static_cast<unsigned int>(state.range(0)));
    OmciFrame frame = bench::request(omci::MessageType::MibUpload, {});
    for (auto _ : state) {
        if (bench::adapter(2).mibUpload(&frame) != 0) {
            state.SkipWithError("the upload was refused");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(uploadOfMany)
    ->Name("mib_upload_of")
    ->Unit(benchmark::kMillisecond)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Complexity(benchmark::oN);

void resetOfMany(benchmark::State& state)
{
    bench::dropReports();
    const bench::ManyEntities entities(static_cast<unsigned int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        entities.create();
        state.ResumeTiming();
        benchmark::DoNotOptimize(bench::adapter(2).mibReset());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(resetOfMany)
    ->Name("mib_reset_of")
    ->Unit(benchmark::kMillisecond)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Complexity(benchmark::oN);

}  // namespace
