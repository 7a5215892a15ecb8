#include "implExtended/OmciMeNetworkDialPlanTableImplExtended.h"

#include "impl/HexText.h"

namespace {

constexpr unsigned char kHighestFormat = 3;

}  // namespace

void OmciMeNetworkDialPlanTableImplExtended::init()
{
    OmciMeNetworkDialPlanTableImpl::init();
    m_Rows.clear();
}

unsigned short OmciMeNetworkDialPlanTableImplExtended::getDialPlanNumber(EnumOmciAction /*action*/) const
{
    OmciMeNetworkDialPlanTableImpl::getDialPlanNumber(OMCI_ACTION_GET);
    return 0;
}

unsigned short OmciMeNetworkDialPlanTableImplExtended::getDialPlanTableMaxSize(EnumOmciAction /*action*/) const
{
    OmciMeNetworkDialPlanTableImpl::getDialPlanTableMaxSize(OMCI_ACTION_GET);
    return 0;
}

int OmciMeNetworkDialPlanTableImplExtended::setDialPlanFormat(unsigned char value)
{
    return OmciMeNetworkDialPlanTableImpl::setDialPlanFormat(value > kHighestFormat ? 0 : value);
}

int OmciMeNetworkDialPlanTableImplExtended::setDialPlanTable(const unsigned char* value)
{
    const Row row = nrvk::tableRow<30>(value);
    NRVK_LOG_RENDERED(6, "Row(%s)", nrvk::HexText(row.data(), row.size()).get());
    m_Rows.push_back(row);
    return OmciMeNetworkDialPlanTableImpl::setDialPlanTable(value);
}
