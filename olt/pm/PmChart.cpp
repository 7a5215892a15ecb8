#include "pm/PmChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "model/XmlText.h"

namespace olt {

namespace {

constexpr int kWidth = 760;
constexpr int kTitleHeight = 34;
constexpr int kPanelHeight = 58;
constexpr int kPlotLeft = 250;
constexpr int kPlotRight = 740;
constexpr int kPlotTop = 8;
constexpr int kPlotBottom = 46;

std::string decimal(double value)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    return text.data();
}

std::string textAt(int x, double y, const char* look, const std::string& text)
{
    return "<text x=\"" + std::to_string(x) + "\" y=\"" + decimal(y) + "\" " + look + ">" + xmlText(text) + "</text>\n";
}

double highestRate(const PmSeries& series, const Attribute& counter)
{
    double highest = 0;
    for (const PmSample& sample : series.samples()) {
        const PmCounter* const found = sample.find(counter);
        if (found != nullptr && found->rate)
            highest = std::max(highest, *found->rate);
    }
    return highest;
}

/// The line of a counter's rates; it breaks where there is none.
std::string rateLine(const PmSeries& series, const Attribute& counter, int top)
{
    const double highest = highestRate(series, counter);
    const double begin = series.samples().front().seconds;
    const double span = std::max(series.samples().back().seconds - begin, 1e-9);
    std::string path;
    bool isPenUp = true;
    for (const PmSample& sample : series.samples()) {
        const PmCounter* const found = sample.find(counter);
        if (found == nullptr || !found->rate) {
            isPenUp = true;
            continue;
        }
        const double share = highest > 0 ? *found->rate / highest : 0;
        path += isPenUp ? "M" : "L";
        path += decimal(kPlotLeft + (sample.seconds - begin) / span * (kPlotRight - kPlotLeft)) + " " +
                decimal(top + kPlotBottom - share * (kPlotBottom - kPlotTop));
        isPenUp = false;
    }
    return path.empty() ? "" : "<path d=\"" + path + "\" class=\"rate\"/>\n";
}

std::string panel(const PmSeries& series, const Attribute& counter, int top)
{
    const PmCounter* const last = series.samples().back().find(counter);
    std::string svg = textAt(10, top + 20, "class=\"name\"", counter.name);
    if (last != nullptr)
        svg += textAt(10, top + 38, "class=\"value\"", std::to_string(last->value));
    svg += textAt(kPlotLeft - 8, top + kPlotTop + 8, "class=\"scale\" text-anchor=\"end\"",
                  formatRate(highestRate(series, counter)) + "/s");
    svg += "<path d=\"M" + std::to_string(kPlotLeft) + " " + std::to_string(top + kPlotBottom) + "H" +
           std::to_string(kPlotRight) + "\" class=\"axis\"/>\n";
    return svg + rateLine(series, counter, top);
}

}  // namespace

std::string formatRate(double rate)
{
    constexpr std::array<const char*, 6> prefixes{"", "k", "M", "G", "T", "P"};
    std::size_t prefix = 0;
    while (rate >= 1000 && prefix + 1 < prefixes.size()) {
        rate /= 1000;
        ++prefix;
    }
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(),
                  rate == 0 || rate >= 100 ? "%.0f%s"
                  : rate >= 10             ? "%.1f%s"
                                           : "%.2f%s",
                  rate, prefixes.at(prefix));
    return text.data();
}

std::string sparkline(const PmSeries& series, const Attribute& counter, std::size_t width)
{
    constexpr std::array<const char*, 8> bars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    const double highest = highestRate(series, counter);
    const auto& samples = series.samples();
    std::string line;
    for (std::size_t i = samples.size() > width ? samples.size() - width : 0; i < samples.size(); ++i) {
        const PmCounter* const found = samples[i].find(counter);
        if (found == nullptr || !found->rate) {
            line += " ";
            continue;
        }
        const double share = highest > 0 ? *found->rate / highest : 0;
        line += bars.at(static_cast<std::size_t>(std::lround(share * (bars.size() - 1))));
    }
    return line;
}

std::string svgChart(const PmSeries& series, const std::string& title)
{
    const auto count = static_cast<int>(series.counters().size());
    const int height = kTitleHeight + count * kPanelHeight + 26;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(kWidth) + "\" height=\"" +
                      std::to_string(height) +
                      "\" font-family=\"sans-serif\" font-size=\"13\">\n"
                      "<style>.name{font-weight:bold}.value{fill:#333}.scale{fill:#777;font-size:11px}"
                      ".axis{stroke:#bbb;fill:none}.rate{stroke:#1565c0;stroke-width:1.5;fill:none}</style>\n"
                      "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    svg += textAt(10, 22, "font-size=\"15\"", title);
    if (series.samples().empty())
        return svg + "</svg>\n";
    int top = kTitleHeight;
    for (const Attribute* const counter : series.counters()) {
        svg += panel(series, *counter, top);
        top += kPanelHeight;
    }
    svg += textAt(kPlotLeft, top + 14, "class=\"scale\"", series.samples().front().time);
    svg += textAt(kPlotRight, top + 14, "class=\"scale\" text-anchor=\"end\"", series.samples().back().time);
    return svg + "</svg>\n";
}

}  // namespace olt
