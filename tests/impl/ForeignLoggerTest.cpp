// A host whose logger tells no level gets every line, as the contract asks. Its logger is made here, in place of the
// thin host's.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "Logger.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "attributeDefinition.h"

namespace {

std::vector<std::string>& lines()
{
    static std::vector<std::string> all;
    return all;
}

}  // namespace

Logger* Logger::getInstance(int /*id*/)
{
    static Logger logger;
    return &logger;
}

void Logger::writeToLog(signed char /*reserved*/, const std::string& function, const std::string& /*file*/,
                        unsigned int /*line*/, unsigned char level, const char* format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    lines().push_back(std::to_string(level) + ' ' + function + ' ' + text);
}

TEST(ForeignLogger, GetsTheLinesOfEveryLevel)
{
    constexpr unsigned short aniG = 263;
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    ASSERT_EQ(registrar->registerManagedEntity(aniG), 0);
    ASSERT_EQ(registrar->createManagedEntityInstance(aniG, 1025), 0);
    const OmciMe& me = *OmciMeFactory::getInstance()->getManagedEntity(aniG);
    attributeDefinition definition{};
    definition.attributeMask = 0x2000;
    unsigned char value[8] = {0, 48};
    lines().clear();

    ASSERT_EQ(me.setAttribute(1025, &definition, value), 0);
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0].rfind("6 setAttribute Instance(1025); Attribute definition(", 0), 0U) << lines()[0];
    EXPECT_EQ(lines()[1], "6 setGemBlockLength Instance(1025); Value(48)");

    lines().clear();
    EXPECT_EQ(me.setAttribute(9, &definition, value), -1);
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_EQ(lines()[1], "6 getManagedEntityInstance Instance(9) not found");
    EXPECT_EQ(lines()[2], "3 setAttribute Instance(9) not found");
}
