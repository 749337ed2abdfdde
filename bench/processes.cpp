// Measures whole processes: the start and the memory of Vantrel beside a bare Qt program, and what the
// session player takes for a problem. Prints the rows of a table.
//
//     bench_processes FOLDER-OF-THE-BENCHMARKS vantrel-play
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

struct Run {
    double WallMs = 0.0;
    double ProcessorMs = 0.0;
    double PeakMb = 0.0;
};

double Milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1000.0 + static_cast<double>(time.tv_usec) / 1000.0;
}

// In the child: the program without its output.
[[noreturn]] void Become(std::vector<std::string> command)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

Run Measure(const std::vector<std::string>& command)
{
    const auto began = Clock::now();
    const pid_t child = fork();
    if (child == 0) Become(command);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> wall = Clock::now() - began;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::cerr << command.front() << " failed\n";
        std::exit(1);
    }
    return {.WallMs = wall.count(),
            .ProcessorMs = Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime),
            .PeakMb = static_cast<double>(usage.ru_maxrss) / 1024.0};
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double MedianOf(const std::vector<Run>& runs, double Run::*field)
{
    std::vector<double> values;
    values.reserve(runs.size());
    for (const Run& run : runs)
        values.push_back(run.*field);
    return Median(std::move(values));
}

Run MedianRun(const std::vector<Run>& runs)
{
    return {.WallMs = MedianOf(runs, &Run::WallMs),
            .ProcessorMs = MedianOf(runs, &Run::ProcessorMs),
            .PeakMb = MedianOf(runs, &Run::PeakMb)};
}

// The commands in turn, so that what else the machine does meets all of them. The median run of each.
std::vector<Run> MeasureInTurn(const std::vector<std::vector<std::string>>& commands)
{
    constexpr int kRounds = 21;
    std::vector<std::vector<Run>> runs(commands.size());
    for (int round = 0; round < kRounds; ++round)
        for (std::size_t i = 0; i < commands.size(); ++i)
            runs[i].push_back(Measure(commands[i]));
    std::vector<Run> medians(commands.size());
    std::transform(runs.begin(), runs.end(), medians.begin(), MedianRun);
    return medians;
}

// The run `which` beside the two bare programs, runs 1 and 2.
void Row(const char* what, const char* unit, const std::vector<Run>& runs, double Run::*field,
         std::size_t which)
{
    const double value = runs[which].*field;
    const double empty = runs[1].*field;
    const double text = runs[2].*field;
    std::printf("| %s | %.1f %s | %.1f %s | %.2f | %.1f %s | %.2f |\n", what, value, unit, empty, unit,
                value / empty, text, unit, value / text);
}

void WriteScript(const fs::path& path, int problems)
{
    constexpr int kStates = 10;
    std::ofstream script(path);
    script << "choose 12\n";
    for (int problem = 0; problem < problems; ++problem) {
        script << "menu mnuFileNew\n";
        if (problem > 0) script << "answer Yes\n";
        script << "type txtAnswer(0) \"" << kStates << "\"\nclick cmdOK\n";
        for (int from = 1; from <= kStates; ++from)
            for (int to = 1; to <= kStates; ++to)
                script << "cell gridDisplayEdit " << from << ' ' << to << " \"0.1\"\n";
        script << "menu mnuSolutionSolve\nreport\n";
    }
}

Run Play(const std::string& player, int problems)
{
    const fs::path script = fs::temp_directory_path() / ("bench-" + std::to_string(getpid()) + ".play");
    WriteScript(script, problems);
    const Run run = Measure({player, script.string()});
    fs::remove(script);
    return run;
}

void CompareWithBareProgram(const std::string& folder)
{
    const std::string bare = folder + "/startup_bare";
    const std::vector<Run> start = MeasureInTurn({{folder + "/startup_vantrel"},
                                                  {bare},
                                                  {bare, "Vantrel"},
                                                  {folder + "/report_on_screen"},
                                                  {folder + "/report_on_screen", "picture"}});
    std::printf("| | Vantrel | bare Qt program | ratio | with a line of text | ratio |\n");
    std::printf("| --- | --- | --- | --- | --- | --- |\n");
    Row("from process start to the first painted window", "ms", start, &Run::WallMs, 0);
    Row("peak memory at the start-up notice", "MB", start, &Run::PeakMb, 0);
    Row("peak memory with a report on screen", "MB", start, &Run::PeakMb, 3);
    Row("peak memory with a report and its picture", "MB", start, &Run::PeakMb, 4);
    std::printf("\nThe picture takes %.2f times the memory of the report alone.\n",
                start[4].PeakMb / start[3].PeakMb);
}

void MeasurePlayer(const std::string& player)
{
    constexpr int kFew = 10;
    constexpr int kMany = 1000;
    const Run few = Play(player, kFew);
    const Run many = Play(player, kMany);
    const double perProblem = (many.ProcessorMs - few.ProcessorMs) / (kMany - kFew);
    std::printf("\n| Session player, problems of ten states | |\n| --- | --- |\n");
    std::printf("| processor time a problem: entered, solved, reported | %.1f ms |\n", perProblem);
    std::printf("| memory that %d problems add | %.1f MB |\n", kMany - kFew, many.PeakMb - few.PeakMb);
}

}  // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cerr << "bench_processes FOLDER PLAYER\n";
        return 2;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    CompareWithBareProgram(argv[1]);
    MeasurePlayer(argv[2]);
    return 0;
}
