#ifndef NRVK_IMPL_REGISTRAR_LOCK_H
#define NRVK_IMPL_REGISTRAR_LOCK_H

#include <atomic>
#include <thread>

#include "OmciManagedEntityRegistrar.h"

namespace nrvk {

/// Holds the registrar's mutex. A thread that does so already goes on: a hardware layer may come back from inside a
/// call with what takes the mutex again.
class RegistrarLock
{
public:
    explicit RegistrarLock(OmciManagedEntityRegistrar& registrar)
        : m_Registrar(registrar), m_IsNested(m_Holder == std::this_thread::get_id())
    {
        if (!m_IsNested) {
            m_Registrar.getMutex().lock();
            m_Holder = std::this_thread::get_id();
        }
    }
    ~RegistrarLock()
    {
        if (!m_IsNested) {
            m_Holder = std::thread::id();
            m_Registrar.getMutex().unlock();
        }
    }
    RegistrarLock(const RegistrarLock&) = delete;
    RegistrarLock& operator=(const RegistrarLock&) = delete;

private:
    inline static std::atomic<std::thread::id> m_Holder{};

    OmciManagedEntityRegistrar& m_Registrar;
    const bool m_IsNested;
};

}  // namespace nrvk

#endif
