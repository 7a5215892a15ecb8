#ifndef OMCI_HOST_OMCI_ME_FACTORY_H
#define OMCI_HOST_OMCI_ME_FACTORY_H

#include <array>
#include <atomic>
#include <cstddef>
#include <mutex>

class OmciMe;

/// Registry of the adapters by G.988 class number. Lives as long as the process. Any thread may call.
class OmciMeFactory
{
public:
    /// The one object of the process, made at the first call and kept.
    static OmciMeFactory* getInstance();

    /// Registers `me` for the class, in place of an earlier one. The factory takes no ownership: the adapter calls this
    /// from its own constructor.
    int registerManagedEntity(unsigned short classId, OmciMe* me);
    /// Removes the entry; the adapter is not deleted.
    int unregisterManagedEntity(unsigned short classId);
    /// Null when the class is not registered.
    OmciMe* getManagedEntity(unsigned short classId) const;
    /// The adapter of the lowest class number; null when none is registered.
    OmciMe* getFirstManagedEntity() const;
    /// The adapter of the next class number above `classId`, which need not be registered; null at the end.
    OmciMe* getNextManagedEntity(unsigned short classId) const;

private:
    OmciMeFactory() = default;

    /// The adapters of 256 neighbouring class numbers.
    using Page = std::array<std::atomic<OmciMe*>, 256>;

    /// The first adapter at or above the class number, which may be one too many.
    OmciMe* from(std::size_t classId) const;

    /// Readers take no lock: every message asks for its adapter. Pages are made at need and never go.
    std::array<std::atomic<Page*>, 256> m_Pages{};
    std::mutex m_Writers;
};

#endif
