// The image description file becomes the two software image entities.
#include "CoreTest.h"
#include "implExtended/OmciMeSoftwareImageImplExtended.h"

namespace {

using Core = OmciManagedEntitiesCore;

constexpr const char* kDescription = "/opt/addons/etc/appinfo.ini";
constexpr const char* kResetBootCounter = "/etc/init.d/rcBSP -reset_app_boot_cnt";

const std::string kTypical = "APP1_SW_VERSION=1.0.7\nAPP1_COMMIT=1\nAPP1_ACTIVE=1\nAPP1_VALID=1\nAPP1_PART_SEL=1\n"
                             "APP2_SW_VERSION=1.0.6\nAPP2_COMMIT=0\nAPP2_ACTIVE=0\nAPP2_VALID=1\nAPP2_PART_SEL=2\n";

class SoftwareImages : public CoreTest
{
protected:
    SoftwareImages() { startUp(); }
    ~SoftwareImages() override { removeFile(kDescription); }

    int update(const std::string& contents)
    {
        writeFile(kDescription, contents);
        Core core;
        log.clear();
        Sandbox::clearCommands();
        PrintedText output;
        const int result = core.updateSoftwareImageMEs();
        printed = output.get();
        return result;
    }

    static std::string flags(int commit1, int active1, int commit2, int active2)
    {
        return "APP1_PART_SEL=1\nAPP2_PART_SEL=2\nAPP1_COMMIT=" + std::to_string(commit1) +
               "\nAPP1_ACTIVE=" + std::to_string(active1) + "\nAPP2_COMMIT=" + std::to_string(commit2) +
               "\nAPP2_ACTIVE=" + std::to_string(active2) + "\n";
    }

    std::string printed;
};

TEST_F(SoftwareImages, BothSlotsAreWrittenInTheirOrder)
{
    EXPECT_EQ(update(kTypical), 0);
    EXPECT_EQ(updates(), (Texts{"7; 0; 0x8000 = 1.0.7", "7; 0; 0x4000 = 1", "7; 0; 0x2000 = 1", "7; 0; 0x1000 = 1",
                                "7; 1; 0x8000 = 1.0.6", "7; 1; 0x4000 = 0", "7; 1; 0x2000 = 0", "7; 1; 0x1000 = 1"}));
    EXPECT_EQ(stored(7, 0, 0x4000), Bytes{1});
}

TEST_F(SoftwareImages, ReadThatOutlastsItsLimitDoesNotBeginAnother)
{
    writeFile(kDescription, kTypical);
    int changes = 0;
    ON_CALL(hardware, sendAttributeValueChange(testing::_)).WillByDefault([&changes](OmciMessage*) {
        ++changes;
        OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler({});
        return 0;
    });
    OmciMeSoftwareImageImplExtended::softwareVersionTimerHandler({});
    PrintedText output;
    log.clear();
    get(7, 0, 0x8000);
    output.get();
    EXPECT_GT(changes, 0);
    EXPECT_EQ(log.texts(3).size(), 2U) << "one line for each slot";
}

TEST_F(SoftwareImages, EachSlotIsLoggedAndPrinted)
{
    update(kTypical);
    const std::string first = "SwImage-0 : version(1.0.7), commit(1), active(1), valid(1), partSelected(0)";
    const std::string second = "SwImage-1 : version(1.0.6), commit(0), active(0), valid(1), partSelected(1)";
    EXPECT_EQ(log.texts(3), (Texts{first, second}));
    EXPECT_EQ(printed, first + "\n" + second + "\n");
}

TEST_F(SoftwareImages, PartitionAndNotSlotNamesTheInstance)
{
    EXPECT_EQ(update("APP1_SW_VERSION=one\nAPP1_PART_SEL=2\nAPP2_SW_VERSION=two\nAPP2_PART_SEL=1\n"), 0);
    EXPECT_EQ(updates()[0], "7; 1; 0x8000 = one");
    EXPECT_EQ(updates()[4], "7; 0; 0x8000 = two");
}

TEST_F(SoftwareImages, WithoutPartitionsTheSecondSlotOverwritesTheFirst)
{
    EXPECT_EQ(update("APP1_SW_VERSION=one\nAPP2_SW_VERSION=two\n"), 0);
    EXPECT_EQ(updates()[0], "7; 0; 0x8000 = one");
    EXPECT_EQ(updates()[4], "7; 0; 0x8000 = two");
    EXPECT_EQ(stored(7, 0, 0x8000)[1], 'w');
}

TEST_F(SoftwareImages, MissingKeysTakeTheirDefaults)
{
    EXPECT_EQ(update("\n"), 0);
    EXPECT_EQ(updates()[0], "7; 0; 0x8000 = ");
    EXPECT_EQ(updates()[1], "7; 0; 0x4000 = 0");
    EXPECT_EQ(log.texts(3)[0], "SwImage-0 : version(), commit(0), active(0), valid(0), partSelected(0)");
}

TEST_F(SoftwareImages, NumbersAreKeptToEightBits)
{
    update("APP1_COMMIT=257\nAPP1_ACTIVE=256\nAPP1_PART_SEL=257\nAPP2_PART_SEL=2\nAPP2_COMMIT=text\n");
    EXPECT_EQ(updates()[1], "7; 0; 0x4000 = 1");
    EXPECT_EQ(updates()[2], "7; 0; 0x2000 = 0");
    EXPECT_EQ(updates()[5], "7; 1; 0x4000 = 0");
}

TEST_F(SoftwareImages, LongVersionIsPassedWhole)
{
    update("APP1_SW_VERSION=0123456789ABCDEF\nAPP2_PART_SEL=2\n");
    EXPECT_EQ(updates()[0], "7; 0; 0x8000 = 0123456789ABCDEF");
}

struct BootCounterRule
{
    int commit1, active1, commit2, active2;
    bool reset;
};

TEST_F(SoftwareImages, BootCounterIsResetWhenEachSlotRunsAsItWasCommitted)
{
    const BootCounterRule rules[] = {{1, 1, 0, 0, true},  {0, 0, 0, 0, true},  {1, 1, 1, 1, true},
                                     {1, 0, 0, 0, false}, {0, 0, 1, 0, false}, {1, 0, 0, 1, false}};
    for (const BootCounterRule& rule : rules) {
        SCOPED_TRACE(flags(rule.commit1, rule.active1, rule.commit2, rule.active2));
        EXPECT_EQ(update(flags(rule.commit1, rule.active1, rule.commit2, rule.active2)), 0);
        EXPECT_EQ(Sandbox::commands(), rule.reset ? Texts{kResetBootCounter} : Texts{});
        EXPECT_EQ(log.has(4, kResetBootCounter), rule.reset);
    }
}

TEST_F(SoftwareImages, FailureOfTheLastSlotFails)
{
    EXPECT_EQ(update("APP1_PART_SEL=1\nAPP2_PART_SEL=4\n"), -1);
    EXPECT_TRUE(log.has(4, "Failed to update one or more attributes"));
    EXPECT_EQ(Sandbox::commands(), Texts{kResetBootCounter}) << "the boot counter comes first";
}

TEST_F(SoftwareImages, FailureOfTheFirstSlotIsNotSeen)
{
    EXPECT_EQ(update("APP1_PART_SEL=4\nAPP2_PART_SEL=2\n"), 0);
    EXPECT_FALSE(log.has(4, "Failed to update one or more attributes"));
}

TEST_F(SoftwareImages, FileThatIsMissingLeavesTheAttributesAlone)
{
    removeFile(kDescription);
    log.clear();
    EXPECT_EQ(Core().updateSoftwareImageMEs(), -1);
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kDescription + ")"));
    EXPECT_TRUE(updates().empty());
    EXPECT_TRUE(Sandbox::commands().empty());
}

TEST_F(SoftwareImages, DescriptionMayLieElsewhere)
{
    writeFile("/opt/other.ini", kTypical);
    Core core;
    core.setSoftwareVersionConfigurationFile("/opt/other.ini");
    EXPECT_EQ(core.updateSoftwareImageMEs(), 0);
    removeFile("/opt/other.ini");
}

TEST_F(SoftwareImages, CommitMovesToTheOtherSlotClearingFirst)
{
    std::string first;
    std::string second;
    writeFile(kDescription, "APP1_COMMIT=1\n");
    EXPECT_EQ(Core().buildCommitCommands(first, second), 0);
    EXPECT_EQ(first, "/etc/init.d/rcBSP -set_commit 1 0");
    EXPECT_EQ(second, "/etc/init.d/rcBSP -set_commit 2 1");
    for (const char* other : {"APP2_COMMIT=1\n", "APP1_COMMIT=2\n", "\n"}) {
        writeFile(kDescription, other);
        EXPECT_EQ(Core().buildCommitCommands(first, second), 0);
        EXPECT_EQ(first, "/etc/init.d/rcBSP -set_commit 2 0");
        EXPECT_EQ(second, "/etc/init.d/rcBSP -set_commit 1 1");
    }
    EXPECT_TRUE(Sandbox::commands().empty()) << "building runs nothing";
}

TEST_F(SoftwareImages, WithoutADescriptionThereAreNoCommitCommands)
{
    removeFile(kDescription);
    std::string first = "untouched";
    std::string second = "untouched";
    EXPECT_EQ(Core().buildCommitCommands(first, second), -1);
    EXPECT_EQ(first + second, "untoucheduntouched");
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kDescription + ")"));
}

class ImageTexts : public SoftwareImages
{
protected:
    void update(unsigned char index)
    {
        for (auto& field : values) {
            std::snprintf(reinterpret_cast<char*>(field), sizeof field, "old");
        }
        log.clear();
        Core::updateSoftwareImage(index, values, "/opt/addons/etc/never-read.ini");
    }

    Core::AttributeValues values{};
};

TEST_F(ImageTexts, ComeFromTheSlotOfThePartition)
{
    writeFile(kDescription, "APP1_SW_VERSION=one\nAPP1_PART_SEL=2\nAPP1_COMMIT=1\nAPP1_VALID=1\n"
                            "APP2_SW_VERSION=two\nAPP2_PART_SEL=1\nAPP2_ACTIVE=1\n");
    update(1);
    EXPECT_EQ(text(values, 0x8000), "one");
    EXPECT_EQ(text(values, 0x4000), "1");
    EXPECT_EQ(text(values, 0x2000), "0");
    EXPECT_EQ(text(values, 0x1000), "1");
    EXPECT_EQ(text(values, 0x800), "old");
    EXPECT_TRUE(log.has(4, "SwImage-0 : version(one), commit(1), active(0), valid(1), partSelected(1)"));
    EXPECT_TRUE(log.has(6, "Index(hhu)"));
    update(0);
    EXPECT_EQ(text(values, 0x8000), "two");
    EXPECT_EQ(text(values, 0x2000), "1");
    EXPECT_TRUE(log.has(4, "SwImage-1 : version(two), commit(0), active(1), valid(0), partSelected(0)"));
}

TEST_F(ImageTexts, VersionIsCutToTwelveCharacters)
{
    writeFile(kDescription, "APP1_SW_VERSION=0123456789ABCDEF\n");
    update(0);
    EXPECT_EQ(text(values, 0x8000), "0123456789AB");
}

TEST_F(ImageTexts, AlwaysComeFromTheBoardsOwnFile)
{
    Core().setSoftwareVersionConfigurationFile("/opt/other.ini");
    writeFile(kDescription, "APP1_SW_VERSION=one\n");
    update(0);
    EXPECT_EQ(text(values, 0x8000), "one");
}

TEST_F(ImageTexts, StayWithoutAFile)
{
    removeFile(kDescription);
    update(0);
    EXPECT_EQ(text(values, 0x8000), "old");
    EXPECT_TRUE(log.has(3, std::string("Can't load file(") + kDescription + ")"));
}

}  // namespace
