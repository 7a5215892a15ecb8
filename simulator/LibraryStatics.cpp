#include "LibraryStatics.h"

#include <algorithm>
#include <iterator>

#include "OmciManagedEntitiesCore.h"
#include "SoftwareDownloadAccess.h"

namespace {
using Core = OmciManagedEntitiesCore;

std::array<unsigned char*, 11> counts()
{
    return {&Core::NUMBER_OF_T_CONT_SUPPORTED,           &Core::NUMBER_OF_ETHERNET_UNI_SUPPORTED,
            &Core::NUMBER_OF_VIDEO_UNI_SUPPORTED,        &Core::NUMBER_OF_VIDEO_ANI_SUPPORTED,
            &Core::NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT, &Core::NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI,
            &Core::NUMBER_OF_PPTP_POTS_UNI_SUPPORTED,    &Core::TOTAL_UPSTREAM_PRIORITY_QUEUES,
            &Core::TOTAL_DOWNSTREAM_PRIORITY_QUEUES,     &Core::TOTAL_NUMBER_OF_PRIORITY_QUEUES,
            &Core::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER};
}

std::array<std::string*, 3> files()
{
    return {&Core::m_FactoryConfigurationFile, &Core::m_BootInfoConfigurationFile, &Core::m_AppInfoConfigurationFile};
}
}  // namespace

LibraryStatics::LibraryStatics()
    : m_StartupTable(std::begin(Core::defaultConfigManagedEntity), std::end(Core::defaultConfigManagedEntity)),
      m_IsNrvkOltConnected(Core::m_IsNrvkOltConnected), m_SoftwareDownloadStatus(nrvk::getSoftwareDownloadStatus())
{
    for (const unsigned char* count : counts()) {
        m_Counts.push_back(*count);
    }
    for (std::size_t i = 0; i < m_Files.size(); ++i) {
        m_Files[i] = *files()[i];
    }
}

void LibraryStatics::restore() const
{
    std::copy(m_StartupTable.begin(), m_StartupTable.end(), std::begin(Core::defaultConfigManagedEntity));
    for (std::size_t i = 0; i < m_Counts.size(); ++i) {
        *counts()[i] = m_Counts[i];
    }
    for (std::size_t i = 0; i < m_Files.size(); ++i) {
        *files()[i] = m_Files[i];
    }
    Core::m_IsNrvkOltConnected = m_IsNrvkOltConnected;
    nrvk::updateSoftwareDownloadStatus(m_SoftwareDownloadStatus);
}
