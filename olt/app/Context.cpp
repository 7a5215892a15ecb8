#include "app/Context.h"

#include "model/Errors.h"
#include "session/UdpChannel.h"

namespace olt {

Session& Context::session()
{
    if (m_Session)
        return *m_Session;
    if (m_Options.connect.empty())
        throw UsageError("which ONU? --connect ADDR:PORT is needed, as in --connect 127.0.0.1:5000");
    std::string problem;
    auto mic = omci::Mic::parse(m_Options.mic, problem);
    if (!mic)
        throw UsageError("--mic " + m_Options.mic + ": " + problem);
    SessionOptions options;
    options.format = m_Options.extended ? omci::Format::Extended : omci::Format::Baseline;
    options.timeout = std::chrono::milliseconds(m_Options.timeout);
    options.retries = m_Options.retries;
    m_Session.emplace(std::make_unique<UdpChannel>(Peer::parse(m_Options.connect)), std::move(*mic), options);
    if (!m_Options.capture.empty())
        startCapture();
    return *m_Session;
}

void Context::startCapture()
{
    try {
        m_Capture.open(m_Options.capture);
    } catch (const std::runtime_error& error) {
        throw UsageError(std::string("--pcap: ") + error.what());
    }
    m_Session->addTap([this](omci::Direction direction, const std::uint8_t* data, std::size_t size) {
        try {
            m_Capture.add(direction, data, size);
        } catch (const std::runtime_error& error) {
            throw UsageError("--pcap " + m_Options.capture + ": " + error.what());
        }
    });
}

}  // namespace olt
