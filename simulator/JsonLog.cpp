#include "JsonLog.h"

#include <cerrno>
#include <cstring>
#include <system_error>

#include "capture/WholeRecords.h"

namespace {
/// Octets that may wait for a flush: no more than these are lost when it fails. The stream holds about as many.
constexpr off_t kHeldBack = 2048;
}  // namespace

void JsonLog::open(const std::string& path)
{
    m_File.reset(std::fopen(path.c_str(), "we"));
    if (!m_File) {
        throw std::system_error(errno, std::generic_category(), "cannot write " + path);
    }
    m_Path = path;
    m_Owner = std::this_thread::get_id();
}

void JsonLog::write(const Json& line)
{
    if (!isOpen()) {
        return;
    }
    const std::string text = toLine(line) + '\n';
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (m_HasEnded) {
        return;
    }
    std::fwrite(text.data(), 1, text.size(), m_File.get());
    if (std::this_thread::get_id() != m_Owner || ftello(m_File.get()) - m_Written > kHeldBack) {
        flushLocked();
    }
}

void JsonLog::flush()
{
    if (isOpen()) {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        flushLocked();
    }
}

void JsonLog::flushLocked()
{
    if (m_HasEnded) {
        return;
    }
    if (omci::flushWhole(m_File.get(), m_Written)) {
        m_Written = ftello(m_File.get());
        return;
    }
    m_HasEnded = true;
    std::fprintf(stderr, "onu-sim: cannot write %s: %s; it ends here, the ONU goes on\n", m_Path.c_str(),
                 std::strerror(errno));
}
