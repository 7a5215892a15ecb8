#ifndef TESTS_SOAK_WINDOWED_PEER_H
#define TESTS_SOAK_WINDOWED_PEER_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/FrameCodec.h"

namespace soak {

/// An answer that is wrong, or that never comes: what the run fails with.
struct Failure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct Message
{
    omci::MessageType type = omci::MessageType::Get;
    omci::Format format = omci::Format::Baseline;
    std::uint16_t entityClass = 0;
    std::uint16_t entityInstance = 0;
    std::vector<std::uint8_t> contents;
};

/// Says what is wrong with an answer; an empty text: nothing.
using Check = std::function<std::string(const omci::FrameView& answer)>;

/// An OLT that does not wait for one answer before it sends the next request: up to `window` of them are on their way.
/// What is not answered in time is sent again. An ONU that answers in the order of the requests lets the checks count
/// on that order.
class WindowedPeer
{
public:
    /// "ADDR:PORT", in numbers. Failure when that is no address.
    WindowedPeer(const std::string& address, unsigned window);
    ~WindowedPeer();
    WindowedPeer(const WindowedPeer&) = delete;
    WindowedPeer& operator=(const WindowedPeer&) = delete;

    /// Sends, after it has waited for room in the window.
    void send(const Message& message, Check check);
    /// Octets that nobody answers.
    void sendRubbish(const std::vector<std::uint8_t>& octets);
    /// Waits until everything is answered.
    void finish();

    std::uint64_t answers() const { return m_Answers; }
    std::uint64_t retransmissions() const { return m_Retransmissions; }
    /// Received, and never asked for.
    std::uint64_t notifications() const { return m_Notifications; }

private:
    using Clock = std::chrono::steady_clock;

    struct Open
    {
        bool isOpen = false;
        unsigned attempts = 0;
        std::vector<std::uint8_t> frame;
        Check check;
    };

    void transmit(const std::vector<std::uint8_t>& octets);
    void receiveWhile(std::function<bool()> isToWait);
    void take(const std::uint8_t* octets, std::size_t length);
    void sendOpenAgain();

    int m_Socket;
    unsigned m_Window;
    unsigned m_OpenCount = 0;
    std::uint16_t m_Transaction = 0;
    std::uint64_t m_Answers = 0;
    std::uint64_t m_Retransmissions = 0;
    std::uint64_t m_Notifications = 0;
    /// By transaction id.
    std::vector<Open> m_Open;
    std::vector<std::uint8_t> m_Buffer;
};

}  // namespace soak

#endif
