#ifndef NRVK_BENCH_DOWNLOAD_H
#define NRVK_BENCH_DOWNLOAD_H

#include <vector>

#include "OmciFrame.h"
#include "OmciMe.h"
#include "host/FrameCodec.h"
#include "tests/support/Frames.h"

namespace bench {

constexpr unsigned short kSoftwareImage = 7;
constexpr unsigned short kInstance = 1;
constexpr unsigned int kImageBytes = 16U << 20;
/// Sections in a window; the last asks for an acknowledgement.
constexpr unsigned int kWindow = 32;

inline OmciFrame imageRequest(omci::MessageType type, const std::vector<unsigned char>& contents, omci::Format format,
                              bool acknowledge, unsigned short instance = kInstance)
{
    return requestFrame(type, kSoftwareImage, instance, contents, format, acknowledge);
}

inline std::size_t sectionBytes(omci::Format format)
{
    return format == omci::Format::Baseline ? 31 : 1965;
}

/// The sections of one window, as the host hands them over.
inline std::vector<OmciFrame> window(omci::Format format)
{
    std::vector<OmciFrame> frames;
    for (unsigned int number = 0; number < kWindow; ++number) {
        std::vector<unsigned char> contents(1 + sectionBytes(format), static_cast<unsigned char>(number + 1));
        contents[0] = static_cast<unsigned char>(number);
        frames.push_back(imageRequest(omci::MessageType::DownloadSection, contents, format, number + 1 == kWindow));
    }
    return frames;
}

/// False when the ONU refuses it.
inline bool start(OmciMe& images, omci::Format format)
{
    // A section for the other image ends a download that is under way.
    OmciFrame stray = imageRequest(omci::MessageType::DownloadSection, {0}, format, false, kInstance - 1);
    images.downloadSection(&stray);
    OmciFrame frame = imageRequest(omci::MessageType::StartSoftwareDownload,
                                   {kWindow - 1, (kImageBytes >> 24) & 0xFF, (kImageBytes >> 16) & 0xFF,
                                    (kImageBytes >> 8) & 0xFF, kImageBytes & 0xFF, 1, 0, kInstance},
                                   format, true);
    return images.startSoftwareDownload(&frame) == 0;
}

/// Whole windows that an image holds, without its last byte: after that one the download would be complete.
inline std::size_t sectionsOfImage(omci::Format format)
{
    return (kImageBytes - 1) / sectionBytes(format) / kWindow * kWindow;
}

}  // namespace bench

#endif
