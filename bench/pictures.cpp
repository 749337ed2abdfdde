// Pictures: the layout of the largest networks, and the time from a chart or diagram at its limit to its last
// pixel.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "picture/networks.h"
#include "qt/pictureview.h"

namespace {

constexpr QSize kPane(560, 480);

// How many of the networks come out clean is told beside the time.
void LayOutNetworks(benchmark::State& state)
{
    unsigned seed = 0;
    int clean = 0;
    for (auto _ : state) {
        const picture::Diagram diagram = networks::Random(++seed, 20, 40);
        const picture::Placement placement = Place(diagram, {560, 480}, networks::LetterSize);
        state.PauseTiming();
        clean += networks::FaultsOf(diagram, placement).None();
        state.ResumeTiming();
    }
    state.counters["clean"] = static_cast<double>(clean) / static_cast<double>(seed);
}
BENCHMARK(LayOutNetworks)->Iterations(1000)->Unit(benchmark::kMillisecond);

picture::Chart Series(int points)
{
    picture::Chart chart;
    chart.X = {.Title = "period", .From = 1, .To = static_cast<double>(points)};
    chart.Y = {.Title = "value", .From = 0, .To = 100};
    for (const picture::SeriesKind kind : {picture::SeriesKind::Line, picture::SeriesKind::Points}) {
        picture::Series series{.Kind = kind, .Name = kind == picture::SeriesKind::Line ? "data" : ""};
        for (int i = 1; i <= points; ++i) {
            series.Points.push_back({static_cast<double>(i), static_cast<double>(i * 37 % 100)});
            series.Tips.push_back("period " + std::to_string(i));
        }
        chart.Curves.push_back(series);
    }
    return chart;
}

picture::Chart Table(int size)
{
    picture::Chart chart{.Cells = true};
    for (int i = 1; i <= size; ++i) {
        chart.X.Names.push_back(std::to_string(i));
        chart.Y.Names.push_back(std::to_string(i));
        for (int j = 1; j <= size; ++j)
            chart.Marks.push_back(
                {.At = {static_cast<double>(j), static_cast<double>(i)}, .Text = std::to_string(i * j)});
    }
    return chart;
}

picture::Chart Values(int count)
{
    picture::Chart chart;
    chart.X = {.Title = "value", .From = 0, .To = 100};
    picture::Series bars{.Kind = picture::SeriesKind::Bars, .As = picture::Role::Chosen};
    for (int i = 1; i <= count; ++i) {
        chart.Y.Names.push_back("variable " + std::to_string(i));
        bars.Points.push_back({static_cast<double>(i * 37 % 100), static_cast<double>(i)});
        chart.Marks.push_back({.At = bars.Points.back(), .Text = std::to_string(i)});
    }
    chart.Curves = {bars};
    return chart;
}

// 4 alternatives, 4 indicators and 4 states are folded above 60 leaves.
picture::Diagram Tree(int leaves)
{
    picture::Diagram tree{.Kind = picture::Layout::Tree};
    tree.Nodes.push_back({.Id = "root", .Lines = {"14.20"}, .Form = picture::Shape::Square});
    for (int i = 0; i < leaves; ++i) {
        if (i % 6 == 0) {
            tree.Nodes.push_back(
                {.Id = "c" + std::to_string(i / 6), .Lines = {"12.00"}, .Form = picture::Shape::Circle});
            tree.Arcs.push_back({.From = "root", .To = tree.Nodes.back().Id, .Text = "alternative"});
        }
        tree.Nodes.push_back(
            {.Id = "l" + std::to_string(i), .Lines = {"20.00"}, .Form = picture::Shape::Triangle});
        tree.Arcs.push_back(
            {.From = "c" + std::to_string(i / 6), .To = tree.Nodes.back().Id, .Text = "state, 0.25"});
    }
    return tree;
}

picture::Diagram Ring(int states)
{
    picture::Diagram ring{.Kind = picture::Layout::Ring};
    for (int i = 0; i < states; ++i)
        ring.Nodes.push_back(
            {.Id = std::to_string(i), .Lines = {std::to_string(i)}, .Form = picture::Shape::Circle});
    for (int i = 0; i < states; ++i)
        for (int j = 0; j < states; ++j)
            ring.Arcs.push_back(
                {.From = std::to_string(i), .To = std::to_string(j), .Weight = 0.1, .Text = "0.100"});
    return ring;
}

void Paint(benchmark::State& state, const std::variant<picture::Chart, picture::Diagram>& body)
{
    for (auto _ : state) {
        const picture::Picture picture{.Title = "Picture", .Body = body, .Notes = {"A note."}};
        qt::PictureCanvas canvas(nullptr);
        canvas.SetPicture(&picture);
        canvas.FitTo(kPane);
        QImage image(canvas.size(), QImage::Format_RGB32);
        canvas.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const auto add = [](const char* name, const std::variant<picture::Chart, picture::Diagram>& body) {
        benchmark::RegisterBenchmark(name, [body](benchmark::State& state) {
            Paint(state, body);
        })->Unit(benchmark::kMillisecond);
    };
    add("PaintSeriesOf100Periods", Series(100));
    add("PaintTableOf30By30", Table(30));
    add("PaintValuesOf100Variables", Values(100));
    add("PaintTreeOf60Leaves", Tree(60));
    add("PaintRingOf10States", Ring(10));
    add("PaintNetworkOf40Arcs", networks::Random(1, 20, 40));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
