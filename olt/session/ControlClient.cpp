#include "session/ControlClient.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "model/Errors.h"

namespace olt {

namespace {

class Socket
{
public:
    explicit Socket(const std::string& path) : m_Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        if (path.size() >= sizeof address.sun_path)
            throw UsageError(path + ": is too long for a socket's path");
        path.copy(address.sun_path, path.size());
        if (m_Descriptor < 0 || connect(m_Descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            throw Unreachable(path + ": " + std::strerror(errno) + "; onu-sim --control " + path + " opens it");
    }
    ~Socket() { close(m_Descriptor); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    void write(const std::string& text) const
    {
        for (std::size_t sent = 0; sent < text.size();) {
            const auto count = send(m_Descriptor, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
            if (count <= 0)
                throw Unreachable(std::string("control socket: ") + std::strerror(errno));
            sent += static_cast<std::size_t>(count);
        }
    }

    [[nodiscard]] std::string readLine(std::chrono::milliseconds timeout) const
    {
        std::string line;
        std::array<char, 65536> buffer{};
        while (line.find('\n') == std::string::npos) {
            pollfd waits{m_Descriptor, POLLIN, 0};
            const int ready = poll(&waits, 1, static_cast<int>(timeout.count()));
            const auto got = ready > 0 ? recv(m_Descriptor, buffer.data(), buffer.size(), 0) : 0;
            if (got <= 0)
                throw Unreachable("control socket: no answer within " + std::to_string(timeout.count()) + " ms");
            line.append(buffer.data(), static_cast<std::size_t>(got));
        }
        return line.substr(0, line.find('\n'));
    }

private:
    int m_Descriptor;
};

}  // namespace

nlohmann::ordered_json askControl(const std::string& path, const nlohmann::ordered_json& request,
                                  std::chrono::milliseconds timeout)
{
    const Socket connection(path);
    connection.write(request.dump() + "\n");
    const auto answer = nlohmann::ordered_json::parse(connection.readLine(timeout), nullptr, false);
    if (!answer.is_object())
        throw BadAnswer("control socket: the answer is no JSON object");
    if (answer.contains("error"))
        throw BadAnswer("control socket: " + answer["error"].dump());
    if (!answer.contains("result"))
        throw BadAnswer("control socket: the answer has no result");
    return answer["result"];
}

}  // namespace olt
