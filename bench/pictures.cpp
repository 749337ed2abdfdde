// Pictures: the layout of the largest networks, and the time that it takes to make and paint each picture of
// problems at their module's limit.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include "desk.h"
#include "picture/networks.h"
#include "problems.h"
#include "qt/pictureview.h"
#include "shell/module.h"

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

// In a pane that scrolls where the picture is larger.
void Paint(const picture::Picture& picture)
{
    qt::PictureView view(nullptr);
    view.resize(kPane);
    view.SetPicture(&picture);
    QImage image(kPane, QImage::Format_RGB32);
    view.render(&image);
    benchmark::DoNotOptimize(image.constBits());
}

// All pictures of the problem are made for each that is painted, as the pane does for its first one.
void MakeAndPaint(benchmark::State& state, const bench::ModuleSize& size, std::size_t number)
{
    bench::Desk desk(size.Module, size.Limit);
    desk.Solve();
    for (auto _ : state)
        Paint(ModuleOf(size.Module).Routines->Pictures().at(number));
}

void AddPicturesOf(const bench::ModuleSize& size)
{
    bench::Desk desk(size.Module, size.Limit);
    desk.Solve();
    const Module& module = ModuleOf(size.Module);
    const auto pictures = module.Routines->Pictures();
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const std::string name = NameOf(module) + ": " + pictures[i].Title;
        benchmark::RegisterBenchmark(name.c_str(), [size, i](benchmark::State& state) {
            MakeAndPaint(state, size, i);
        })->Unit(benchmark::kMillisecond);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const bench::ModuleSize& size : bench::kLimits)
        AddPicturesOf(size);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
