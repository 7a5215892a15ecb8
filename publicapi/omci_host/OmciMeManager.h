#ifndef OMCI_HOST_OMCI_ME_MANAGER_H
#define OMCI_HOST_OMCI_ME_MANAGER_H

/// Attribute sizes by class and mask, as the registered adapters define them. Any thread may call.
class OmciMeManager
{
public:
    /// The one object of the process, made at the first call and kept.
    static OmciMeManager* getInstance();

    /// Yields 0 and the attribute's size in bytes (of one row for a table), or -1 when class or attribute is unknown.
    int getAttributeSize(unsigned short classId, unsigned short attributeMask, unsigned char* size);

private:
    OmciMeManager() = default;
};

#endif
