#ifndef NRVK_IMPL_EXTENDED_OMCIMEDOT1AGDEFAULTMDLEVELIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEDOT1AGDEFAULTMDLEVELIMPLEXTENDED_H

#include "impl/OmciMeDot1agDefaultMDLevelImpl.h"
#include "implExtended/NoHardware.h"

/// Dot1ag default MD level (G.988 9.3.21, class 301): its values stay in the store.
class OmciMeDot1agDefaultMDLevelImplExtended : public nrvk::DataPathEntity<OmciMeDot1agDefaultMDLevelImpl>
{
public:
    using NoHardware::NoHardware;
};

#endif
