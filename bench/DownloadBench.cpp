// The section road of a software download, beside the least it can cost: the timer's restart and the copy.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "Download.h"
#include "Mib.h"
#include "NorvikTimer.h"
#include "OmciMe.h"
#include "sandbox/Sandbox.h"

namespace {

using bench::kImageBytes;
using bench::kSoftwareImage;
using bench::kWindow;
using bench::sectionBytes;
using bench::sectionsOfImage;
using bench::start;
using bench::window;
using omci::Format;

constexpr unsigned int kTimerMilliseconds = 30000;

void report(benchmark::State& state, Format format)
{
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sectionBytes(format)));
}

/// One section an iteration; images follow each other without being counted.
void downloadSection(benchmark::State& state, Format format)
{
    bench::dropReports();
    Sandbox::setFreeSpace(1U << 30);
    OmciMe& images = bench::adapter(kSoftwareImage);
    std::vector<OmciFrame> frames = window(format);
    const std::size_t perImage = sectionsOfImage(format);
    std::size_t section = perImage;
    int result = 0;
    for (auto _ : state) {
        if (section == perImage) {
            state.PauseTiming();
            section = 0;
            if (result < 0 || !start(images, format)) {
                state.SkipWithError("the download was refused");
                break;
            }
            state.ResumeTiming();
        }
        result |= images.downloadSection(&frames[section % kWindow]);
        ++section;
    }
    report(state, format);
}

/// The same bytes from the same frames into memory as fresh, with one restart of a timer each.
void downloadSectionFloor(benchmark::State& state, Format format)
{
    std::vector<OmciFrame> frames = window(format);
    NorvikTimer timer([](sigval) {}, nullptr);
    const std::size_t bytes = sectionBytes(format);
    const std::size_t perImage = sectionsOfImage(format);
    std::unique_ptr<unsigned char, decltype(&std::free)> image(nullptr, std::free);
    std::size_t section = perImage;
    for (auto _ : state) {
        if (section == perImage) {
            state.PauseTiming();
            section = 0;
            image.reset();
            image.reset(static_cast<unsigned char*>(std::calloc(kImageBytes, 1)));
            state.ResumeTiming();
        }
        timer.startOneShotTimer(kTimerMilliseconds);
        std::memcpy(image.get() + section * bytes, frames[section % kWindow].getMessageContent() + 1, bytes);
        benchmark::ClobberMemory();
        ++section;
    }
    timer.stopTimer();
    report(state, format);
}

/// Part of both: what a restart of the inactivity timer takes of a section.
void timerRestart(benchmark::State& state)
{
    NorvikTimer timer([](sigval) {}, nullptr);
    for (auto _ : state) {
        timer.startOneShotTimer(kTimerMilliseconds);
    }
    timer.stopTimer();
}

BENCHMARK_CAPTURE(downloadSection, baseline, Format::Baseline)->Name("download_section_baseline");
BENCHMARK_CAPTURE(downloadSectionFloor, baseline, Format::Baseline)->Name("download_section_baseline_floor");
BENCHMARK_CAPTURE(downloadSection, extended, Format::Extended)->Name("download_section_extended");
BENCHMARK_CAPTURE(downloadSectionFloor, extended, Format::Extended)->Name("download_section_extended_floor");
BENCHMARK(timerRestart)->Name("timer_restart");

}  // namespace
