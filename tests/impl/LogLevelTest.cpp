// Lines that the host drops: whether they are made is asked of the host's own level.
#include "LibraryTest.h"
#include "Logger.h"
#include "OmciManagedEntityRegistrar.h"
#include "impl/Log.h"

namespace {

class LogLevel : public LibraryTest
{
protected:
    LogLevel()
    {
        nrvk::logger();
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
    }
    ~LogLevel() override { Logger::getInstance(150)->setLevel(6); }
};

TEST_F(LogLevel, LinesAboveTheHostsLevelAreDropped)
{
    Logger::getInstance(150)->setLevel(5);
    EXPECT_TRUE(nrvk::isDropped(6));
    EXPECT_FALSE(nrvk::isDropped(5));
}

TEST_F(LogLevel, AChangeOfTheLevelShowsAtOnce)
{
    Logger::getInstance(150)->setLevel(3);
    EXPECT_TRUE(nrvk::isDropped(4));
    Logger::getInstance(150)->setLevel(7);
    EXPECT_FALSE(nrvk::isDropped(7));
}

TEST_F(LogLevel, NothingIsDroppedForAnObserver)
{
    Logger::getInstance(150)->setLevel(2);
    Logger::getInstance(150)->setObserver([](const Logger::Line&, void*) {}, nullptr);
    EXPECT_FALSE(nrvk::isDropped(7));
    Logger::getInstance(150)->setObserver(nullptr, nullptr);
    EXPECT_TRUE(nrvk::isDropped(3));
}

TEST_F(LogLevel, TheLevelOfAnotherLoggerIsNotAsked)
{
    Logger::getInstance(150)->setLevel(5);
    Logger::getInstance(1)->setLevel(7);
    EXPECT_TRUE(nrvk::isDropped(6));
    Logger::getInstance(1)->setLevel(6);
}

TEST_F(LogLevel, ArgumentsOfARenderedLineAreEvaluatedForAReaderOnly)
{
    int evaluated = 0;
    const auto render = [&evaluated] {
        ++evaluated;
        return "text";
    };
    Logger::getInstance(150)->setLevel(2);
    NRVK_LOG_RENDERED(3, "Row(%s)", render());
    EXPECT_EQ(evaluated, 0);
    Logger::getInstance(150)->setObserver([](const Logger::Line&, void*) {}, nullptr);
    NRVK_LOG_RENDERED(3, "Row(%s)", render());
    EXPECT_EQ(evaluated, 1);
}

}  // namespace
