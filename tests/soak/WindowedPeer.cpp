#include "WindowedPeer.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <utility>

namespace soak {

namespace {

constexpr std::uint16_t kLastTransaction = 0x7FFF;
constexpr int kTimeoutMilliseconds = 2000;
constexpr unsigned kMostAttempts = 15;
constexpr int kReceiveBuffer = 4 << 20;

sockaddr_in addressOf(const std::string& text)
{
    const auto colon = text.rfind(':');
    sockaddr_in address{};
    address.sin_family = AF_INET;
    if (colon == std::string::npos || inet_pton(AF_INET, text.substr(0, colon).c_str(), &address.sin_addr) != 1) {
        throw Failure("\"" + text + "\" is no address of the form 127.0.0.1:5000");
    }
    address.sin_port = htons(static_cast<std::uint16_t>(std::atoi(text.c_str() + colon + 1)));
    return address;
}

std::string nameOf(const omci::FrameHeader& header)
{
    return std::string(omci::messageTypeName(header.type)) + " of class " + std::to_string(header.entityClass) +
           " instance " + std::to_string(header.entityInstance);
}

}  // namespace

WindowedPeer::WindowedPeer(const std::string& address, unsigned window)
    : m_Socket(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)), m_Window(window), m_Open(kLastTransaction + 1U),
      m_Buffer(65536)
{
    const sockaddr_in onu = addressOf(address);
    setsockopt(m_Socket, SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof kReceiveBuffer);
    if (m_Socket < 0 || connect(m_Socket, reinterpret_cast<const sockaddr*>(&onu), sizeof onu) != 0) {
        throw Failure("no road to " + address + ": " + std::strerror(errno));
    }
}

WindowedPeer::~WindowedPeer()
{
    close(m_Socket);
}

void WindowedPeer::transmit(const std::vector<std::uint8_t>& octets)
{
    if (::send(m_Socket, octets.data(), octets.size(), 0) < 0) {
        throw Failure(std::string("the ONU is gone: ") + std::strerror(errno));
    }
}

void WindowedPeer::send(const Message& message, Check check)
{
    receiveWhile([this] { return m_OpenCount >= m_Window; });
    m_Transaction =
        m_Transaction == kLastTransaction ? std::uint16_t{1} : static_cast<std::uint16_t>(m_Transaction + 1);
    Open& open = m_Open[m_Transaction];
    omci::FrameHeader header;
    header.transactionId = m_Transaction;
    header.type = message.type;
    header.acknowledgeRequest = true;
    header.format = message.format;
    header.entityClass = message.entityClass;
    header.entityInstance = message.entityInstance;
    open.frame.resize(omci::encodedLength(message.format, message.contents.size()));
    if (omci::encode(header, message.contents.data(), message.contents.size(), open.frame.data()) == 0) {
        throw Failure(nameOf(header) + ": contents too long");
    }
    open.isOpen = true;
    open.attempts = 1;
    open.check = std::move(check);
    ++m_OpenCount;
    transmit(open.frame);
}

void WindowedPeer::sendRubbish(const std::vector<std::uint8_t>& octets)
{
    transmit(octets);
}

void WindowedPeer::finish()
{
    receiveWhile([this] { return m_OpenCount != 0; });
}

void WindowedPeer::receiveWhile(std::function<bool()> isToWait)
{
    bool isFirst = true;
    for (;;) {
        // What has come is taken first, so that the window moves on in large steps.
        const ssize_t got = recv(m_Socket, m_Buffer.data(), m_Buffer.size(), MSG_DONTWAIT);
        if (got >= 0) {
            take(m_Buffer.data(), static_cast<std::size_t>(got));
            continue;
        }
        if (errno != EAGAIN && errno != EINTR) {
            throw Failure(std::string("the ONU is gone: ") + std::strerror(errno));
        }
        if (!isToWait()) {
            return;
        }
        pollfd waiting{m_Socket, POLLIN, 0};
        if (poll(&waiting, 1, kTimeoutMilliseconds) == 0 && !std::exchange(isFirst, false)) {
            sendOpenAgain();
        }
    }
}

void WindowedPeer::take(const std::uint8_t* octets, std::size_t length)
{
    const omci::Decoded decoded = omci::decode(octets, length);
    if (!decoded) {
        throw Failure(std::string("an answer that is no frame: ") + omci::decodeErrorName(decoded.error));
    }
    const omci::FrameHeader& header = decoded.frame.header;
    if (!header.acknowledgement) {
        ++m_Notifications;
        return;
    }
    Open& open = m_Open[header.transactionId & kLastTransaction];
    if (!open.isOpen) {
        return;  // the answer to a request that was sent again
    }
    const omci::FrameHeader asked = omci::decode(open.frame.data(), open.frame.size()).frame.header;
    const bool fits = header.type == asked.type && header.format == asked.format &&
                      header.entityClass == asked.entityClass && header.entityInstance == asked.entityInstance;
    const std::string problem = fits ? open.check(decoded.frame) : "answered by " + nameOf(header);
    if (!problem.empty()) {
        throw Failure("after " + std::to_string(m_Answers) + " answers: " + nameOf(asked) + ": " + problem);
    }
    open.isOpen = false;
    --m_OpenCount;
    ++m_Answers;
}

void WindowedPeer::sendOpenAgain()
{
    for (Open& open : m_Open) {
        if (!open.isOpen) {
            continue;
        }
        if (open.attempts++ == kMostAttempts) {
            throw Failure("no answer to " + nameOf(omci::decode(open.frame.data(), open.frame.size()).frame.header) +
                          " after " + std::to_string(kMostAttempts) + " attempts");
        }
        ++m_Retransmissions;
        transmit(open.frame);
    }
}

}  // namespace soak
