#ifndef NRVK_BENCH_MANY_ENTITIES_H
#define NRVK_BENCH_MANY_ENTITIES_H

#include "host/QuietHardware.h"

namespace bench {

/// A MIB that an OLT has filled: bridge ports, VLAN filters, GEM port CTPs and interworking termination points, as many
/// of each. They go with the object, which is the hardware meanwhile: one that takes everything and does nothing.
class ManyEntities : public omci::QuietHardware
{
public:
    explicit ManyEntities(unsigned int count);
    ~ManyEntities() override;
    ManyEntities(const ManyEntities&) = delete;
    ManyEntities& operator=(const ManyEntities&) = delete;

    /// Those that are not there, as after a MIB reset.
    void create() const;

private:
    unsigned int m_Count;
};

}  // namespace bench

#endif
