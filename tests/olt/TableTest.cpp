#include "terminal/Table.h"

#include <gtest/gtest.h>

namespace olt {

namespace {

Table sample()
{
    Table table({{"#", Table::Align::Right}, {"Name"}, {"Value"}});
    table.add({"1", "Short", "abc"});
    table.add({"10", "LongerName", "0123456789012345678901234567890123456789"});
    return table;
}

TEST(Table, ColumnsAlign)
{
    const Terminal pipe(false, 0, false);
    EXPECT_EQ(sample().text(pipe), " #  Name        Value\n"
                                   " 1  Short       abc\n"
                                   "10  LongerName  0123456789012345678901234567890123456789\n");
}

TEST(Table, LastColumnContinuesBelowItself)
{
    const Terminal narrow(false, 36, false);
    EXPECT_EQ(sample().text(narrow), " #  Name        Value\n"
                                     " 1  Short       abc\n"
                                     "10  LongerName  01234567890123456789\n"
                                     "                01234567890123456789\n");
}

TEST(Table, StyleDoesNotCountAsWidth)
{
    const Terminal colour(true, 0, false);
    Table table({{""}, {""}});
    table.add({{"a", Style::Red}, "x"});
    table.add({"bb", "y"});
    EXPECT_EQ(table.text(colour), "\033[31ma \033[0m  x\nbb  y\n");
}

}  // namespace

}  // namespace olt
