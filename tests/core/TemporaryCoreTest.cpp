// A core object that is made to reach the update entries for a moment.
#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>

#include "CoreTest.h"
#include "Logger.h"

namespace {

using Core = OmciManagedEntitiesCore;
constexpr Core::WithoutRecords kWithoutRecords{};

class TemporaryCore : public CoreTest
{
protected:
    using Table = std::vector<DefaultConfigManagedEntity>;

    static Table table()
    {
        return {std::begin(Core::defaultConfigManagedEntity), std::end(Core::defaultConfigManagedEntity)};
    }
    /// Clears the texts of each row that has a function to write them.
    static void spoilTexts()
    {
        for (DefaultConfigManagedEntity& row : Core::defaultConfigManagedEntity) {
            if (row.updateFunction != nullptr) {
                std::memset(row.attributeValues, 'x', sizeof row.attributeValues);
                row.attributeValues[15][25] = 0;
            }
        }
    }
    static bool sameTexts(const Table& one, const Table& other)
    {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](const auto& left, const auto& right) {
            return left.instanceCount == right.instanceCount &&
                   std::memcmp(left.attributeValues, right.attributeValues, sizeof left.attributeValues) == 0;
        });
    }
    std::vector<std::string> linesOf(const std::function<void()>& what)
    {
        log.clear();
        what();
        std::vector<std::string> found;
        for (const LogLine& line : log.lines()) {
            found.push_back(std::to_string(line.level) + ' ' + line.function + ' ' + line.text);
        }
        return found;
    }
};

TEST_F(TemporaryCore, HasNoRecords)
{
    const Core core(kWithoutRecords);
    std::vector<StartupConfigManagedEntity> found;
    core.getManagedEntitiesCore(found);
    EXPECT_TRUE(found.empty());
}

TEST_F(TemporaryCore, LogsTheLinesOfAnOrdinaryOneInTheirOrder)
{
    const auto ordinary = linesOf([] { const Core core; });
    ASSERT_GT(ordinary.size(), 88U);
    EXPECT_EQ(ordinary.front(), "6 init Factory file()");
    EXPECT_EQ(ordinary.back(), "6 init Number of managed entities supported(88)");
    EXPECT_THAT(ordinary, ::testing::Contains("6 buildAttributeValueMap Managed entity(263; 1025) to build"));
    EXPECT_EQ(linesOf([] { const Core core(kWithoutRecords); }), ordinary);
}

TEST_F(TemporaryCore, EditsTheStartupTableAsAnOrdinaryOneDoes)
{
    const Table original = table();
    spoilTexts();
    {
        const Core core;
    }
    const Table ordinary = table();
    // With and without a reader of the lines: these are different roads.
    for (const unsigned char level : {6, 2}) {
        std::copy(original.begin(), original.end(), std::begin(Core::defaultConfigManagedEntity));
        spoilTexts();
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
        Logger::getInstance(150)->setLevel(level);
        {
            const Core core(kWithoutRecords);
        }
        EXPECT_TRUE(sameTexts(table(), ordinary)) << "level " << static_cast<int>(level);
    }
    std::copy(original.begin(), original.end(), std::begin(Core::defaultConfigManagedEntity));
    Logger::getInstance(150)->setLevel(6);
}

TEST_F(TemporaryCore, NumbersTheInstancesOfEachRow)
{
    static unsigned int asked = 0;
    Logger::getInstance(150)->setObserver(nullptr, nullptr);
    Logger::getInstance(150)->setLevel(2);
    DefaultConfigManagedEntity& row = Core::defaultConfigManagedEntity[0];
    const DefaultConfigManagedEntity original = row;
    row.instanceCount = 3;
    row.instanceFunction = [](unsigned char index) {
        ++asked;
        return static_cast<unsigned short>(index);
    };
    {
        const Core core(kWithoutRecords);
    }
    row = original;
    Logger::getInstance(150)->setLevel(6);
    EXPECT_EQ(asked, 3U);
}

TEST_F(TemporaryCore, AddsADefaultRecordToThePicture)
{
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    startUp();
    StartupConfigManagedEntity record;
    log.clear();
    EXPECT_EQ(Core(kWithoutRecords).getDefaultConfigManagedEntity(263, 1030, record), 0);
    EXPECT_TRUE(log.has(6, "Number of managed entities supported(88)"));
    std::vector<StartupConfigManagedEntity> picture;
    registrar->getConfigManagedEntityVector(picture);
    const auto aniG = std::find_if(picture.begin(), picture.end(), [](const auto& one) { return one.classId == 263; });
    ASSERT_NE(aniG, picture.end());
    EXPECT_EQ(aniG->instances.back(), 1030);
}

}  // namespace
