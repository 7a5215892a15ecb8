#ifndef OMCI_HOST_OMCI_ME_FACTORY_H
#define OMCI_HOST_OMCI_ME_FACTORY_H

#include <map>
#include <shared_mutex>

class OmciMe;

/// Registry of the adapters by G.988 class number. Lives as long as the process. Any thread may call.
class OmciMeFactory
{
public:
    static OmciMeFactory* getInstance();

    /// Registers `me` for the class, in place of an earlier one. The factory takes no ownership: the adapter calls this
    /// from its own constructor.
    int registerManagedEntity(unsigned short classId, OmciMe* me);
    /// Removes the entry; the adapter is not deleted.
    int unregisterManagedEntity(unsigned short classId);
    /// Null when the class is not registered.
    OmciMe* getManagedEntity(unsigned short classId) const;
    /// The walk goes in ascending class order, to a null.
    OmciMe* getFirstManagedEntity() const;
    OmciMe* getNextManagedEntity(unsigned short classId) const;

private:
    OmciMeFactory() = default;

    mutable std::shared_mutex m_Mutex;
    std::map<unsigned short, OmciMe*> m_ManagedEntities;
};

#endif
