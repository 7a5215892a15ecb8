#include "omci_host/HALFactory.h"

HALFactory* HALFactory::getInstance()
{
    static HALFactory factory;
    return &factory;
}

void* HALFactory::CreateHALObject(int /*kind*/)
{
    return m_Hal;
}

void HALFactory::setHal(NrvkHal* hal)
{
    m_Hal = hal;
}
