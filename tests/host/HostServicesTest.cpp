// Factory, manager, HAL factory and logger.

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "FakeMe.h"
#include "host/LogSink.h"
#include "omci_host/HALFactory.h"
#include "omci_host/Logger.h"
#include "omci_host/OmciMeManager.h"
#include "omci_host/OmciMessage.h"
#include <spdlog/sinks/ostream_sink.h>
#include <spdlog/sinks/stdout_color_sinks.h>
#include <sstream>

TEST(OmciMeFactory, WalksInAscendingClassOrder)
{
    OmciMeFactory& factory = *OmciMeFactory::getInstance();
    EXPECT_EQ(nullptr, factory.getFirstManagedEntity());
    FakeMe high(65422, {});
    FakeMe low(5, {});
    EXPECT_EQ(&low, factory.getFirstManagedEntity());
    EXPECT_EQ(&high, factory.getNextManagedEntity(5));
    EXPECT_EQ(&high, factory.getNextManagedEntity(100));
    EXPECT_EQ(nullptr, factory.getNextManagedEntity(65422));
    EXPECT_EQ(nullptr, factory.getManagedEntity(6));
    EXPECT_EQ(0, factory.unregisterManagedEntity(5));
    EXPECT_EQ(nullptr, factory.getManagedEntity(5));
    EXPECT_EQ(-1, factory.registerManagedEntity(7, nullptr));
}

TEST(OmciMeFactory, KeepsNeighboursAndClassesFarApart)
{
    OmciMeFactory& factory = *OmciMeFactory::getInstance();
    FakeMe first(0, {});
    FakeMe endOfPage(255, {});
    FakeMe beginOfPage(256, {});
    FakeMe last(65535, {});
    EXPECT_EQ(&first, factory.getFirstManagedEntity());
    EXPECT_EQ(&endOfPage, factory.getNextManagedEntity(0));
    EXPECT_EQ(&beginOfPage, factory.getNextManagedEntity(255));
    EXPECT_EQ(&last, factory.getNextManagedEntity(256));
    EXPECT_EQ(nullptr, factory.getNextManagedEntity(65535));
    EXPECT_EQ(&last, factory.getManagedEntity(65535));
    EXPECT_EQ(nullptr, factory.getManagedEntity(511));
}

TEST(OmciMeManager, KnowsTheSizeOfEveryAttributeOfAnyList)
{
    FakeMe me(100, {attribute(0x8000, 2, R), attribute(0x4000, 25, W), attribute(0x2000, 17, N, true)});
    OmciMeManager& manager = *OmciMeManager::getInstance();
    unsigned char size = 0;
    EXPECT_EQ(0, manager.getAttributeSize(100, 0x8000, &size));
    EXPECT_EQ(2, size);
    EXPECT_EQ(0, manager.getAttributeSize(100, 0x4000, &size));
    EXPECT_EQ(25, size);
    EXPECT_EQ(0, manager.getAttributeSize(100, 0x2000, &size));
    EXPECT_EQ(17, size);
    EXPECT_NE(0, manager.getAttributeSize(100, 0x1000, &size));
    EXPECT_NE(0, manager.getAttributeSize(100, 0xC000, &size));
    EXPECT_NE(0, manager.getAttributeSize(100, 0, &size));
    EXPECT_NE(0, manager.getAttributeSize(101, 0x8000, &size));
    EXPECT_NE(0, manager.getAttributeSize(100, 0x8000, nullptr));
    EXPECT_EQ(17, size);
}

TEST(OmciMeManager, AsksAnAdapterOnceAndItsSuccessorAgain)
{
    unsigned char size = 0;
    FakeMe first(100, {attribute(0x8000, 2, R)});
    OmciMeManager::getInstance()->getAttributeSize(100, 0x8000, &size);
    const unsigned reads = first.listReads;
    OmciMeManager::getInstance()->getAttributeSize(100, 0x8000, &size);
    EXPECT_EQ(reads, first.listReads);
    FakeMe second(100, {attribute(0x8000, 4, R)});
    EXPECT_EQ(0, OmciMeManager::getInstance()->getAttributeSize(100, 0x8000, &size));
    EXPECT_EQ(4, size);
}

TEST(OmciMessage, CopiesItsBytes)
{
    unsigned char bytes[] = {1, 2, 3};
    OmciMessage message(bytes, 3);
    bytes[0] = 9;
    EXPECT_EQ(3, message.getMessageLength());
    EXPECT_EQ(1, message.getMessage()[0]);
    EXPECT_EQ(0, OmciMessage().getMessageLength());
    EXPECT_EQ(0, OmciMessage(nullptr, 5).getMessageLength());
}

TEST(HALFactory, YieldsWhatTheHostHasSet)
{
    struct Hal : NrvkHal
    {
        std::string halGetPrimaryMacAddress(std::string) override { return "00:11:22:33:44:55"; }
        std::string halGetSecondaryMacAddress(std::string) override { return "00:11:22:33:44:56"; }
    } hal;
    HALFactory::getInstance()->setHal(&hal);
    EXPECT_EQ(static_cast<NrvkHal*>(&hal), HALFactory::getInstance()->CreateHALObject(0));
    HALFactory::getInstance()->setHal(nullptr);
    EXPECT_EQ(nullptr, HALFactory::getInstance()->CreateHALObject(0));
}

namespace {

struct Seen
{
    std::vector<std::string> lines;
    static void take(const Logger::Line& line, void* context)
    {
        static_cast<Seen*>(context)->lines.push_back(std::to_string(line.level) + " " + line.function + " " +
                                                     line.file + ":" + std::to_string(line.line) + " " + line.text);
    }
};

class LoggerTest : public testing::Test
{
protected:
    LoggerTest() { omci::setLogSink(std::make_shared<spdlog::sinks::ostream_sink_mt>(text)); }
    ~LoggerTest() override
    {
        omci::setLogSink(std::make_shared<spdlog::sinks::stderr_color_sink_mt>());
        logger.setLevel(6);
        logger.setObserver(nullptr, nullptr);
    }

    std::ostringstream text;
    Logger& logger = *Logger::getInstance(150);
};

}  // namespace

TEST_F(LoggerTest, OneObjectPerId)
{
    EXPECT_EQ(Logger::getInstance(150), Logger::getInstance(150));
    EXPECT_NE(Logger::getInstance(150), Logger::getInstance(151));
    EXPECT_EQ(Logger::getInstance(100000), Logger::getInstance(100000));
    EXPECT_EQ(6, Logger::getInstance(152)->getLevel());
}

TEST_F(LoggerTest, LinesAboveTheLevelAreDropped)
{
    logger.setLevel(4);
    logger.writeToLog(0, "setArc", "src/x.cpp", 12, 5, "Notice(%d)", 1);
    EXPECT_EQ("", text.str());
    logger.writeToLog(0, "setArc", "src/x.cpp", 12, 4, "Warning(%d)", 2);
    EXPECT_NE(std::string::npos, text.str().find("src/x.cpp:12 setArc: Warning(2)"));
}

TEST_F(LoggerTest, ObserverGetsEveryLineOfEveryLevel)
{
    Seen seen;
    logger.setLevel(2);
    logger.setObserver(&Seen::take, &seen);
    logger.writeToLog(0, "setArc", "src/x.cpp", 12, 7, "Arc(%hhu)", 1);
    EXPECT_EQ(std::vector<std::string>{"7 setArc src/x.cpp:12 Arc(1)"}, seen.lines);
    EXPECT_EQ("", text.str());
    logger.setLevel(3);
    logger.writeToLog(0, "f", "x", 1, 6, "again");
    EXPECT_EQ(2U, seen.lines.size());
    logger.setObserver(nullptr, nullptr);
    logger.writeToLog(0, "f", "x", 1, 6, "gone");
    EXPECT_EQ(2U, seen.lines.size());
}

TEST_F(LoggerTest, SinkGetsTheSeverityOfTheLevel)
{
    logger.setLevel(7);
    const char* const severities[] = {"critical", "critical", "critical", "error", "warning", "info", "info", "debug"};
    for (unsigned char level = 0; level < 8; ++level) {
        text.str("");
        logger.writeToLog(0, "f", "x", 1, level, "Line");
        EXPECT_NE(std::string::npos, text.str().find(severities[level])) << text.str();
    }
}

TEST_F(LoggerTest, IdsMayBeNegative)
{
    Logger* const negative = Logger::getInstance(-1);
    ASSERT_NE(nullptr, negative);
    EXPECT_EQ(negative, Logger::getInstance(-1));
    EXPECT_NE(negative, Logger::getInstance(-2));
}

TEST_F(LoggerTest, LongLinesAreWhole)
{
    Seen seen;
    logger.setLevel(0);
    logger.setObserver(&Seen::take, &seen);
    const std::string longText(5000, 'x');
    logger.writeToLog(0, "f", "x", 1, 6, "%s", longText.c_str());
    EXPECT_EQ("6 f x:1 " + longText, seen.lines.at(0));
}

TEST_F(LoggerTest, ThreadsMayLogTogether)
{
    logger.setLevel(6);
    std::vector<std::thread> threads;
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back([this] {
            for (int line = 0; line < 200; ++line) {
                Logger::getInstance(150)->writeToLog(0, "f", "x", 1, 6, "Line(%d)", line);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::string const all = text.str();
    EXPECT_EQ(800, std::count(all.begin(), all.end(), '\n'));
}
