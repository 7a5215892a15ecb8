#include "JsonLog.h"

#include <cerrno>
#include <system_error>

void JsonLog::open(const std::string& path)
{
    m_File.reset(std::fopen(path.c_str(), "we"));
    if (!m_File) {
        throw std::system_error(errno, std::generic_category(), "cannot write " + path);
    }
    m_Owner = std::this_thread::get_id();
}

void JsonLog::write(const Json& line)
{
    if (!m_File) {
        return;
    }
    const std::string text = toLine(line) + '\n';
    const std::lock_guard<std::mutex> lock(m_Mutex);
    std::fwrite(text.data(), 1, text.size(), m_File.get());
    if (std::this_thread::get_id() != m_Owner) {
        std::fflush(m_File.get());
    }
}

void JsonLog::flush()
{
    if (m_File) {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        std::fflush(m_File.get());
    }
}
