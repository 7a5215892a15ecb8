#ifndef NRVK_IMPL_EXTENDED_NO_HARDWARE_H
#define NRVK_IMPL_EXTENDED_NO_HARDWARE_H

namespace nrvk {

/// An entity whose behaviour leaves both hooks empty. `ApplyResult` is what a Set's apply step answers: -1 "nothing to
/// apply", or 0.
template <typename Impl, int ApplyResult = -1>
class NoHardware : public Impl
{
public:
    using Impl::Impl;

    int applyConfigurationToHardwareForSet() override { return ApplyResult; }
    int eraseConfigurationFromHardware() override { return 0; }
};

/// The same for an entity of the layer-2 data path, where a Set with nothing to apply succeeds.
template <typename Impl>
using DataPathEntity = NoHardware<Impl, 0>;

}  // namespace nrvk

#endif
