// The section road of a software download, beside the least it can cost: the timer's restart and the copy.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "Mib.h"
#include "NorvikTimer.h"
#include "OmciFrame.h"
#include "OmciMe.h"
#include "host/FrameCodec.h"
#include "sandbox/Sandbox.h"

namespace {

using omci::Format;
using omci::MessageType;

constexpr unsigned short kSoftwareImage = 7;
constexpr unsigned short kInstance = 1;
constexpr unsigned int kImageBytes = 16U << 20;
/// Sections in a window; the last asks for an acknowledgement.
constexpr unsigned int kWindow = 32;
constexpr unsigned int kTimerMilliseconds = 30000;

OmciFrame request(MessageType type, const std::vector<unsigned char>& contents, Format format, bool acknowledge,
                  unsigned short instance = kInstance)
{
    omci::FrameView view;
    view.header.type = type;
    view.header.acknowledgeRequest = acknowledge;
    view.header.format = format;
    view.header.entityClass = kSoftwareImage;
    view.header.entityInstance = instance;
    view.contents = contents.data();
    view.contentsLength = contents.size();
    OmciFrame frame;
    frame.setRequest(view);
    return frame;
}

std::size_t sectionBytes(Format format)
{
    return format == Format::Baseline ? 31 : 1965;
}

/// The sections of one window, as the host hands them over.
std::vector<OmciFrame> window(Format format)
{
    std::vector<OmciFrame> frames;
    for (unsigned int number = 0; number < kWindow; ++number) {
        std::vector<unsigned char> contents(1 + sectionBytes(format), static_cast<unsigned char>(number + 1));
        contents[0] = static_cast<unsigned char>(number);
        frames.push_back(request(MessageType::DownloadSection, contents, format, number + 1 == kWindow));
    }
    return frames;
}

/// False when the ONU refuses it.
bool start(OmciMe& images, Format format)
{
    // A section for the other image ends a download that is under way.
    OmciFrame stray = request(MessageType::DownloadSection, {0}, format, false, kInstance - 1);
    images.downloadSection(&stray);
    OmciFrame frame = request(MessageType::StartSoftwareDownload,
                              {kWindow - 1, (kImageBytes >> 24) & 0xFF, (kImageBytes >> 16) & 0xFF,
                               (kImageBytes >> 8) & 0xFF, kImageBytes & 0xFF, 1, 0, kInstance},
                              format, true);
    return images.startSoftwareDownload(&frame) == 0;
}

/// Whole windows that an image holds, without its last byte: after that one the download would be complete.
std::size_t sectionsOfImage(Format format)
{
    return (kImageBytes - 1) / sectionBytes(format) / kWindow * kWindow;
}

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
