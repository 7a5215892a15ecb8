#include "model/Value.h"

#include <gtest/gtest.h>

#include "model/Errors.h"

namespace olt {

namespace {

Attribute attribute(Kind kind, std::size_t size, Form form = Form::Plain, const char* name = "Sample")
{
    Attribute made;
    made.name = name;
    made.number = 1;
    made.mask = 0x8000;
    made.kind = kind;
    made.size = size;
    made.form = form;
    return made;
}

std::string complaint(const Attribute& about, const char* text)
{
    try {
        static_cast<void>(parseValue(about, text));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(ParseValue, NumbersInBothBases)
{
    EXPECT_EQ(parseValue(attribute(Kind::U8, 1), "255"), Bytes({0xFF}));
    EXPECT_EQ(parseValue(attribute(Kind::U16, 2), "0x1234"), Bytes({0x12, 0x34}));
    EXPECT_EQ(parseValue(attribute(Kind::U32, 4), "4294967295"), Bytes({0xFF, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(parseValue(attribute(Kind::U64, 8), "0xFFFFFFFFFFFFFFFF"), Bytes(8, 0xFF));
}

TEST(ParseValue, SignedNumbers)
{
    EXPECT_EQ(parseValue(attribute(Kind::S8, 1), "-128"), Bytes({0x80}));
    EXPECT_EQ(parseValue(attribute(Kind::S16, 2), "-2"), Bytes({0xFF, 0xFE}));
    EXPECT_EQ(parseValue(attribute(Kind::S16, 2), "32767"), Bytes({0x7F, 0xFF}));
    EXPECT_NE(complaint(attribute(Kind::S8, 1), "128").find("-128 to 127 fit"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::S8, 1), "-129").find("out of range"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::S8, 1), "-").find("isn't a number"), std::string::npos);
}

TEST(ParseValue, RangeFollowsTheOctetsAndTheKind)
{
    EXPECT_NE(complaint(attribute(Kind::U16, 2), "65536").find("0 to 65535 fit"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::U16, 1), "256").find("0 to 255 fit"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::U32, 5), "4294967296").find("0 to 4294967295 fit"), std::string::npos);
    EXPECT_EQ(parseValue(attribute(Kind::U32, 5), "1"), Bytes({0, 0, 0, 0, 1}));
    EXPECT_NE(complaint(attribute(Kind::U8, 1), "-1").find("0 to 255 fit"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::U64, 8), "18446744073709551616").find("isn't a number"), std::string::npos);
}

TEST(ParseValue, RubbishIsNoNumber)
{
    for (const char* const text : {"", "0x", "12x", " 1", "1 ", "+1", "0x1G", "1.5"})
        EXPECT_NE(complaint(attribute(Kind::U8, 1), text).find("isn't a number"), std::string::npos) << text;
}

TEST(ParseValue, StatesByTheirWord)
{
    const auto state = attribute(Kind::U8, 1, Form::Plain, "AdministrativeState");
    EXPECT_EQ(parseValue(state, "Locked"), Bytes({1}));
    EXPECT_EQ(parseValue(state, "unlocked"), Bytes({0}));
    EXPECT_EQ(parseValue(attribute(Kind::U8, 1, Form::Plain, "OperationalState"), "disabled"), Bytes({1}));
    EXPECT_NE(complaint(attribute(Kind::U8, 1), "locked").find("isn't a number"), std::string::npos);
}

TEST(ParseValue, TextAndHexadecimalAreFilledWithZeros)
{
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 4), "ab"), Bytes({'a', 'b', 0, 0}));
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 3), "0x84"), Bytes({0x84, 0, 0}));
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 4), "text:0x84"), Bytes({'0', 'x', '8', '4'}));
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 2), ""), Bytes({0, 0}));
    EXPECT_EQ(parseValue(attribute(Kind::Table, 3), "0x010203"), Bytes({1, 2, 3}));
    EXPECT_NE(complaint(attribute(Kind::Octets, 3), "abcd").find("has 4 octets; 3 fit"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::Octets, 3), "0x8").find("whole number of octets"), std::string::npos);
    EXPECT_NE(complaint(attribute(Kind::Octets, 3), "0x").find("whole number of octets"), std::string::npos);
}

TEST(ParseValue, Addresses)
{
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 4, Form::Ipv4), "192.168.0.1"), Bytes({192, 168, 0, 1}));
    EXPECT_EQ(parseValue(attribute(Kind::U32, 4), "10.0.0.255"), Bytes({10, 0, 0, 255}));
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 6, Form::Mac), "00-1A-2b-3c-4d-5e"),
              Bytes({0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E}));
    Bytes loopback(16);
    loopback.back() = 1;
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 16, Form::Ipv6), "::1"), loopback);
    EXPECT_EQ(complaint(attribute(Kind::Octets, 4, Form::Ipv4), "300.1.1.1").find("accepted"), std::string::npos);
}

TEST(ParseValue, SerialNumberAsPrinted)
{
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 8, Form::SerialNumber), "ABCD12345678"),
              Bytes({'A', 'B', 'C', 'D', 0x12, 0x34, 0x56, 0x78}));
}

TEST(ParseValue, UnknownSizeTakesOctetsOnly)
{
    EXPECT_EQ(parseValue(attribute(Kind::Octets, 0), "0x0102"), Bytes({1, 2}));
    EXPECT_NE(complaint(attribute(Kind::Octets, 0), "12").find("0x"), std::string::npos);
}

TEST(FormatValue, NumbersAndStates)
{
    EXPECT_EQ(formatValue(attribute(Kind::U16, 2), {0x05, 0xEE}), "1518");
    EXPECT_EQ(formatValue(attribute(Kind::S16, 2), {0xFF, 0xFE}), "-2");
    EXPECT_EQ(formatValue(attribute(Kind::S8, 1), {0x80}), "-128");
    EXPECT_EQ(formatValue(attribute(Kind::U64, 8), Bytes(8, 0xFF)), "18446744073709551615");
    EXPECT_EQ(formatValue(attribute(Kind::U8, 1, Form::Plain, "AdministrativeState"), {1}), "1 (locked)");
    EXPECT_EQ(formatValue(attribute(Kind::U8, 1, Form::Plain, "AdministrativeState"), {7}), "7");
}

TEST(FormatValue, OctetsInTheirForm)
{
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 4, Form::Ipv4), {10, 0, 0, 1}), "10.0.0.1");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 6, Form::Mac), {0, 1, 2, 0xAA, 0xBB, 0xCC}), "00:01:02:aa:bb:cc");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 8, Form::SerialNumber), {'A', 'B', 'C', 'D', 0x12, 0x34, 0x56, 0x78}),
              "ABCD12345678");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 8, Form::SerialNumber), Bytes(8)), "0x0000000000000000");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 5), {'a', 'b', 'c', 0, 0}), "\"abc\"");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 5), {'a', 'b', ' ', ' ', ' '}), "\"ab\"");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 3), {'a', 0, 'c'}), "0x610063");
    EXPECT_EQ(formatValue(attribute(Kind::Octets, 25), Bytes(25)), "all zero (25 octets)");
    EXPECT_EQ(formatValue(attribute(Kind::Table, 29), {0, 0, 0, 58}), "table, size 58");
}

TEST(JsonValue, RoundTrip)
{
    const std::vector<std::pair<Attribute, Bytes>> samples{
        {attribute(Kind::U8, 1), {200}},
        {attribute(Kind::U16, 1), {200}},
        {attribute(Kind::U32, 5), {0, 1, 2, 3, 4}},
        {attribute(Kind::U64, 8), Bytes(8, 0xFF)},
        {attribute(Kind::S8, 1), {0x80}},
        {attribute(Kind::S16, 2), {0xFF, 0xFF}},
        {attribute(Kind::Octets, 3), {0, 'x', 0xFF}},
        {attribute(Kind::Octets, 4, Form::Ipv4), {10, 0, 0, 1}},
    };
    for (const auto& [about, value] : samples)
        EXPECT_EQ(valueFromJson(about, jsonValue(about, value)), value) << jsonValue(about, value);
}

TEST(JsonValue, OtherTypesAreRefused)
{
    for (const char* const text : {"1.5", "true", "null", "[1]", "-1", "256"})
        EXPECT_THROW(static_cast<void>(valueFromJson(attribute(Kind::U8, 1), nlohmann::ordered_json::parse(text))),
                     UsageError)
            << text;
    EXPECT_THROW(static_cast<void>(valueFromJson(attribute(Kind::Octets, 2), 12)), UsageError);
}

}  // namespace

}  // namespace olt
