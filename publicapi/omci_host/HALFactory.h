#ifndef OMCI_HOST_HAL_FACTORY_H
#define OMCI_HOST_HAL_FACTORY_H

#include <string>

/// The board's abstraction object, as far as the library uses it.
class NrvkHal
{
public:
    virtual ~NrvkHal() = default;

    /// MAC address of the first IP host (G.988 9.4.1, class 134) as text, "00:11:22:33:44:55". The argument is not
    /// used.
    virtual std::string halGetPrimaryMacAddress(std::string name) = 0;
    /// MAC address of the second IP host, as text. The argument is not used.
    virtual std::string halGetSecondaryMacAddress(std::string name) = 0;
};

/// Makes the board's abstraction object.
class HALFactory
{
public:
    /// The one object of the process, made at the first call and kept.
    static HALFactory* getInstance();

    /// Yields the NrvkHal, owned by the host and good for the life of the process. Called with 0.
    void* CreateHALObject(int kind);

    /// The object that CreateHALObject yields from now on; not owned. Null is allowed.
    void setHal(NrvkHal* hal);

private:
    HALFactory() = default;

    NrvkHal* m_Hal = nullptr;
};

#endif
