#include "decode/FrameSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/FrameCodec.h"
#include "model/Errors.h"
#include "model/Hex.h"

namespace olt {

namespace {

int peek(std::FILE* file)
{
    const int octet = std::fgetc(file);
    if (octet != EOF)
        std::ungetc(octet, file);
    return octet;
}

/// pcapng begins with 0A 0D; a text with an empty line never has the carriage return behind its line feed.
bool looksLikeNextGeneration(std::FILE* file)
{
    const int first = std::fgetc(file);
    const int second = peek(file);
    // Octets that were just read go back into the buffer that they are from, more than one, too.
    if (std::ungetc(first, file) == EOF)
        throw UsageError("the beginning can't be read twice; give the frames in a file");
    return second == '\r';
}

/// Captures begin with octets that no text of hexadecimal digits begins with.
bool looksLikeCapture(std::FILE* file)
{
    constexpr int nanosecondMagic = 0x4D;
    const int first = peek(file);
    if (first == '\n')
        return looksLikeNextGeneration(file);
    return first >= 0x80 || first == nanosecondMagic;
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
    if (!looksLikeCapture(file)) {
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
