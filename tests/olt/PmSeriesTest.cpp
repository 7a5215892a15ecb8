#include "pm/PmSeries.h"

#include <gmock/gmock.h>

#include <initializer_list>

#include "pm/PmChart.h"

using namespace olt;
using ::testing::HasSubstr;

namespace {

std::vector<std::string> namesOf(const std::vector<const Attribute*>& attributes)
{
    std::vector<std::string> names;
    for (const Attribute* attribute : attributes)
        names.push_back(attribute->name);
    return names;
}

class Pm : public ::testing::Test
{
protected:
    PmSeries seriesOf(PmInterval interval, std::size_t keep = 100) const { return {pmCounters(fec), interval, keep}; }

    AttributeValues values(std::uint8_t count) const
    {
        AttributeValues values;
        values.values.push_back({fec.attributeOfMask(0x8000), {7}});
        values.values.push_back({&counter, {0, 0, 0, count}});
        return values;
    }

    const Catalogue& catalogue = Catalogue::builtIn();
    const EntityClass& fec = catalogue.ofNumber(312);
    const Attribute& counter = *fec.attributeOfMask(0x2000);
};

TEST_F(Pm, CountersStandBehindIntervalEndTimeAndThresholds)
{
    EXPECT_EQ(namesOf(pmCounters(fec)),
              (std::vector<std::string>{"CorrectedBytes", "CorrectedCodeWords", "UncorrectableCodeWords",
                                        "TotalCodeWords", "FecSeconds"}));
    EXPECT_EQ(pmCounters(catalogue.ofNumber(334)).size(), 14U);
}

TEST_F(Pm, TablesAreNoCounters)
{
    EXPECT_EQ(namesOf(pmCounters(catalogue.ofNumber(65424))).front(), "CpuPercentUtilization");
}

TEST_F(Pm, OtherClassesHaveNone)
{
    for (const std::uint16_t classId : std::initializer_list<std::uint16_t>{2, 11, 256, 263, 273})
        EXPECT_TRUE(pmCounters(catalogue.ofNumber(classId)).empty()) << classId;
}

TEST_F(Pm, FirstSampleHasNeitherDeltaNorRate)
{
    auto series = seriesOf(PmInterval::Running);
    const PmSample& sample = series.add(values(5), 0, "now");
    EXPECT_EQ(sample.intervalEndTime, 7U);
    ASSERT_EQ(sample.counters.size(), 1U);
    EXPECT_EQ(sample.counters[0].value, 5U);
    EXPECT_FALSE(sample.counters[0].delta);
    EXPECT_FALSE(sample.counters[0].rate);
}

TEST_F(Pm, RateIsDeltaOverTime)
{
    auto series = seriesOf(PmInterval::Running);
    series.add(values(5), 0, "");
    const PmSample& sample = series.add(values(25), 4, "");
    EXPECT_EQ(sample.counters[0].delta, 20);
    EXPECT_EQ(sample.counters[0].rate, 5.0);
    EXPECT_FALSE(sample.restarted);
}

TEST_F(Pm, LowerRunningCounterBeganAnew)
{
    auto series = seriesOf(PmInterval::Running);
    series.add(values(25), 0, "");
    const PmSample& sample = series.add(values(5), 4, "");
    EXPECT_TRUE(sample.restarted);
    EXPECT_EQ(sample.counters[0].delta, 5);
    EXPECT_FALSE(sample.counters[0].rate);
}

TEST_F(Pm, LowerLastIntervalIsADifferenceBetweenTwo)
{
    auto series = seriesOf(PmInterval::Last);
    series.add(values(25), 0, "");
    const PmSample& sample = series.add(values(5), 4, "");
    EXPECT_EQ(sample.counters[0].delta, -20);
    EXPECT_FALSE(sample.counters[0].rate);
}

TEST_F(Pm, OldSamplesGo)
{
    auto series = seriesOf(PmInterval::Running, 3);
    for (std::uint8_t i = 0; i < 10; ++i)
        series.add(values(i), i, std::to_string(i));
    ASSERT_EQ(series.samples().size(), 3U);
    EXPECT_EQ(series.samples().front().time, "7");
}

TEST_F(Pm, SparklineIsAsHighAsTheHighestRate)
{
    auto series = seriesOf(PmInterval::Running);
    EXPECT_EQ(sparkline(series, counter, 10), "");
    for (const std::uint8_t count : std::initializer_list<std::uint8_t>{0, 0, 50, 150, 100})
        series.add(values(count), static_cast<double>(series.samples().size()), "");
    EXPECT_EQ(sparkline(series, counter, 10), " ▁▅█ ");
    EXPECT_EQ(sparkline(series, counter, 2), "█ ");
}

TEST_F(Pm, RatesAreShort)
{
    EXPECT_EQ(formatRate(0), "0");
    EXPECT_EQ(formatRate(0.25), "0.25");
    EXPECT_EQ(formatRate(12.34), "12.3");
    EXPECT_EQ(formatRate(999), "999");
    EXPECT_EQ(formatRate(1234), "1.23k");
    EXPECT_EQ(formatRate(5.6e9), "5.60G");
}

TEST_F(Pm, DrawingOfNothingIsADocumentAllTheSame)
{
    const auto series = seriesOf(PmInterval::Running);
    EXPECT_THAT(svgChart(series, "a<b & c"), HasSubstr("a&lt;b &amp; c"));
    EXPECT_THAT(svgChart(series, ""), HasSubstr("</svg>"));
}

TEST_F(Pm, DrawingLeavesAGapWhereARateIsMissing)
{
    auto series = seriesOf(PmInterval::Running);
    for (const std::uint8_t count : std::initializer_list<std::uint8_t>{0, 10, 20, 5, 15, 25})
        series.add(values(count), static_cast<double>(series.samples().size()), "");
    const std::string svg = svgChart(series, "");
    const auto begin = svg.find("<path d=\"M", svg.find("CorrectedBytes"));
    const auto line = svg.find("<path d=\"M", begin + 1);  // behind the axis
    const std::string path = svg.substr(line, svg.find("class=\"rate\"", line) - line);
    EXPECT_EQ(std::count(path.begin(), path.end(), 'M'), 2);
    EXPECT_EQ(std::count(path.begin(), path.end(), 'L'), 2);
}

}  // namespace
