#ifndef ONT_OMCI_MANAGED_ENTITY_OMCI_MANAGED_ENTITY_REGISTRAR_H
#define ONT_OMCI_MANAGED_ENTITY_OMCI_MANAGED_ENTITY_REGISTRAR_H

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "Export.h"
#include "StartupConfigManagedEntity.h"

class OmciHardwareIfc;

/// Keeps the configured picture of the MIB, builds the adapters, creates the ONU's own instances, writes their start-up
/// values and keeps the picture up to date at run time.
///
/// Operations give 0 for success and -1 for failure. They take no lock themselves and are not safe against each other.
class NRVK_EXPORT OmciManagedEntityRegistrar
{
public:
    /// Made at the first call.
    static OmciManagedEntityRegistrar* getInstance();
    /// Destroys the object; adapters and instances stay.
    static void deleteInstance();

    /// Not owned. Null until the host has set it.
    void setOmciHardwareIfc(OmciHardwareIfc* hardware);
    /// The hardware layer that was set last; null before that.
    OmciHardwareIfc* getOmciHardwareIfc();

    /// Replaces the configured picture.
    int setSupportedManagedEntities(std::vector<StartupConfigManagedEntity> managedEntities);
    /// Copies the configured picture out.
    void getConfigManagedEntityVector(std::vector<StartupConfigManagedEntity>& managedEntities);

    /// Builds the adapter of one of the 115 classes, which registers itself with OmciMeFactory.
    int registerManagedEntity(unsigned short classId);
    /// Takes the class's adapter out of OmciMeFactory; the adapter itself and the instances stay. Always 0.
    int unregisterManagedEntity(unsigned short classId);
    /// Creates an instance as the ONU's own; only for the classes that can have such instances.
    int createManagedEntityInstance(unsigned short classId, unsigned short instance);
    /// Deletes an instance of the ONU's own.
    int deleteManagedEntityInstance(unsigned short classId, unsigned short instance);
    /// Writes one attribute, network byte order, by the road of a Set but without the apply, and sends an attribute
    /// value change where the host builds one. `value` may be shorter than the attribute: zero bytes follow.
    int setManagedEntityAttribute(unsigned short classId, unsigned short instance, unsigned short attributeMask,
                                  std::vector<unsigned char> value);

    /// Brings the whole picture to life: adapters, instances, values. Failures are logged and skipped.
    int registerSupportedManagedEntities();
    /// The reverse of registerSupportedManagedEntities: deletes the picture's instances and takes the adapters out of
    /// OmciMeFactory. Failures are logged and skipped.
    int unregisterSupportedManagedEntitiesAndInstances();
    /// Writes all stored values again, as after a MIB reset.
    int initializeSupportedManagedEntitiesAndInstances();

    /// Adds the record's first instance and its values to the picture; creates nothing.
    int addManagedEntityInstance(StartupConfigManagedEntity managedEntity);
    /// Replaces the record of the same class and the same instances, and writes its values.
    int updateSupportedManagedEntityAndInstance(StartupConfigManagedEntity managedEntity);
    /// Gives an instance another id. The values of the class's other instances leave the picture.
    int swapManagedEntityInstanceId(unsigned short classId, unsigned short oldInstance, unsigned short newInstance);

    /// Changes one value of the picture and of the live instance. `value` is in host byte order.
    /// T: unsigned char, unsigned short, unsigned int, unsigned long long, bool, std::string.
    /// -1 when the picture has no entry for the attribute; a failed write to the live instance is only logged.
    template <typename T>
    int updateManagedEntity(unsigned short classId, unsigned short instance, unsigned short attributeMask, T value);

    /// Held over a MIB reset of the ONU's own and over the swap of the IP host instances, by those operations.
    std::mutex& getMutex() { return m_Mutex; }

private:
    using Picture = std::vector<StartupConfigManagedEntity>;

    OmciManagedEntityRegistrar();
    ~OmciManagedEntityRegistrar();

    /// A value on its way into the picture, whatever its type: six types share one road.
    struct ReportedValue;

    int updateManagedEntity(unsigned short classId, unsigned short instance, unsigned short attributeMask,
                            const ReportedValue& value);
    /// The stored bytes after the change, or null when the picture has no entry.
    std::vector<unsigned char>* updateAttribute(Picture::iterator managedEntity, unsigned short instance,
                                                unsigned short attributeMask, const ReportedValue& value);
    int writeAttribute(unsigned short classId, unsigned short instance, unsigned short attributeMask,
                       const unsigned char* value, std::size_t length);
    void writeStoredAttributes(const StartupConfigManagedEntity& managedEntity);

    Picture m_ConfigManagedEntityVector;
    OmciHardwareIfc* m_OmciHardwareIfc = nullptr;
    std::mutex m_Mutex;

    static OmciManagedEntityRegistrar* m_Instance;
};

#endif
