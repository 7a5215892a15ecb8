// IP hosts, TCP/UDP ports, and the address and string entities that others point to.
#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "impl/OmciMeIpv6HostConfigDataImpl.h"
#include "implExtended/OmciMeIpHostConfigDataImplExtended.h"
#include "implExtended/OmciMeTcpUdpConfigDataImplExtended.h"

using ::testing::_;
using ::testing::DoAll;
using ::testing::InSequence;
using ::testing::Pointee;
using ::testing::Return;
using ::testing::SetArgPointee;

namespace {

constexpr unsigned short kIpHost = 134;
constexpr unsigned short kTcpUdp = 136;

using Bytes = std::vector<unsigned char>;

class IpHost : public LibraryTest
{
protected:
    static constexpr unsigned short kHost = 1;
    static constexpr unsigned short kIpOptions = 0x8000;
    static constexpr unsigned short kIpAddress = 0x1000;
    static constexpr unsigned short kMask = 0x0800;
    static constexpr unsigned short kGateway = 0x0400;

    void SetUp() override
    {
        adapter(kIpHost);
        OmciMeIpHostConfigDataIf::createManagedEntityInstance(kHost, false);
        port = OmciMeMacBridgePortConfigurationDataIf::createManagedEntityInstance(0x0301, true);
    }

    static int apply() { return adapter(kIpHost).applyConfigurationToHardwareForSet(kHost); }

    static OmciMeIpHostConfigDataImplExtended& host()
    {
        return dynamic_cast<OmciMeIpHostConfigDataImplExtended&>(
            *OmciMeIpHostConfigDataIf::getManagedEntityInstance(kHost));
    }

    void expectProvisioning()
    {
        InSequence sequence;
        EXPECT_CALL(hardware, findMacBridgePortByTp(4, kHost, Pointee(nullptr)))
            .WillOnce(DoAll(SetArgPointee<2>(port), Return(0)));
        EXPECT_CALL(hardware, provisionBridgePort(port)).Times(1);
    }

    void expectNoProvisioning()
    {
        EXPECT_CALL(hardware, findMacBridgePortByTp(_, _, _)).Times(0);
        EXPECT_CALL(hardware, provisionBridgePort(_)).Times(0);
    }

    OmciMeMacBridgePortConfigurationDataIf* port = nullptr;
};

TEST_F(IpHost, SettersLogAndStore)
{
    EXPECT_EQ(set(kIpHost, kHost, kIpAddress, Bytes{192, 0, 2, 10}), 0);
    EXPECT_TRUE(log.has(6, "IP address(192.0.2.10)"));
    EXPECT_EQ(set(kIpHost, kHost, kMask, Bytes{255, 255, 255, 0}), 0);
    EXPECT_TRUE(log.has(6, "Mask(255.255.255.0)"));
    EXPECT_EQ(set(kIpHost, kHost, kGateway, Bytes{192, 0, 2, 1}), 0);
    EXPECT_TRUE(log.has(6, "Gateway(192.0.2.1)"));
    EXPECT_EQ(set(kIpHost, kHost, kIpOptions, 0x0F), 0);
    EXPECT_EQ(get(kIpHost, kHost, kIpAddress), (Bytes{192, 0, 2, 10}));
    EXPECT_EQ(get(kIpHost, kHost, kMask), (Bytes{255, 255, 255, 0}));
    EXPECT_EQ(get(kIpHost, kHost, kGateway), (Bytes{192, 0, 2, 1}));
    EXPECT_EQ(getNumber(kIpHost, kHost, kIpOptions), 0x0FU);
}

TEST_F(IpHost, StaticAddressingWaitsForMaskAddressAndGatewayInAnyOrder)
{
    const unsigned short orders[][3] = {{kMask, kIpAddress, kGateway}, {kMask, kGateway, kIpAddress},
                                        {kIpAddress, kMask, kGateway}, {kIpAddress, kGateway, kMask},
                                        {kGateway, kMask, kIpAddress}, {kGateway, kIpAddress, kMask}};
    for (const auto& order : orders) {
        OmciMeIpHostConfigDataIf::getManagedEntityInstance(kHost)->init();
        expectNoProvisioning();
        EXPECT_EQ(apply(), 0);
        EXPECT_EQ(set(kIpHost, kHost, order[0], Bytes{0, 0, 0, 1}), 0);
        EXPECT_EQ(apply(), 0);
        EXPECT_EQ(set(kIpHost, kHost, order[1], Bytes{1, 0, 0, 0}), 0);
        EXPECT_EQ(apply(), 0);
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
        expectProvisioning();
        EXPECT_EQ(set(kIpHost, kHost, order[2], Bytes{0, 1, 0, 0}), 0);
        EXPECT_EQ(apply(), 0);
        ::testing::Mock::VerifyAndClearExpectations(&hardware);
    }
}

TEST_F(IpHost, AddressAndMaskWithoutGatewayProvisionNothingAndSucceed)
{
    expectNoProvisioning();
    set(kIpHost, kHost, kIpAddress, Bytes{192, 0, 2, 10});
    set(kIpHost, kHost, kMask, Bytes{255, 255, 255, 0});
    EXPECT_EQ(apply(), 0);
    EXPECT_TRUE(log.has(4, "Managed Entity Instance(1)"));
}

TEST_F(IpHost, DynamicAddressingNeedsNoAddress)
{
    expectProvisioning();
    set(kIpHost, kHost, kIpOptions, 0x01);
    EXPECT_EQ(apply(), 0);
}

TEST_F(IpHost, OnlyBit0OfTheOptionsMeansDynamicAddressing)
{
    expectNoProvisioning();
    set(kIpHost, kHost, kIpOptions, 0xFE);
    EXPECT_EQ(apply(), 0);
}

TEST_F(IpHost, WithoutABridgePortApplyFails)
{
    EXPECT_CALL(hardware, findMacBridgePortByTp(4, kHost, _)).Times(1);
    EXPECT_CALL(hardware, provisionBridgePort(_)).Times(0);
    set(kIpHost, kHost, kIpOptions, 0x01);
    EXPECT_EQ(apply(), -1);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data not found"));
}

TEST_F(IpHost, WithoutHardwareThereIsNoBridgePortToFind)
{
    removeHardware();
    set(kIpHost, kHost, kIpOptions, 0x01);
    EXPECT_EQ(apply(), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data not found"));
}

TEST_F(IpHost, Layer2ProvisioningLooksAtNoAddress)
{
    expectProvisioning();
    host().layer2Provisioning();
}

TEST_F(IpHost, Layer2ProvisioningWithoutABridgePortOnlyWarns)
{
    EXPECT_CALL(hardware, provisionBridgePort(_)).Times(0);
    host().layer2Provisioning();
    EXPECT_TRUE(log.has(4, "UNI MAC bridge port not linked to IP Host"));
    EXPECT_THAT(log.texts(3), ::testing::IsEmpty());
    removeHardware();
    host().layer2Provisioning();
    EXPECT_EQ(log.count(4, "UNI MAC bridge port not linked to IP Host"), 2U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(IpHost, MibResetLeavesTheBinding)
{
    expectNoProvisioning();
    EXPECT_CALL(hardware, removeBridgePortService(_)).Times(0);
    adapter(kIpHost).eraseAllManagedEntityInstances();
    EXPECT_NE(OmciMeIpHostConfigDataIf::getManagedEntityInstance(kHost), nullptr);
}

class TcpUdpPort : public LibraryTest
{
protected:
    void SetUp() override { ASSERT_EQ(create(kTcpUdp, 1), 0); }

    static const OmciMeTcpUdpConfigDataImplExtended& entity()
    {
        return dynamic_cast<const OmciMeTcpUdpConfigDataImplExtended&>(
            *OmciMeTcpUdpConfigDataIf::getManagedEntityInstance(1));
    }
};

TEST_F(TcpUdpPort, ShadowsHoldTheValuesBeforeTheSetUntilItEnds)
{
    EXPECT_EQ(set(kTcpUdp, 1, 0x8000, 5070), 0);
    EXPECT_EQ(set(kTcpUdp, 1, 0x4000, 6), 0);
    EXPECT_EQ(set(kTcpUdp, 1, 0x2000, 0xB8), 0);
    EXPECT_EQ(set(kTcpUdp, 1, 0x1000, 2), 0);
    EXPECT_TRUE(log.has(6, "IpHostPonter(2)"));
    EXPECT_EQ(entity().getOldPortId(), 5060);
    EXPECT_EQ(entity().getOldProtocol(), 17);
    EXPECT_EQ(entity().getOldTosDiffservField(), 0);
    EXPECT_EQ(entity().getOldIpHostPointer(), 0);
    log.clear();
    EXPECT_EQ(adapter(kTcpUdp).applyConfigurationToHardwareForSet(1), 0);
    EXPECT_TRUE(log.has(6, "Managed Entity Instance(1)"));
    EXPECT_EQ(entity().getOldPortId(), 5070);
    EXPECT_EQ(entity().getOldProtocol(), 6);
    EXPECT_EQ(entity().getOldTosDiffservField(), 0xB8);
    EXPECT_EQ(entity().getOldIpHostPointer(), 2);
}

TEST_F(TcpUdpPort, DeleteSucceeds)
{
    EXPECT_EQ(adapter(kTcpUdp).deleteManagedEntityInstance(1, true), 0);
}

/// Lets the test see the rows of the current tables.
class VisibleIpv6Host : public OmciMeIpv6HostConfigDataImpl
{
public:
    using OmciMeIpv6HostConfigDataImpl::m_CurrentAddressTable;
    using OmciMeIpv6HostConfigDataImpl::m_CurrentDefaultRouterTable;
    using OmciMeIpv6HostConfigDataImpl::m_CurrentDnsTable;
    using OmciMeIpv6HostConfigDataImpl::m_CurrentOnlinkPrefixTable;
    using OmciMeIpv6HostConfigDataImpl::OmciMeIpv6HostConfigDataImpl;
};

class Ipv6Host : public LibraryTest
{};

TEST_F(Ipv6Host, RowWithNoZeroByteIsStoredWholeAndOneWithAZeroIsCut)
{
    VisibleIpv6Host host(1, false);
    Bytes row(26, 0x20);
    host.setCurrentAddressTable(row.data());
    host.setCurrentDefaultRouterTable(row.data());
    host.setCurrentDnsTable(row.data());
    host.setCurrentOnlinkPrefixTable(row.data());
    row[3] = 0;
    host.setCurrentAddressTable(row.data());
    host.setCurrentDefaultRouterTable(row.data());
    host.setCurrentDnsTable(row.data());
    host.setCurrentOnlinkPrefixTable(row.data());

    nrvk::TableRow<24> address;
    address.fill(0x20);
    nrvk::TableRow<16> server;
    server.fill(0x20);
    nrvk::TableRow<26> prefix;
    prefix.fill(0x20);
    EXPECT_THAT(host.m_CurrentAddressTable, ::testing::ElementsAre(address, nrvk::TableRow<24>{0x20, 0x20, 0x20}));
    EXPECT_THAT(host.m_CurrentDefaultRouterTable, ::testing::ElementsAre(server, nrvk::TableRow<16>{0x20, 0x20, 0x20}));
    EXPECT_THAT(host.m_CurrentDnsTable, ::testing::ElementsAre(server, nrvk::TableRow<16>{0x20, 0x20, 0x20}));
    EXPECT_THAT(host.m_CurrentOnlinkPrefixTable, ::testing::ElementsAre(prefix, nrvk::TableRow<26>{0x20, 0x20, 0x20}));
    EXPECT_EQ(host.getCurrentAddressTable(OMCI_ACTION_GET), 2U);
    EXPECT_EQ(host.getCurrentOnlinkPrefixTable(OMCI_ACTION_GET), 2U);
}

class StringEntity : public LibraryTest
{};

TEST_F(StringEntity, PartsOfLargeAndOctetStringsAreKeptApart)
{
    for (const unsigned int classId : {157U, 307U}) {
        const auto id = static_cast<unsigned short>(classId);
        ASSERT_EQ(create(id, 1), 0);
        for (unsigned int part = 1; part <= 15; ++part) {
            EXPECT_EQ(set(id, 1, static_cast<unsigned short>(0x8000 >> part),
                          Bytes(25, static_cast<unsigned char>('a' + part))),
                      0);
        }
        for (unsigned int part = 1; part <= 15; ++part) {
            EXPECT_EQ(get(id, 1, static_cast<unsigned short>(0x8000 >> part)),
                      Bytes(25, static_cast<unsigned char>('a' + part)));
        }
    }
}

TEST_F(StringEntity, PointersOfAddressEntitiesAreOnlyStored)
{
    const std::pair<unsigned short, unsigned short> attributes[] = {
        {137, 0x8000}, {137, 0x4000}, {340, 0x4000}, {340, 0x2000}, {308, 0x8000}};
    for (const auto& [classId, mask] : attributes) {
        EXPECT_EQ(create(classId, 7), 0);
        EXPECT_EQ(set(classId, 7, mask, 0xFFFE), 0) << "a dangling pointer is as good as any";
        EXPECT_EQ(getNumber(classId, 7, mask), 0xFFFEU);
        EXPECT_EQ(adapter(classId).applyConfigurationToHardwareForSet(7), 0);
    }
}

}  // namespace
