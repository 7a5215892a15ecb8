// MIB upload and get all alarms over real frames, in both formats.

#include "DispatcherFixture.h"

using namespace omci;

namespace {

class Snapshots : public DispatcherTest
{
protected:
    /// All entities of an upload as "class/instance/mask/values"; baseline values cut to the mask's sizes by the
    /// caller.
    std::vector<std::string> upload()
    {
        const unsigned long count = std::stoul(ask(MessageType::MibUpload, 2, 0).substr(0, 4), nullptr, 16);
        std::vector<std::string> entities;
        for (unsigned long sequence = 0; sequence < count; ++sequence) {
            const Bytes number{static_cast<std::uint8_t>(sequence >> 8), static_cast<std::uint8_t>(sequence)};
            const Bytes contents = fromHex(ask(MessageType::MibUploadNext, 2, 0, toHex(number)));
            UploadedEntities walk(format, {contents.data(), contents.size()});
            UploadedEntity entity;
            while (walk.next(entity)) {
                entities.push_back(std::to_string(entity.entityClass) + "/" + std::to_string(entity.entityInstance) +
                                   "/" + std::to_string(entity.mask) + "/" +
                                   toHex(entity.values.data, entity.values.size));
            }
            EXPECT_FALSE(walk.isBroken());
        }
        frames = count;
        return entities;
    }

    static std::string room(std::string values)
    {
        values.resize(52, '0');
        return values;
    }

    unsigned long frames = 0;
    FakeOnuData onuData;
};

std::vector<attributeDefinition> wide()
{
    return {attribute(0x8000, 20, R | U),       attribute(0x4000, 6, R | U),  attribute(0x2000, 1, R | U),
            attribute(0x1000, 17, R | U, true), attribute(0x0800, 25, R | U), attribute(0x0400, 1, R)};
}

}  // namespace

TEST_F(Snapshots, BaselineSplitsAnInstanceWhereItDoesNotFit)
{
    FakeMe me(300, wide());
    FakeMe::Instance& instance = me.add(7);
    instance.values[0x8000].assign(20, 0x11);
    instance.values[0x4000].assign(6, 0x22);
    instance.values[0x2000].assign(1, 0x33);
    instance.values[0x0800].assign(25, 0x44);
    const std::vector<std::string> expected{
        "2/0/32768/" + room("00"),
        "300/7/49152/" + std::string(40, '1') + std::string(12, '2'),
        "300/7/10240/33" + std::string(50, '4'),
    };
    EXPECT_EQ(expected, upload());
    EXPECT_EQ(3U, frames);
    EXPECT_EQ(OMCI_ACTION_GET, me.lastAction);
}

TEST_F(Snapshots, EntitiesComeInAscendingClassAndInstanceOrder)
{
    FakeMe high(65300, {attribute(0x8000, 1, R | U)});
    FakeMe low(5, {attribute(0x8000, 1, R | U)});
    high.add(9);
    low.add(0x8000);
    low.add(3);
    const std::vector<std::string> expected{"2/0/32768/" + room(""), "5/3/32768/" + room(""),
                                            "5/32768/32768/" + room(""), "65300/9/32768/" + room("")};
    EXPECT_EQ(expected, upload());
}

TEST_F(Snapshots, ClassesOutsideTheUploadAndTheirReadOnlyAttributesStayOut)
{
    FakeMe out(300, wide());
    out.inUpload = false;
    out.add(1);
    EXPECT_EQ(1U, upload().size());
}

TEST_F(Snapshots, AnEntityWithoutUploadedAttributesIsStillReported)
{
    FakeMe me(300, {attribute(0x8000, 1, R)});
    me.add(1);
    EXPECT_EQ("300/1/0/" + room(""), upload().at(1));
    format = Format::Extended;
    EXPECT_EQ("300/1/0/", upload().at(1));
}

TEST_F(Snapshots, AnAttributeThatCannotBeReadIsLeftOut)
{
    FakeMe me(300, {attribute(0x8000, 1, R | U), attribute(0x4000, 1, R | U)});
    me.add(1).values[0x4000] = fromHex("66");
    me.unreadable = 0x8000;
    EXPECT_EQ("300/1/16384/" + room("66"), upload().at(1));
}

TEST_F(Snapshots, ExtendedPacksSeveralEntitiesIntoAFrame)
{
    format = Format::Extended;
    FakeMe me(300, wide());
    for (unsigned short id = 1; id <= 100; ++id) {
        me.add(id).values[0x2000] = {static_cast<std::uint8_t>(id)};
    }
    const std::vector<std::string> entities = upload();
    ASSERT_EQ(101U, entities.size());
    EXPECT_EQ("2/0/32768/00", entities[0]);
    EXPECT_EQ("300/100/59392/" + std::string(52, '0') + "64" + std::string(50, '0'), entities[100]);
    // 9 octets of ONU data and 60 of each other entity: 32 fit the first frame, 32 each other.
    EXPECT_EQ(4U, frames);
    for (const auto& [sequence, contents] : onuData.uploads) {
        EXPECT_LE(contents.size(), kMaximumContentLength);
        if (sequence == 0) {
            EXPECT_EQ(9U + 32U * 60U, contents.size());
        }
    }
}

TEST_F(Snapshots, ExtendedFillsAFrameToTheLastOctet)
{
    format = Format::Extended;
    onuData.inUpload = false;
    // 8 octets of head and 6 of values: 140 entities make 1960 octets; 6 octets are left, where no head fits.
    FakeMe me(300, {attribute(0x8000, 6, R | U)});
    for (unsigned short id = 0; id < 141; ++id) {
        me.add(id);
    }
    EXPECT_EQ(141U, upload().size());
    EXPECT_EQ(2U, frames);
    EXPECT_EQ(1960U, onuData.uploads[0].size());
    EXPECT_EQ(14U, onuData.uploads[1].size());
}

TEST_F(Snapshots, UploadNextOutOfRangeIsAllZero)
{
    upload();
    EXPECT_EQ(padded(""), ask(MessageType::MibUploadNext, 2, 0, "0063"));
}

TEST_F(Snapshots, AnEmptyMibCountsNoFrame)
{
    onuData.inUpload = false;
    EXPECT_EQ(padded("0000"), ask(MessageType::MibUpload, 2, 0));
}

TEST_F(Snapshots, GetAllAlarmsReportsInstancesWithAlarmsOnly)
{
    FakeMe me(11, {});
    me.add(0x101);
    me.add(0x102).alarms.set(0).set(9);
    me.add(0x103).alarms.set(222);
    EXPECT_EQ(padded("0002"), ask(MessageType::GetAllAlarms, 2, 0, "00"));
    EXPECT_EQ(padded("000b01028040"), ask(MessageType::GetAllAlarmsNext, 2, 0, "0000"));
    EXPECT_EQ("000b0103" + std::string(54, '0') + "02", ask(MessageType::GetAllAlarmsNext, 2, 0, "0001"));
    EXPECT_EQ(padded(""), ask(MessageType::GetAllAlarmsNext, 2, 0, "0002"));
}

TEST_F(Snapshots, ExtendedRepeatsTheAlarmBlock)
{
    format = Format::Extended;
    FakeMe me(11, {});
    for (unsigned short id = 0; id < 62; ++id) {
        me.add(id).alarms.set(0);
    }
    EXPECT_EQ("0002", ask(MessageType::GetAllAlarms, 2, 0));
    EXPECT_EQ(61U * 64U, ask(MessageType::GetAllAlarmsNext, 2, 0, "0000").size());
    EXPECT_EQ("000b003d80" + std::string(54, '0'), ask(MessageType::GetAllAlarmsNext, 2, 0, "0001"));
}

TEST_F(Snapshots, ClassesOutsideTheAlarmUploadStayOut)
{
    FakeMe me(11, {});
    me.inAlarms = false;
    me.add(1).alarms.set(0);
    EXPECT_EQ(padded("0000"), ask(MessageType::GetAllAlarms, 2, 0, "00"));
}

TEST_F(Snapshots, RetrievalModeOneLeavesOutEntitiesUnderAlarmReportingControl)
{
    FakeMe me(11, {attribute(0x8000, 1, R), attribute(0x4000, 1, R)});
    me.arcMask = 0x4000;
    me.add(1).alarms.set(0);
    me.add(2).alarms.set(0);
    me.instances[2].values[0x4000] = fromHex("01");
    // Another attribute of value 1 is not alarm reporting control.
    me.instances[1].values[0x8000] = fromHex("01");
    FakeMe without(24, {attribute(0x8000, 1, R)});
    without.add(1).alarms.set(0);
    without.instances[1].values[0x8000] = fromHex("01");
    EXPECT_EQ(padded("0003"), ask(MessageType::GetAllAlarms, 2, 0, "00"));
    EXPECT_EQ(padded("0002"), ask(MessageType::GetAllAlarms, 2, 0, "01"));
    EXPECT_EQ("000b0001", ask(MessageType::GetAllAlarmsNext, 2, 0, "0000").substr(0, 8));
    EXPECT_EQ("00180001", ask(MessageType::GetAllAlarmsNext, 2, 0, "0001").substr(0, 8));
    EXPECT_EQ(padded("0003"), ask(MessageType::GetAllAlarms, 2, 0, "02"));
}

TEST_F(Snapshots, WithoutAFrameNothingIsTaken)
{
    unsigned short count = 9;
    EXPECT_EQ(-1, onuData.mibUploadExec(nullptr, count));
    EXPECT_EQ(0, count);
    EXPECT_EQ(-1, onuData.getAllAlarmsExec(nullptr, count));
}

TEST_F(Snapshots, AKeeperThatRefusesFailsTheWalk)
{
    FakeMe keeper(2, {attribute(0x8000, 1, R | U)});
    keeper.add(0);
    OmciFrame frame;
    FrameView view;
    view.header = header(MessageType::MibUpload, 2, 0);
    frame.setRequest(view);
    unsigned short count = 0;
    EXPECT_EQ(-1, keeper.mibUploadExec(&frame, count));
    EXPECT_EQ(1, count);
}
