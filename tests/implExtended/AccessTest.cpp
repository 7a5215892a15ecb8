// What a host or a hardware layer asks single entities for, besides their attributes.
#include <algorithm>

#include "IpHostAccess.h"
#include "LibraryTest.h"
#include "NetworkDialPlanAccess.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMeNetworkDialPlanTableIf.h"

using ::testing::DoAll;
using ::testing::Pointee;
using ::testing::Return;
using ::testing::SetArgPointee;

namespace {

constexpr unsigned short kIpHost = 134;
constexpr unsigned short kDialPlan = 145;
constexpr unsigned short kDialPlanRows = 0x0400;

class Access : public LibraryTest
{};

TEST_F(Access, RowsOfADialPlanComeInTheirOrderAndEnd)
{
    ASSERT_EQ(create(kDialPlan, 1), 0);
    std::vector<unsigned char> first(nrvk::kDialPlanRowSize, 0x31);
    first[3] = 0;
    set(kDialPlan, 1, kDialPlanRows, first);
    set(kDialPlan, 1, kDialPlanRows, std::vector<unsigned char>(nrvk::kDialPlanRowSize, 0x32));
    const OmciMeNetworkDialPlanTableIf& plan = *OmciMeNetworkDialPlanTableIf::getManagedEntityInstance(1);
    unsigned char row[nrvk::kDialPlanRowSize] = {};
    EXPECT_TRUE(nrvk::getDialPlanRow(plan, 0, row));
    std::fill(first.begin() + 3, first.end(), static_cast<unsigned char>(0));
    EXPECT_THAT(row, ::testing::ElementsAreArray(first)) << "zero from its first zero byte";
    EXPECT_TRUE(nrvk::getDialPlanRow(plan, 1, row));
    EXPECT_THAT(row, ::testing::Each(0x32));
    EXPECT_FALSE(nrvk::getDialPlanRow(plan, 2, row));
    EXPECT_THAT(row, ::testing::Each(0x32)) << "stays as it was";
}

TEST_F(Access, IpHostIsProvisionedAgainThroughItsBridgePort)
{
    adapter(kIpHost);
    OmciMeIpHostConfigDataIf::createManagedEntityInstance(1, false);
    auto* port = OmciMeMacBridgePortConfigurationDataIf::createManagedEntityInstance(0x0301, true);
    EXPECT_CALL(hardware, findMacBridgePortByTp(4, 1, Pointee(nullptr)))
        .WillOnce(DoAll(SetArgPointee<2>(port), Return(0)));
    EXPECT_CALL(hardware, provisionBridgePort(port)).Times(1);
    nrvk::layer2Provisioning(*OmciMeIpHostConfigDataIf::getManagedEntityInstance(1));
}

}  // namespace
