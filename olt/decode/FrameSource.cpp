#include "decode/FrameSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/FrameCodec.h"
#include "model/Errors.h"
#include "model/Hex.h"

namespace olt {

namespace {

/// Captures begin with an octet that no text of hexadecimal digits begins with.
bool looksLikeCapture(int first)
{
    constexpr int nanosecondMagic = 0x4D;
    constexpr int nextGeneration = 0x0A;
    return first >= 0x80 || first == nanosecondMagic || first == nextGeneration;
}

std::string readLine(std::FILE* file, bool& any)
{
    std::string line;
    any = false;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        any = true;
        if (c == '\n')
            break;
        line += static_cast<char>(c);
    }
    return line;
}

}  // namespace

FrameSource::FrameSource(const std::string& path) : m_Name(path == "-" ? "standard input" : path)
{
    std::FILE* const file = path == "-" ? stdin : std::fopen(path.c_str(), "rbe");
    if (!file)
        throw UsageError(path + ": can't be read: " + std::strerror(errno));
    const int first = std::fgetc(file);
    if (first != EOF)
        std::ungetc(first, file);
    // An empty line may begin a text, too, so that standard input is no pcapng.
    if (first == EOF || !looksLikeCapture(first) || (path == "-" && first == '\n')) {
        m_Text = file;
        return;
    }
    try {
        m_Capture = std::make_unique<omci::CaptureReader>(file, m_Name);
    } catch (const std::runtime_error& error) {
        throw UsageError(error.what());
    }
}

FrameSource::~FrameSource()
{
    if (m_Text && m_Text != stdin)
        std::fclose(m_Text);
}

std::optional<RecordedFrame> FrameSource::next()
{
    if (!m_Capture)
        return nextLine();
    try {
        auto captured = m_Capture->next();
        if (!captured)
            return std::nullopt;
        return RecordedFrame{captured->time, captured->direction, std::move(captured->octets)};
    } catch (const std::runtime_error& error) {
        throw UsageError(error.what());
    }
}

std::optional<RecordedFrame> FrameSource::nextLine()
{
    for (;;) {
        bool any = false;
        std::string line = readLine(m_Text, any);
        if (!any)
            return std::nullopt;
        ++m_Line;
        line.resize(std::min(line.find('#'), line.size()));
        if (line.find_first_not_of(" \t\r") == std::string::npos)
            continue;
        const auto octets = fromHex(line);
        if (!octets)
            throw UsageError(m_Name + ":" + std::to_string(m_Line) + ": isn't a whole number of octets in hexadecimal");
        RecordedFrame frame;
        frame.octets = *octets;
        const auto decoded = omci::decode(octets->data(), octets->size());
        const auto& header = decoded.frame.header;
        if (decoded.hasHeader() && (header.acknowledgement || omci::isAutonomous(header.type)))
            frame.direction = omci::Direction::Upstream;
        return frame;
    }
}

std::string FrameSource::remark() const
{
    std::string text;
    if (m_Capture && m_Capture->skipped() > 0)
        text = std::to_string(m_Capture->skipped()) + " packets carry no OMCI";
    if (m_Capture && m_Capture->endsEarly())
        text += std::string(text.empty() ? "" : "; ") + "the capture ends inside a packet";
    return text.empty() ? "" : m_Name + ": " + text;
}

}  // namespace olt
