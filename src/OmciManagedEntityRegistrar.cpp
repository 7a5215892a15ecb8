#include "OmciManagedEntityRegistrar.h"

#include "ManagedEntityClasses.h"
#include "OmciMeFactory.h"
#include "impl/Log.h"

using nrvk::InstanceResult;

OmciManagedEntityRegistrar* OmciManagedEntityRegistrar::m_Instance = nullptr;

OmciManagedEntityRegistrar* OmciManagedEntityRegistrar::getInstance()
{
    if (m_Instance == nullptr) {
        m_Instance = new OmciManagedEntityRegistrar;
    }
    return m_Instance;
}

void OmciManagedEntityRegistrar::deleteInstance()
{
    delete m_Instance;
}

OmciManagedEntityRegistrar::OmciManagedEntityRegistrar()
{
    NRVK_LOG(6, "this(%p)", this);
}

OmciManagedEntityRegistrar::~OmciManagedEntityRegistrar()
{
    NRVK_LOG_IF_POSSIBLE(6, "this(%p)", this);
    m_ConfigManagedEntityVector.clear();
    m_Instance = nullptr;
}

void OmciManagedEntityRegistrar::setOmciHardwareIfc(OmciHardwareIfc* hardware)
{
    NRVK_LOG(6, "Omci hardware interface(%p)", hardware);
    m_OmciHardwareIfc = hardware;
}

OmciHardwareIfc* OmciManagedEntityRegistrar::getOmciHardwareIfc()
{
    NRVK_LOG(6, "Omci hardware interface(%p)", m_OmciHardwareIfc);
    return m_OmciHardwareIfc;
}

int OmciManagedEntityRegistrar::setSupportedManagedEntities(std::vector<StartupConfigManagedEntity> managedEntities)
{
    NRVK_LOG(6, "Number of managed entities supported(%u)", static_cast<unsigned int>(managedEntities.size()));
    m_ConfigManagedEntityVector = std::move(managedEntities);
    return 0;
}

void OmciManagedEntityRegistrar::getConfigManagedEntityVector(std::vector<StartupConfigManagedEntity>& managedEntities)
{
    managedEntities = m_ConfigManagedEntityVector;
    NRVK_LOG(6, "Managed entities registered(%hu)", static_cast<unsigned short>(managedEntities.size()));
}

int OmciManagedEntityRegistrar::registerManagedEntity(unsigned short classId)
{
    NRVK_LOG(6, "Managed entity class(%hu)", classId);
    try {
        if (nrvk::makeAdapter(classId) == nullptr) {
            NRVK_LOG(3, "Managed entity class(%hu) not supported", classId);
            return -1;
        }
    } catch (...) {
        // An adapter registers itself before it is finished.
        OmciMeFactory::getInstance()->unregisterManagedEntity(classId);
        throw;
    }
    return 0;
}

int OmciManagedEntityRegistrar::unregisterManagedEntity(unsigned short classId)
{
    NRVK_LOG(6, "Managed entity class(%hu)", classId);
    OmciMeFactory::getInstance()->unregisterManagedEntity(classId);
    return 0;
}

int OmciManagedEntityRegistrar::createManagedEntityInstance(unsigned short classId, unsigned short instance)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, instance);
    switch (nrvk::createInstanceOfOnu(classId, instance)) {
    case InstanceResult::Done:
        return 0;
    case InstanceResult::Failed:
        NRVK_LOG(3, "Create managed entity(%hu; %hu) failed", classId, instance);
        return -1;
    case InstanceResult::UnsupportedClass:
        break;
    }
    NRVK_LOG(3, "Managed entity class(%hu) not supported", classId);
    return -1;
}

int OmciManagedEntityRegistrar::deleteManagedEntityInstance(unsigned short classId, unsigned short instance)
{
    NRVK_LOG(6, "Managed entity(%hu; %hu)", classId, instance);
    switch (nrvk::deleteInstanceOfOnu(classId, instance)) {
    case InstanceResult::Done:
        return 0;
    case InstanceResult::Failed:
        NRVK_LOG(3, "Delete managed entity(%hu; %hu) failed", classId, instance);
        return -1;
    case InstanceResult::UnsupportedClass:
        break;
    }
    NRVK_LOG(3, "Managed entity class(%hu) not supported", classId);
    return -1;
}
