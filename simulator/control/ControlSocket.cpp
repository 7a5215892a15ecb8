#include "control/ControlSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace {
constexpr int kBacklog = 16;

sockaddr_un addressOf(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        throw std::runtime_error("the control socket's path is longer than " +
                                 std::to_string(sizeof address.sun_path - 1) + " characters: " + path);
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

Descriptor makeSocket()
{
    Descriptor descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!descriptor.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot make the control socket");
    }
    return descriptor;
}

/// Takes away what an earlier process has left behind; anything in use, and anything but a socket, stays.
void removeStale(const std::string& path, const sockaddr_un& address)
{
    struct stat information;
    if (lstat(path.c_str(), &information) != 0 || !S_ISSOCK(information.st_mode)) {
        return;
    }
    const Descriptor probe = makeSocket();
    if (connect(probe.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno == ECONNREFUSED) {
        unlink(path.c_str());
    }
}
}  // namespace

ControlSocket::ControlSocket(EventLoop& loop, const std::string& path, Handler handler)
    : m_Loop(loop), m_Path(path), m_Handler(std::move(handler))
{
    const sockaddr_un address = addressOf(path);
    removeStale(path, address);
    m_Listener = makeSocket();
    if (bind(m_Listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_Listener.get(), kBacklog) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot listen on " + path);
    }
    m_Loop.watch(m_Listener.get(), [this] { accept(); });
}

ControlSocket::~ControlSocket()
{
    for (const auto& client : m_Clients) {
        m_Loop.unwatch(client.first);
    }
    m_Loop.unwatch(m_Listener.get());
    unlink(m_Path.c_str());
}

void ControlSocket::accept()
{
    const int descriptor = accept4(m_Listener.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (descriptor >= 0) {
        m_Clients[descriptor].descriptor = Descriptor(descriptor);
        m_Loop.watch(descriptor, [this, descriptor] { read(descriptor); });
    }
}

void ControlSocket::read(int descriptor)
{
    Client& client = m_Clients.at(descriptor);
    std::array<char, 65536> buffer;
    const ssize_t got = recv(descriptor, buffer.data(), buffer.size(), 0);
    if (got > 0) {
        client.input.append(buffer.data(), static_cast<std::size_t>(got));
        takeLines(client);
    } else if (got == 0) {
        // The last line may lack its end, and its client may still read.
        if (!client.isEnding && !client.input.empty() && !client.skipsLine) {
            takeLine(client, std::exchange(client.input, {}));
        }
        client.isEnding = true;
    } else if (errno != EAGAIN && errno != EINTR) {
        close(descriptor);
        return;
    }
    write(descriptor);
}

void ControlSocket::takeLines(Client& client)
{
    std::size_t begin = 0;
    for (std::size_t end = client.input.find('\n'); end != std::string::npos; end = client.input.find('\n', begin)) {
        if (!std::exchange(client.skipsLine, false)) {
            takeLine(client, client.input.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    client.input.erase(0, begin);
    if (client.input.size() > kLongestLine) {
        if (!client.skipsLine) {
            takeLine(client, std::move(client.input));
        }
        client.input.clear();
        client.skipsLine = true;
    }
}

void ControlSocket::takeLine(Client& client, std::string line)
{
    if (line.size() > kLongestLine) {
        client.output += R"({"error":"the line is longer than )" + std::to_string(kLongestLine) + " octets\"}\n";
        return;
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    if (!line.empty()) {
        client.output += m_Handler(line) + '\n';
    }
}

void ControlSocket::write(int descriptor)
{
    Client& client = m_Clients.at(descriptor);
    while (!client.output.empty()) {
        const ssize_t sent = send(descriptor, client.output.data(), client.output.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            client.output.erase(0, static_cast<std::size_t>(sent));
        } else if (errno == EAGAIN) {
            m_Loop.watchWritable(descriptor, [this, descriptor] { write(descriptor); });
            return;
        } else if (errno != EINTR) {
            close(descriptor);
            return;
        }
    }
    if (client.isEnding) {
        close(descriptor);
        return;
    }
    m_Loop.watchWritable(descriptor, {});
}

void ControlSocket::close(int descriptor)
{
    m_Loop.unwatch(descriptor);
    m_Clients.erase(descriptor);
}
