#ifndef OMCI_HOST_LOGGER_H
#define OMCI_HOST_LOGGER_H

#include <atomic>
#include <cstdarg>
#include <string>

/// Receives every log line of the library. Levels are syslog numbers: 2 critical, 3 error, 4 warning, 5 notice,
/// 6 information, 7 debug. May be called from any thread.
class Logger
{
public:
    /// The library always passes 150. There is one object per id, made at the first call and kept.
    static Logger* getInstance(int id);

    /// `format` is printf-style. A line above the level in force costs a comparison and nothing else.
    void writeToLog(signed char reserved, const std::string& function, const std::string& file, unsigned int line,
                    unsigned char level, const char* format, ...) __attribute__((format(printf, 7, 8)));

    /// Where the level stands above which `writeToLog` drops lines unseen, for callers that spare themselves the call.
    /// Kept for the life of the process. The library asks for it weakly: a host whose logger has none gets every line.
    [[gnu::weak]] static const std::atomic<unsigned char>& getLevelInForce(int id);

    /// Lines with a higher number are dropped. 6 at first.
    void setLevel(unsigned char level);
    /// The level in force.
    unsigned char getLevel() const;

    /// One finished line, before it reaches the sink.
    struct Line
    {
        unsigned char level;          ///< syslog number
        const std::string& function;  ///< of the caller, without its class
        const std::string& file;      ///< of the caller
        unsigned int line;            ///< of the caller's file
        const char* text;             ///< formatted, without a line end
    };
    /// Called for every line of every level, whatever the level in force, on the calling thread; null takes it off.
    using Observer = void (*)(const Line& line, void* context);
    /// Takes the observer in, with what it gets as `context`; neither is owned. Any thread.
    void setObserver(Observer observer, void* context);

private:
    Logger() = default;

    /// Out of line on purpose, both: what is called for every dropped line stays short.
    [[gnu::noinline]] static Logger* makeInstance(int id);
    [[gnu::noinline]] void writeLine(const std::string& function, const std::string& file, unsigned int line,
                                     unsigned char level, const char* format, va_list arguments);

    std::atomic<unsigned char> m_Level{6};
    /// The level up to which a line must be formatted at all: that of the sink, or 255 with an observer.
    std::atomic<unsigned char> m_FormatLevel{6};
    std::atomic<Observer> m_Observer{nullptr};
    std::atomic<void*> m_ObserverContext{nullptr};
};

#endif
