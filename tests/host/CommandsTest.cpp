// Create, delete, set, get and their kin, as the OLT sees them.

#include "DispatcherFixture.h"

using namespace omci;

namespace {

/// Attribute 1 two octets CRWU, 2 one octet CRWU, 3 four octets R, 4 table of 8-octet rows RWN, 5 one octet W,
/// 6 24 octets RW, 7 one octet RU.
std::vector<attributeDefinition> definitions()
{
    return {attribute(0x8000, 2, C | R | W | U),
            attribute(0x4000, 1, C | R | W | U),
            attribute(0x2000, 4, R),
            attribute(0x1000, 8, R | W | N, true),
            attribute(0x0800, 1, W),
            attribute(0x0400, 24, R | W),
            attribute(0x0200, 1, R | U)};
}

class Commands : public DispatcherTest
{
protected:
    Commands() { me.add(1); }

    FakeOnuData onuData;
    FakeMe me{100, definitions()};
};

class ExtendedCommands : public Commands
{
protected:
    ExtendedCommands() { format = Format::Extended; }
};

}  // namespace

TEST_F(Commands, GetYieldsTheValuesInAttributeOrder)
{
    me.instances[1].values[0x8000] = fromHex("1234");
    me.instances[1].values[0x2000] = fromHex("a1a2a3a4");
    EXPECT_EQ(padded("00a0001234a1a2a3a4"), ask(MessageType::Get, 100, 1, "a000"));
    EXPECT_EQ(OMCI_ACTION_GET, me.lastAction);
}

TEST_F(Commands, GetOfATableYieldsItsFourOctetSize)
{
    me.instances[1].rows[0x1000] = 3;
    EXPECT_EQ(padded("00100000000003"), ask(MessageType::Get, 100, 1, "1000"));
}

TEST_F(Commands, GetCurrentDataPassesItsTypeAsTheAction)
{
    EXPECT_EQ(padded("0040000000"), ask(MessageType::GetCurrentData, 100, 1, "4000"));
    EXPECT_EQ(OMCI_ACTION_GET_CURRENT_DATA, me.lastAction);
}

TEST_F(Commands, GetOfUnknownAttributesSetsTheOptionalMask)
{
    EXPECT_EQ(padded("0940000000").replace(56, 8, "00010000"), ask(MessageType::Get, 100, 1, "4001"));
}

TEST_F(Commands, GetOfAWriteOnlyAttributeFails)
{
    EXPECT_EQ(padded("0940000000").replace(56, 8, "00000800"), ask(MessageType::Get, 100, 1, "4800"));
}

TEST_F(Commands, GetOfAnUnreadableAttributeFailsItAlone)
{
    me.unreadable = 0x8000;
    me.instances[1].values[0x4000] = fromHex("07");
    EXPECT_EQ(padded("09400007").replace(56, 8, "00008000"), ask(MessageType::Get, 100, 1, "c000"));
}

TEST_F(Commands, GetAnswersWhatFitsTwentyFiveOctets)
{
    me.instances[1].values[0x4000] = fromHex("07");
    me.instances[1].values[0x0200] = fromHex("09");
    // 1 + 24 fill the reply; the last octet does not fit any more and is not read.
    const std::string reply = ask(MessageType::Get, 100, 1, "4600");
    EXPECT_EQ("09440007", reply.substr(0, 8));
    EXPECT_EQ("00000200", reply.substr(56));
    EXPECT_EQ(2U, me.reads);
}

TEST_F(Commands, GetLeavesOutAnAttributeTooLargeForTheRestAndGoesOn)
{
    me.instances[1].values[0x8000] = fromHex("1122");
    me.instances[1].values[0x0200] = fromHex("09");
    const std::string reply = ask(MessageType::Get, 100, 1, "8600");
    EXPECT_EQ("098200112209", reply.substr(0, 12));
    EXPECT_EQ("00000400", reply.substr(56));
}

TEST_F(ExtendedCommands, GetHasRoomForAll)
{
    me.instances[1].values[0x0200] = fromHex("09");
    const std::string reply = ask(MessageType::Get, 100, 1, "8600");
    EXPECT_EQ("00860000000000" + std::string(52, '0') + "09", reply);
}

TEST_F(Commands, UnknownClassAndInstance)
{
    for (const MessageType type : {MessageType::Create, MessageType::Delete, MessageType::Set, MessageType::Get,
                                   MessageType::GetCurrentData, MessageType::GetNext, MessageType::Test}) {
        EXPECT_EQ("04", ask(type, 999, 1, "8000").substr(0, 2)) << messageTypeName(type);
    }
    for (const MessageType type :
         {MessageType::Delete, MessageType::Set, MessageType::Get, MessageType::GetCurrentData, MessageType::Test}) {
        EXPECT_EQ("05", ask(type, 100, 2, "8000").substr(0, 2)) << messageTypeName(type);
    }
}

TEST_F(Commands, SetWritesAppliesAndStepsTheDataSync)
{
    EXPECT_EQ(padded("00"), ask(MessageType::Set, 100, 1, "c800 1234 56 78"));
    EXPECT_EQ("1234", toHex(me.instances[1].values[0x8000]));
    EXPECT_EQ("56", toHex(me.instances[1].values[0x4000]));
    EXPECT_EQ("78", toHex(me.instances[1].values[0x0800]));
    EXPECT_EQ(1U, me.applies);
    EXPECT_EQ(1U, onuData.dataSync);
}

TEST_F(Commands, SetWithARefusedAttributeKeepsTheOthersAndTheDataSync)
{
    me.refused = 0x8000;
    EXPECT_EQ(padded("0900008000"), ask(MessageType::Set, 100, 1, "c000 1234 56"));
    EXPECT_EQ("0000", toHex(me.instances[1].values[0x8000]));
    EXPECT_EQ("56", toHex(me.instances[1].values[0x4000]));
    EXPECT_EQ(1U, me.applies);
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(Commands, SetSkipsAReadOnlyAttributeInPlace)
{
    EXPECT_EQ(padded("0900002000"), ask(MessageType::Set, 100, 1, "6800 56 aabbccdd 78"));
    EXPECT_EQ("78", toHex(me.instances[1].values[0x0800]));
}

TEST_F(Commands, SetBehindAnUnknownAttributeFails)
{
    FakeMe other(101, {attribute(0x8000, 1, R | W), attribute(0x2000, 1, R | W)});
    other.add(1);
    EXPECT_EQ(padded("0940002000"), ask(MessageType::Set, 101, 1, "e000 11 22 33"));
    EXPECT_EQ("11", toHex(other.instances[1].values[0x8000]));
    EXPECT_EQ("00", toHex(other.instances[1].values[0x2000]));
}

TEST_F(Commands, SetThatExceedsABaselineFrameIsAParameterError)
{
    EXPECT_EQ("03", ask(MessageType::Set, 100, 1, "fc00").substr(0, 2));
    EXPECT_EQ(0U, me.applies);
}

TEST_F(Commands, MinusOneOfApplyIsAFailureForTheIpHostAlone)
{
    me.applyResult = -1;
    EXPECT_EQ(padded("00"), ask(MessageType::Set, 100, 1, "4000 01"));
    EXPECT_EQ(1U, onuData.dataSync);
    FakeMe ipHost(134, {attribute(0x8000, 1, R | W)});
    ipHost.add(1);
    ipHost.applyResult = -1;
    EXPECT_EQ(padded("01"), ask(MessageType::Set, 134, 1, "8000 01"));
    EXPECT_EQ(1U, onuData.dataSync);
    ipHost.applyResult = 0;
    EXPECT_EQ(padded("00"), ask(MessageType::Set, 134, 1, "8000 01"));
    EXPECT_EQ(2U, onuData.dataSync);
}

TEST_F(Commands, TheOltsOwnDataSyncValueStands)
{
    EXPECT_EQ(padded("00"), ask(MessageType::Set, 2, 0, "8000 00"));
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(ExtendedCommands, SetAnswersOneOctetOrTheMasks)
{
    EXPECT_EQ("00", ask(MessageType::Set, 100, 1, "4000 01"));
    me.refused = 0x4000;
    EXPECT_EQ("0900004000", ask(MessageType::Set, 100, 1, "4000 01"));
}

TEST_F(ExtendedCommands, TruncatedAndOversizedContentsAreParameterErrors)
{
    EXPECT_EQ("03", ask(MessageType::Set, 100, 1, "c000 1234"));
    EXPECT_EQ("03", ask(MessageType::Set, 100, 1, "4000 12 34"));
    EXPECT_EQ("03", ask(MessageType::Set, 100, 1, "40"));
    EXPECT_EQ(0U, me.applies);
    EXPECT_EQ("03", ask(MessageType::Get, 100, 1, "80").substr(0, 2));
    EXPECT_EQ("03", ask(MessageType::Get, 100, 1, "800000").substr(0, 2));
    EXPECT_EQ("03", ask(MessageType::GetCurrentData, 100, 1, "").substr(0, 2));
    EXPECT_EQ("03", ask(MessageType::GetNext, 100, 1, "1000").substr(0, 2));
    EXPECT_EQ("03", ask(MessageType::Delete, 100, 1, "00"));
    EXPECT_EQ(1U, me.instances.count(1));
    EXPECT_EQ("030000", ask(MessageType::Create, 100, 7, "1234"));
    EXPECT_EQ("030000", ask(MessageType::Create, 100, 7, "12345678"));
    EXPECT_EQ(0U, me.instances.count(7));
    EXPECT_EQ("03", ask(MessageType::MibReset, 2, 0, "00"));
    EXPECT_EQ("", ask(MessageType::MibUploadNext, 2, 0, "00"));
    EXPECT_EQ("0000", ask(MessageType::MibUpload, 2, 0, "00"));
}

TEST_F(Commands, CreateWritesTheSetByCreateValues)
{
    EXPECT_EQ(padded("00"), ask(MessageType::Create, 100, 7, "1234 56"));
    ASSERT_EQ(1U, me.instances.count(7));
    EXPECT_TRUE(me.instances[7].createdByOlt);
    EXPECT_EQ("1234", toHex(me.instances[7].values[0x8000]));
    EXPECT_EQ("56", toHex(me.instances[7].values[0x4000]));
    EXPECT_EQ(1U, me.applies);
    EXPECT_EQ(1U, onuData.dataSync);
}

TEST_F(Commands, CreateOfAnExistingInstanceLeavesIt)
{
    EXPECT_EQ(padded("07"), ask(MessageType::Create, 100, 1, "1234 56"));
    EXPECT_EQ("0000", toHex(me.instances[1].values[0x8000]));
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(Commands, CreateAndDeleteOfTheOnusOwnClassesAreNotSupported)
{
    me.creatable = false;
    EXPECT_EQ(padded("02"), ask(MessageType::Create, 100, 7, "1234 56"));
    EXPECT_EQ(padded("02"), ask(MessageType::Create, 100, 1, "1234 56"));
    EXPECT_EQ(padded("02"), ask(MessageType::Delete, 100, 1));
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(Commands, RefusedCreateIsDeletedAgain)
{
    me.refused = 0x4000;
    EXPECT_EQ(padded("034000"), ask(MessageType::Create, 100, 7, "1234 56"));
    EXPECT_EQ(0U, me.instances.count(7));
    EXPECT_EQ(0U, me.applies);
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(Commands, CreateThatEndsInAnExceptionIsDeletedAgain)
{
    me.throwsOnSet = true;
    EXPECT_EQ(padded("01"), ask(MessageType::Create, 100, 7, "1234 56"));
    EXPECT_EQ(0U, me.instances.count(7));
}

TEST_F(Commands, DeleteTakesTheInstanceAway)
{
    me.add(7, true);
    EXPECT_EQ(padded("00"), ask(MessageType::Delete, 100, 7));
    EXPECT_EQ(0U, me.instances.count(7));
    EXPECT_EQ(1U, onuData.dataSync);
}

TEST_F(Commands, DeleteOfTheOnusOwnInstanceSucceedsAndLeavesIt)
{
    EXPECT_EQ(padded("00"), ask(MessageType::Delete, 100, 1));
    EXPECT_EQ(1U, me.instances.count(1));
}

TEST_F(ExtendedCommands, SetTableWritesEachRow)
{
    EXPECT_EQ("00", ask(MessageType::SetTable, 100, 1, "1000 0101010101010101 0202020202020202"));
    EXPECT_EQ(2U, me.instances[1].rows[0x1000]);
    EXPECT_EQ(1U, onuData.dataSync);
    EXPECT_EQ(1U, me.applies);
}

TEST_F(ExtendedCommands, SetTableRefusesWhatIsNoTableOrNoWholeRow)
{
    EXPECT_EQ("03", ask(MessageType::SetTable, 100, 1, "8000 0101"));
    EXPECT_EQ("03", ask(MessageType::SetTable, 100, 1, "1000 010101010101"));
    EXPECT_EQ("03", ask(MessageType::SetTable, 100, 1, "1000"));
    EXPECT_EQ("03", ask(MessageType::SetTable, 100, 1, "1800 0101010101010101"));
    EXPECT_EQ("05", ask(MessageType::SetTable, 100, 9, "1000 0101010101010101"));
    me.refused = 0x1000;
    EXPECT_EQ("0900001000", ask(MessageType::SetTable, 100, 1, "1000 0101010101010101"));
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(Commands, SetTableIsExtendedOnly)
{
    EXPECT_EQ(padded("02"), ask(MessageType::SetTable, 100, 1, "1000 0101010101010101"));
}

TEST_F(Commands, GetNextWithoutTablesIsNotSupportedAndUnservedTablesFail)
{
    FakeMe plain(101, {attribute(0x8000, 1, R)});
    plain.add(1);
    EXPECT_EQ(padded("028000"), ask(MessageType::GetNext, 101, 1, "8000 0000"));
    EXPECT_EQ(padded("011000"), ask(MessageType::GetNext, 100, 1, "1000 0000"));
}

TEST_F(Commands, MibWideCommandsOnOtherClassesAreNotSupported)
{
    for (const MessageType type :
         {MessageType::MibReset, MessageType::StartSoftwareDownload, MessageType::EndSoftwareDownload,
          MessageType::DownloadSection, MessageType::ActivateImage, MessageType::CommitImage,
          MessageType::SynchronizeTime, MessageType::Reboot, MessageType::Test}) {
        EXPECT_EQ("02", ask(type, 100, 1, "07").substr(0, 2)) << messageTypeName(type);
    }
    for (const MessageType type : {MessageType::MibUpload, MessageType::GetAllAlarms, MessageType::MibUploadNext,
                                   MessageType::GetAllAlarmsNext}) {
        EXPECT_EQ(padded(""), ask(type, 100, 1)) << messageTypeName(type);
    }
    EXPECT_EQ(13U, dispatcher.statistics().results[2]);
}

TEST_F(Commands, UnknownMessageTypesAreNotSupported)
{
    EXPECT_EQ(padded("02"), ask(static_cast<MessageType>(5), 100, 1));
    EXPECT_EQ(padded("02"), ask(static_cast<MessageType>(31), 999, 1));
}

TEST_F(Commands, BaseBodiesAnswerAProcessingError)
{
    FakeMe image(7, {});
    image.add(0);
    FakeMe onuG(256, {});
    onuG.add(0);
    EXPECT_EQ(padded("01"), ask(MessageType::StartSoftwareDownload, 7, 0, "1f 00000001 00"));
    EXPECT_EQ(padded("0100"), ask(MessageType::DownloadSection, 7, 0, "05"));
    EXPECT_EQ(padded("01"), ask(MessageType::EndSoftwareDownload, 7, 0));
    EXPECT_EQ(padded("01"), ask(MessageType::ActivateImage, 7, 0));
    EXPECT_EQ(padded("01"), ask(MessageType::CommitImage, 7, 0));
    EXPECT_EQ(padded("01"), ask(MessageType::Reboot, 256, 0));
    EXPECT_EQ(padded("01"), ask(MessageType::SynchronizeTime, 256, 0));
    EXPECT_EQ(padded("02"), ask(MessageType::Test, 256, 0, "07"));
}

TEST_F(Commands, ExceptionsBecomeProcessingErrors)
{
    me.throws = true;
    EXPECT_EQ("01", ask(MessageType::Get, 100, 1, "8000").substr(0, 2));
    EXPECT_EQ(1U, dispatcher.statistics().exceptions);
    me.throws = false;
    EXPECT_EQ("00", ask(MessageType::Get, 100, 1, "8000").substr(0, 2));
}

TEST_F(Commands, ExceptionsAreLoggedWithTheEntity)
{
    std::vector<std::string> lines;
    Logger::getInstance(kHostLoggerId)
        ->setObserver(
            [](const Logger::Line& line, void* context) {
                static_cast<std::vector<std::string>*>(context)->push_back(std::to_string(line.level) + line.text);
            },
            &lines);
    me.throws = true;
    ask(MessageType::Get, 100, 1, "8000");
    Logger::getInstance(kHostLoggerId)->setObserver(nullptr, nullptr);
    ASSERT_EQ(1U, lines.size());
    EXPECT_EQ("3Managed entity(100; 1); get failed(row out of range)", lines[0]);
}
