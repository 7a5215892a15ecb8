#ifndef NRVK_IMPL_EXTENDED_SHADOW_H
#define NRVK_IMPL_EXTENDED_SHADOW_H

#include <atomic>

#include "impl/Hardware.h"

namespace nrvk {

/// The value of one attribute that was in force before the set in progress.
///
/// A setter keeps the present value here before it stores the new one. At the end of the Set the shadow follows the
/// store; where any shadow of the entity moved, the hardware layer is called. So a Set that repeats the stored values
/// costs no call. Status updates reach setters from the host's own threads, hence the atomic.
template <typename T>
class Shadow
{
public:
    /// Starts at the class default, which is what a fresh entity's store holds.
    explicit Shadow(T classDefault) : m_Value(classDefault) {}

    T get() const { return m_Value.load(std::memory_order_relaxed); }

    void keep(T present) { m_Value.store(present, std::memory_order_relaxed); }

    /// Takes over the stored value; true when it differs.
    bool follow(T stored)
    {
        const bool differs = get() != stored;
        keep(stored);
        return differs;
    }

private:
    std::atomic<T> m_Value;
};

/// The hardware layer for a Set whose shadows moved, or null: with "RPC call is not required " at level 7 when nothing
/// changed, with "Detected NULL pointer" at level 3 when the host has set no hardware layer.
OmciHardwareIfc* hardwareIfChanged(bool changed);

}  // namespace nrvk

#endif
