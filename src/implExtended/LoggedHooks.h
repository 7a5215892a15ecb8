#ifndef NRVK_IMPL_EXTENDED_LOGGED_HOOKS_H
#define NRVK_IMPL_EXTENDED_LOGGED_HOOKS_H

namespace nrvk {

/// What a hook with nothing to do logs, once for all classes.
struct HookLog
{
    static void applyConfigurationToHardwareForSet(unsigned short instance);
    static void eraseConfigurationFromHardware(unsigned short instance);
};

/// An entity whose hooks call no hardware but log the instance: NoHardware with a trace. A class derived from it
/// overrides the hook, and the setters and getters, that have more to do.
template <typename Impl, int ApplyResult>
class LoggedHooks : public Impl
{
public:
    using Impl::Impl;

    int applyConfigurationToHardwareForSet() override
    {
        HookLog::applyConfigurationToHardwareForSet(this->m_ManagedEntityInstance);
        return ApplyResult;
    }

    int eraseConfigurationFromHardware() override
    {
        HookLog::eraseConfigurationFromHardware(this->m_ManagedEntityInstance);
        return 0;
    }
};

}  // namespace nrvk

#endif
