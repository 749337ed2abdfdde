// Random pictures of every kind, the odd ones among them: nothing in them, one thing, all at one place, huge
// and tiny values, long and empty texts.
#pragma once

#include <array>
#include <random>
#include <string>

#include "picture/picture.h"

namespace random_pictures {

class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    picture::Picture Next()
    {
        picture::Picture made{.Title = Text()};
        if (Below(2) == 0)
            made.Body = AnyChart();
        else
            made.Body = AnyDiagram();
        for (int i = Below(4); i > 0; --i)
            made.Notes.push_back(Text() + " " + Text());
        return made;
    }

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

private:
    bool Maybe() { return Below(2) == 0; }

    std::string Text()
    {
        static const std::array<const char*, 9> kTexts = {"",
                                                          "A",
                                                          "TABLES",
                                                          "Destination 12",
                                                          "1,234,567.890",
                                                          "a name that is rather long",
                                                          "\xC3\xA4\xC3\xB6\xC3\xBC",
                                                          "x\ty",
                                                          "&amp; <b>"};
        return kTexts.at(static_cast<std::size_t>(Below(9)));
    }

    double Value()
    {
        static const std::array<double, 7> kScales = {1, 1, 1, 100, 1e-6, 1e9, 0};
        return kScales.at(static_cast<std::size_t>(Below(7))) * (Below(2001) - 1000) / 1000;
    }

    picture::Role AnyRole() { return static_cast<picture::Role>(Below(11)); }

    picture::Axis AnyAxis()
    {
        picture::Axis axis{.Title = Text(), .From = Value(), .To = Value(), .Counts = Below(4) == 0};
        if (axis.From > axis.To) std::swap(axis.From, axis.To);
        if (Below(3) == 0)
            for (int i = 1 + Below(30); i > 0; --i)
                axis.Names.push_back(Text());
        return axis;
    }

    double On(const picture::Axis& axis)
    {
        if (!axis.Names.empty()) return 1 + Below(static_cast<int>(axis.Names.size()));
        if (Below(10) == 0) return Value();  // outside of the window perhaps
        return axis.From + Below(101) / 100.0 * (axis.To - axis.From);
    }

    std::optional<double> End(const picture::Axis& axis)
    {
        if (Below(4) == 0) return std::nullopt;
        return On(axis);
    }

    picture::Series AnySeries(const picture::Chart& chart)
    {
        picture::Series series{
            .Kind = static_cast<picture::SeriesKind>(Below(6)), .As = AnyRole(), .Name = Text()};
        const int count = Below(12);
        const bool rows = !chart.Y.Names.empty();
        for (int i = 0; i < count; ++i) {
            if (series.Kind == picture::SeriesKind::Interval)
                series.Intervals.push_back({rows ? On(chart.Y) : On(chart.X), End(rows ? chart.X : chart.Y),
                                            End(rows ? chart.X : chart.Y)});
            else
                series.Points.push_back({On(chart.X), On(chart.Y)});
            if (Maybe()) series.Tips.push_back(Text());
        }
        series.Id = Text();
        series.Forbidden = static_cast<picture::Side>(Below(3));
        series.Arrow = Maybe();
        series.Thin = Maybe();
        series.Hatched = Maybe();
        return series;
    }

    picture::Chart AnyChart()
    {
        picture::Chart chart{.X = AnyAxis(), .Y = AnyAxis()};
        for (int i = Below(5); i > 0; --i)
            chart.Curves.push_back(AnySeries(chart));
        for (int i = Below(3); i > 0; --i)
            chart.Bands.push_back(
                {.As = AnyRole(), .From = End(chart.X), .To = End(chart.X), .Text = Text()});
        for (int i = Below(3); i > 0; --i)
            chart.Rules.push_back({.Across = static_cast<picture::Direction>(Below(2)),
                                   .As = AnyRole(),
                                   .Value = Value(),
                                   .Text = Text()});
        for (int i = Below(12); i > 0; --i)
            chart.Marks.push_back({.As = AnyRole(),
                                   .At = {On(chart.X), On(chart.Y)},
                                   .Text = Text(),
                                   .Tip = Text(),
                                   .Id = Text(),
                                   .Shade = Below(11) / 10.0});
        chart.BarsFrom = Below(4) == 0 ? 1 : 0;
        chart.Cells = !chart.X.Names.empty() && !chart.Y.Names.empty() && Maybe();
        chart.OwnScales = chart.X.Names.empty() && !chart.Y.Names.empty() && Maybe();
        return chart;
    }

    picture::Diagram AnyDiagram()
    {
        picture::Diagram diagram{.Kind = static_cast<picture::Layout>(Below(5))};
        const int nodes = Below(13);
        for (int i = 0; i < nodes; ++i) {
            picture::Node node{
                .Id = std::to_string(i), .Form = static_cast<picture::Shape>(Below(6)), .As = AnyRole()};
            for (int line = Below(4); line > 0; --line)
                node.Lines.push_back(Text());
            node.Folded = Below(5) == 0;
            node.Rank = Below(4);
            node.Amount = Below(3) * Below(100);
            node.Used = node.Amount * Below(101) / 100;
            if (Below(5) == 0) node.Badge = "3";
            diagram.Nodes.push_back(node);
        }
        for (int i = nodes == 0 ? 0 : Below(2 * nodes); i > 0; --i)
            diagram.Arcs.push_back({.From = std::to_string(Below(nodes + 1)),
                                    .To = std::to_string(Below(nodes)),
                                    .Directed = Maybe(),
                                    .As = AnyRole(),
                                    .Weight = Below(5) / 4.0,
                                    .Text = Text(),
                                    .Id = Text(),
                                    .Head = Maybe()});
        if (nodes > 2 && Below(4) == 0) diagram.Frames = {{.Text = Text(), .Ids = {"0", "1"}}};
        if (Maybe()) diagram.Start = "1";
        return diagram;
    }

    std::mt19937 random_;
};

}  // namespace random_pictures
