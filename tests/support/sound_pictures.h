// What holds for every picture, whatever it shows.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "picture/picture.h"

inline bool Within(const picture::Axis& axis, double value)
{
    return std::isfinite(value) && value >= axis.From - 1e-9 && value <= axis.To + 1e-9;
}

inline void ExpectSound(const picture::Axis& axis)
{
    EXPECT_LT(axis.From, axis.To) << axis.Title;
    if (axis.Names.empty()) return;
    EXPECT_EQ(axis.From, 0.5);
    EXPECT_EQ(axis.To, static_cast<double>(axis.Names.size()) + 0.5);
}

inline void ExpectSound(const picture::Chart& chart)
{
    if (chart.X.Names.empty() || chart.Y.Names.empty() || chart.Cells) {
        if (!chart.Curves.empty() || !chart.Marks.empty()) {
            ExpectSound(chart.X);
            ExpectSound(chart.Y);
        }
    }
    for (const auto& series : chart.Curves) {
        for (const auto& point : series.Points) {
            EXPECT_TRUE(chart.OwnScales || Within(chart.X, point.X)) << series.Name << " " << point.X;
            EXPECT_TRUE(Within(chart.Y, point.Y)) << series.Name << " " << point.Y;
        }
        const picture::Axis& along = chart.Y.Names.empty() ? chart.Y : chart.X;
        for (const auto& interval : series.Intervals) {
            if (chart.OwnScales) break;
            EXPECT_TRUE(!interval.From || Within(along, *interval.From)) << series.Name;
            EXPECT_TRUE(!interval.To || Within(along, *interval.To)) << series.Name;
        }
        const std::size_t items = series.Points.size() + series.Intervals.size();
        EXPECT_TRUE(series.Tips.size() <= 1 || series.Tips.size() == items) << series.Name;
    }
    for (const auto& rule : chart.Rules)
        EXPECT_TRUE(Within(rule.Across == picture::Direction::X ? chart.X : chart.Y, rule.Value))
            << rule.Text;
    for (const auto& band : chart.Bands) {
        const picture::Axis& across = band.Across == picture::Direction::X ? chart.X : chart.Y;
        EXPECT_TRUE(!band.From || Within(across, *band.From)) << band.Text;
        EXPECT_TRUE(!band.To || Within(across, *band.To)) << band.Text;
    }
    for (const auto& mark : chart.Marks) {
        EXPECT_TRUE(Within(chart.X, mark.At.X)) << mark.Text;
        EXPECT_TRUE(Within(chart.Y, mark.At.Y)) << mark.Text;
    }
}

inline void ExpectSound(const picture::Diagram& diagram)
{
    std::set<std::string> nodes;
    for (const auto& node : diagram.Nodes) {
        EXPECT_TRUE(nodes.insert(node.Id).second) << node.Id;
        EXPECT_FALSE(node.Lines.empty()) << node.Id;
        EXPECT_GE(node.Amount, node.Used) << node.Id;
    }
    std::set<std::string> ids = nodes;
    for (const auto& arc : diagram.Arcs) {
        EXPECT_TRUE(nodes.contains(arc.From)) << arc.From;
        EXPECT_TRUE(nodes.contains(arc.To)) << arc.To;
        EXPECT_TRUE(arc.Id.empty() || ids.insert(arc.Id).second) << arc.Id;
        EXPECT_GE(arc.Weight, 0);
    }
    for (const auto& frame : diagram.Frames)
        for (const auto& id : frame.Ids)
            EXPECT_TRUE(nodes.contains(id)) << id;
    EXPECT_TRUE(diagram.Start.empty() || nodes.contains(diagram.Start)) << diagram.Start;
}

inline std::set<std::string> IdsOf(const picture::Picture& picture)
{
    std::set<std::string> ids;
    if (const auto* diagram = std::get_if<picture::Diagram>(&picture.Body)) {
        for (const auto& node : diagram->Nodes)
            ids.insert(node.Id);
        for (const auto& arc : diagram->Arcs)
            ids.insert(arc.Id);
    } else {
        const auto& chart = std::get<picture::Chart>(picture.Body);
        for (const auto& series : chart.Curves)
            ids.insert(series.Id);
        for (const auto& mark : chart.Marks)
            ids.insert(mark.Id);
    }
    return ids;
}

inline void ExpectSound(const std::vector<picture::Picture>& pictures)
{
    int number = 0;
    for (const auto& picture : pictures) {
        SCOPED_TRACE(picture.Title);
        EXPECT_FALSE(picture.Notes.empty());
        std::visit([](const auto& body) { ExpectSound(body); }, picture.Body);
        EXPECT_FALSE(Listing(picture, ++number, static_cast<int>(pictures.size())).empty());
    }
}

// Each step says why, and marks only what is in its picture.
inline void ExpectSound(const std::vector<picture::Step>& steps,
                        const std::vector<picture::Picture>& pictures)
{
    for (const auto& step : steps) {
        EXPECT_FALSE(step.Heading.empty());
        EXPECT_FALSE(step.Why.empty()) << step.Heading;
        if (step.Picture.empty()) continue;
        const auto at = std::find_if(pictures.begin(), pictures.end(),
                                     [&](const auto& picture) { return picture.Title == step.Picture; });
        ASSERT_NE(at, pictures.end()) << step.Picture;
        const auto ids = IdsOf(*at);
        for (const auto& mark : step.Marks)
            EXPECT_TRUE(ids.contains(mark)) << step.Heading << ": " << mark;
    }
}

inline std::vector<std::string> TextsOf(const std::vector<picture::Sentence>& sentences)
{
    std::vector<std::string> texts;
    texts.reserve(sentences.size());
    for (const auto& sentence : sentences)
        texts.push_back(sentence.Text);
    return texts;
}

inline void ExpectSound(const std::vector<picture::Sentence>& sentences)
{
    EXPECT_LE(sentences.size(), 12U);
    for (const auto& sentence : sentences) {
        EXPECT_FALSE(sentence.Text.empty());
        EXPECT_EQ(sentence.Text.back(), '.') << sentence.Text;
        EXPECT_EQ(sentence.Text.find("(s)"), std::string::npos) << sentence.Text;
        EXPECT_EQ(sentence.Text.find("  "), std::string::npos) << sentence.Text;
    }
}
