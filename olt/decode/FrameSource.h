#ifndef OLT_DECODE_FRAME_SOURCE_H
#define OLT_DECODE_FRAME_SOURCE_H

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "capture/CaptureReader.h"

namespace olt {

/// A frame as it was recorded.
struct RecordedFrame
{
    std::optional<std::chrono::microseconds> time;  ///< Since 1970; captures have one.
    omci::Direction direction = omci::Direction::Downstream;
    std::vector<std::uint8_t> octets;
};

/// Frames of a capture, or of a text with one frame in hexadecimal digits a line; # begins a comment.
class FrameSource
{
public:
    /// "-" is standard input. Throws UsageError when there is no such file or it is neither.
    explicit FrameSource(const std::string& path);
    ~FrameSource();
    FrameSource(const FrameSource&) = delete;
    FrameSource& operator=(const FrameSource&) = delete;

    /// Nothing at the end. Throws UsageError, which names file and line.
    [[nodiscard]] std::optional<RecordedFrame> next();

    /// What stands in the way of trusting the whole: packets that aren't OMCI, an early end. Mostly empty.
    [[nodiscard]] std::string remark() const;

private:
    [[nodiscard]] std::optional<RecordedFrame> nextLine();

    std::string m_Name;
    std::FILE* m_Text = nullptr;
    std::size_t m_Line = 0;
    std::unique_ptr<omci::CaptureReader> m_Capture;
};

}  // namespace olt

#endif
