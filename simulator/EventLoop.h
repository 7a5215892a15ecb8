#ifndef SIMULATOR_EVENT_LOOP_H
#define SIMULATOR_EVENT_LOOP_H

#include <functional>
#include <map>
#include <mutex>
#include <vector>

/// Owns a file descriptor.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) : m_Descriptor(descriptor) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;

    int get() const { return m_Descriptor; }
    bool isOpen() const { return m_Descriptor >= 0; }

private:
    int m_Descriptor;
};

/// The one thread that touches the library: waits for descriptors and runs what belongs to them.
///
/// Operations are for that thread, except post and stop.
class EventLoop
{
public:
    using Action = std::function<void()>;

    /// std::system_error when the system has no more descriptors.
    EventLoop();

    /// Runs `onReadable` each time there is something to read. An action may unwatch any descriptor, its own too.
    void watch(int descriptor, Action onReadable);
    /// Runs `onWritable` while the descriptor takes bytes; an empty action ends that. The descriptor must be watched.
    void watchWritable(int descriptor, Action onWritable);
    void unwatch(int descriptor);

    /// From any thread: runs the action on the loop's thread.
    void post(Action action);
    /// Runs after each batch of events, before the loop sleeps again.
    void afterEachTurn(Action action);

    /// Until stop.
    void run();
    /// From any thread.
    void stop();

private:
    struct Watch
    {
        Action onReadable;
        Action onWritable;
    };

    void runPosted();
    void dispatch(int descriptor, unsigned int events);
    void modify(int operation, int descriptor, unsigned int events);

    Descriptor m_Epoll;
    Descriptor m_Wake;
    std::map<int, Watch> m_Watches;
    Action m_AfterEachTurn;
    std::mutex m_Mutex;
    std::vector<Action> m_Posted;
    bool m_IsStopped = false;
};

#endif
