#ifndef SIMULATOR_LIBRARY_STATICS_H
#define SIMULATOR_LIBRARY_STATICS_H

#include <array>
#include <string>
#include <vector>

#include "DefaultConfigManagedEntity.h"

/// The library's process-wide data as the process found it, so that a restarted ONU begins where a new process would.
class LibraryStatics
{
public:
    /// Takes the copy.
    LibraryStatics();

    /// Writes it back. No instance of the library may be in use.
    void restore() const;

private:
    std::vector<DefaultConfigManagedEntity> m_StartupTable;
    std::vector<unsigned char> m_Counts;
    std::array<std::string, 3> m_Files;
    bool m_IsNrvkOltConnected;
    unsigned short m_SoftwareDownloadStatus;
};

#endif
