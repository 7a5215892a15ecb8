#include "session/SoftwareDownload.h"

#include <algorithm>

#include "host/ImageCrc.h"
#include "model/Value.h"
#include "session/Exchange.h"

namespace olt {

namespace {

using omci::MessageType;
using omci::Result;

/// After so many windows in a row that have not arrived at once a smaller one is tried, and after so many the download
/// is given up.
constexpr unsigned kTroublesBeforeSmaller = 2;
constexpr unsigned kMostRefusals = 60;
/// So many good windows in a row, and the next ones are a little larger.
constexpr unsigned kGoodBeforeLarger = 4;

/// How many sections go into the next window.
class WindowSize
{
public:
    explicit WindowSize(unsigned largest) : m_Largest(largest), m_Size(largest) {}

    [[nodiscard]] unsigned sections() const { return m_Size; }

    void arrivedAtOnce()
    {
        m_Troubles = 0;
        if (++m_Good % kGoodBeforeLarger == 0)
            m_Size = std::min(m_Largest, m_Size + std::max(1U, m_Size / 4));
    }
    /// Refused, or answered only when it was asked for again.
    void hadTrouble()
    {
        m_Good = 0;
        if (++m_Troubles % kTroublesBeforeSmaller == 0)
            m_Size = std::max(1U, m_Size / 2);
    }

private:
    unsigned m_Largest;
    unsigned m_Size;
    unsigned m_Troubles = 0;
    unsigned m_Good = 0;
};

/// Whether the ONU may take the same window when it comes again.
bool mayBeRepeated(Result result)
{
    return result == Result::ProcessingError || result == Result::ParameterError || result == Result::DeviceBusy;
}

Bytes instanceList(const EntityId& target)
{
    return bigEndianBytes(target.instance, 2);
}

}  // namespace

SoftwareDownload::SoftwareDownload(Session& session, const EntityId& target, const Bytes& image,
                                   const DownloadOptions& options)
    : m_Session(session), m_Target(target), m_Image(image), m_Options(options), m_Room(room(session.format()))
{
    m_State.crc = omci::imageCrc(image.data(), image.size());
}

std::size_t SoftwareDownload::room(omci::Format format)
{
    return format == omci::Format::Baseline ? omci::kBaselineSectionRoom : omci::kExtendedSectionRoom;
}

DownloadState SoftwareDownload::run(const Observer& observer)
{
    if (start() && sendImage(observer))
        end(observer);
    return m_State;
}

bool SoftwareDownload::start()
{
    const Bytes instances = instanceList(m_Target);
    const omci::StartDownloadRequest layout{static_cast<std::uint8_t>(m_Options.window - 1),
                                            static_cast<std::uint32_t>(m_Image.size()),
                                            {instances.data(), instances.size()}};
    const Frame answer = m_Session.request(
        requestTo(m_Target, MessageType::StartSoftwareDownload,
                  written([&](auto* contents) { return layout.write(m_Session.format(), contents); })));
    const auto response =
        orBadAnswer(omci::parseStartDownloadResponse(answer.view()), m_Target, MessageType::StartSoftwareDownload);
    m_State.result = response.result;
    m_State.window = std::min(m_Options.window, response.windowSizeMinusOne + 1U);
    return m_State.succeeded();
}

bool SoftwareDownload::sendImage(const Observer& observer)
{
    m_State.step = DownloadState::Step::Sections;
    WindowSize size(m_State.window);
    unsigned refusals = 0;
    while (m_State.octets < m_Image.size()) {
        const std::size_t left = (m_Image.size() - m_State.octets + m_Room - 1) / m_Room;
        const auto sections = static_cast<unsigned>(std::min<std::size_t>(size.sections(), left));
        const auto before = m_Session.statistics().retransmissions;
        m_State.result = sendWindow(m_State.octets, sections);
        if (m_State.succeeded() && m_Session.statistics().retransmissions == before)
            size.arrivedAtOnce();
        else
            size.hadTrouble();
        if (m_State.succeeded()) {
            refusals = 0;
            m_State.octets = std::min(m_Image.size(), m_State.octets + sections * m_Room);
            m_State.sections += sections;
            ++m_State.windows;
        } else if (!mayBeRepeated(m_State.result) || ++refusals >= kMostRefusals) {
            return false;
        } else {
            ++m_State.repeated;
        }
        observer(m_State);
    }
    return true;
}

Result SoftwareDownload::sendWindow(std::size_t octet, unsigned sections)
{
    for (unsigned number = 0; number + 1 < sections; ++number)
        m_Session.sendUnacknowledged(
            requestTo(m_Target, MessageType::DownloadSection, section(octet + number * m_Room, number)));
    const unsigned last = sections - 1;
    const Frame answer =
        m_Session.request(requestTo(m_Target, MessageType::DownloadSection, section(octet + last * m_Room, last)));
    return orBadAnswer(omci::parseResultResponse(answer.view()), m_Target, MessageType::DownloadSection).result;
}

Bytes SoftwareDownload::section(std::size_t octet, unsigned number) const
{
    const std::size_t size = std::min(m_Room, m_Image.size() - octet);
    Bytes contents(1 + size);
    contents[0] = static_cast<std::uint8_t>(number);
    std::copy_n(m_Image.begin() + static_cast<std::ptrdiff_t>(octet), size, contents.begin() + 1);
    if (m_Options.damaged && octet / m_Room == *m_Options.damaged)
        contents[1] ^= 0xFF;
    return contents;
}

bool SoftwareDownload::end(const Observer& observer)
{
    m_State.step = DownloadState::Step::End;
    const Bytes instances = instanceList(m_Target);
    const omci::EndDownloadRequest layout{
        m_State.crc, static_cast<std::uint32_t>(m_Image.size()), {instances.data(), instances.size()}};
    const Request request =
        requestTo(m_Target, MessageType::EndSoftwareDownload,
                  written([&](auto* contents) { return layout.write(m_Session.format(), contents); }));
    const auto deadline = Clock::now() + m_Options.pollLimit;
    for (;;) {
        const Frame answer = m_Session.request(request);
        m_State.result =
            orBadAnswer(omci::parseEndDownloadResponse(answer.view()), m_Target, MessageType::EndSoftwareDownload)
                .result;
        if (m_State.result != Result::DeviceBusy)
            return m_State.succeeded();
        ++m_State.polls;
        observer(m_State);
        if (Clock::now() >= deadline)
            throw Unreachable("the ONU is still busy with the image after " +
                              std::to_string(m_Options.pollLimit.count() / 1000) + " s");
        m_Session.pause(Clock::now() + m_Options.pollPause);
    }
}

}  // namespace olt
