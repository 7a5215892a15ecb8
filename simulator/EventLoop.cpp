#include "EventLoop.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

Descriptor::~Descriptor()
{
    if (m_Descriptor >= 0) {
        close(m_Descriptor);
    }
}

Descriptor::Descriptor(Descriptor&& other) noexcept : m_Descriptor(std::exchange(other.m_Descriptor, -1))
{}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(m_Descriptor, other.m_Descriptor);
    return *this;
}

EventLoop::EventLoop() : m_Epoll(epoll_create1(EPOLL_CLOEXEC)), m_Wake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!m_Epoll.isOpen() || !m_Wake.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot start the event loop");
    }
    watch(m_Wake.get(), [this] {
        std::uint64_t count = 0;
        while (read(m_Wake.get(), &count, sizeof count) > 0) {
        }
        runPosted();
    });
}

void EventLoop::modify(int operation, int descriptor, unsigned int events)
{
    epoll_event event{};
    event.events = events;
    event.data.fd = descriptor;
    if (epoll_ctl(m_Epoll.get(), operation, descriptor, &event) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot watch a descriptor");
    }
}

void EventLoop::watch(int descriptor, Action onReadable)
{
    modify(EPOLL_CTL_ADD, descriptor, EPOLLIN);
    m_Watches[descriptor] = {std::move(onReadable), {}};
}

void EventLoop::watchWritable(int descriptor, Action onWritable)
{
    modify(EPOLL_CTL_MOD, descriptor, EPOLLIN | (onWritable ? EPOLLOUT : 0U));
    m_Watches.at(descriptor).onWritable = std::move(onWritable);
}

void EventLoop::unwatch(int descriptor)
{
    if (m_Watches.erase(descriptor) != 0) {
        modify(EPOLL_CTL_DEL, descriptor, 0);
    }
}

void EventLoop::post(Action action)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Posted.push_back(std::move(action));
    }
    const std::uint64_t one = 1;
    static_cast<void>(!write(m_Wake.get(), &one, sizeof one));
}

void EventLoop::afterEachTurn(Action action)
{
    m_AfterEachTurn = std::move(action);
}

void EventLoop::runPosted()
{
    std::vector<Action> posted;
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        posted.swap(m_Posted);
    }
    for (const Action& action : posted) {
        action();
    }
}

void EventLoop::dispatch(int descriptor, unsigned int events)
{
    // Copies: an action may take its own watch away. A descriptor that an earlier action unwatched is not found.
    if ((events & (EPOLLIN | EPOLLHUP | EPOLLERR)) != 0) {
        const auto found = m_Watches.find(descriptor);
        if (found != m_Watches.end()) {
            const Action action = found->second.onReadable;
            action();
        }
    }
    if ((events & EPOLLOUT) != 0) {
        const auto found = m_Watches.find(descriptor);
        if (found != m_Watches.end() && found->second.onWritable) {
            const Action action = found->second.onWritable;
            action();
        }
    }
}

void EventLoop::run()
{
    std::array<epoll_event, 16> events{};
    while (!m_IsStopped) {
        const int count = epoll_wait(m_Epoll.get(), events.data(), static_cast<int>(events.size()), -1);
        if (count < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot wait for events");
        }
        for (int i = 0; i < count; ++i) {
            const epoll_event& event = events[static_cast<std::size_t>(i)];
            dispatch(event.data.fd, event.events);
        }
        if (m_AfterEachTurn) {
            m_AfterEachTurn();
        }
    }
}

void EventLoop::stop()
{
    post([this] { m_IsStopped = true; });
}
