#ifndef NRVK_IMPL_EXTENDED_VOICE_ENTITY_H
#define NRVK_IMPL_EXTENDED_VOICE_ENTITY_H

#include "impl/Log.h"
#include "implExtended/LoggedHooks.h"

namespace nrvk {

/// An entity of the voice service: a Set with nothing to apply succeeds, unless the class says otherwise.
template <typename Impl, int ApplyResult = 0>
class VoiceEntity : public LoggedHooks<Impl, ApplyResult>
{
public:
    using LoggedHooks<Impl, ApplyResult>::LoggedHooks;
};

}  // namespace nrvk

#endif
