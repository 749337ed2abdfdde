#include "lp/SecondOpinion.h"

#if defined(__unix__)
#include <spawn.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <array>
#include <cmath>
#include <csignal>

#include "lp/LpFigures.h"
#include "lp/opinion/opinion.h"

namespace LP_Engine {
namespace {

constexpr int kSeconds = 2;
constexpr int kPatience = 5;  // seconds, for a solver that does not keep to its limit
constexpr double kAbsent = 1e30;
constexpr double kLimitRoom = 1e-6;  // relative, of a limit that a plan may miss by rounding
constexpr double kWholeRoom = 1e-6;

std::string folderOfModule;

// ---- the other program ----

#if defined(__unix__)

std::string PathOfProgram()
{
    if (!folderOfModule.empty()) return folderOfModule + "/" + kOpinionProgram;
    std::array<char, 4096> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size() - 1);
    if (length <= 0) return {};
    const std::string program(path.data(), static_cast<std::size_t>(length));
    return program.substr(0, program.find_last_of('/') + 1) + kOpinionProgram;
}

bool IsInstalled()
{
    return access(PathOfProgram().c_str(), X_OK) == 0;
}

// Started with one end of a pair of sockets as its input and output. 0: it could not be.
pid_t Start(int end)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, end, 0);
    posix_spawn_file_actions_adddup2(&actions, end, 1);
    std::string path = PathOfProgram();
    std::array<char*, 2> arguments{path.data(), nullptr};
    pid_t child = 0;
    const int failed = posix_spawn(&child, path.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return failed == 0 ? child : 0;
}

void SendAll(int socket, const std::vector<double>& numbers)
{
    const char* bytes = reinterpret_cast<const char*>(numbers.data());
    std::size_t left = numbers.size() * sizeof(double);
    while (left > 0) {
        const ssize_t count = send(socket, bytes, left, MSG_NOSIGNAL);
        if (count <= 0) return;
        bytes += count;
        left -= static_cast<std::size_t>(count);
    }
    shutdown(socket, SHUT_WR);
}

std::vector<double> ReceiveAll(int socket)
{
    const timeval patience{.tv_sec = kPatience, .tv_usec = 0};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    std::string bytes;
    std::array<char, 4096> block{};
    for (ssize_t count = recv(socket, block.data(), block.size(), 0); count > 0;
         count = recv(socket, block.data(), block.size(), 0))
        bytes.append(block.data(), static_cast<std::size_t>(count));
    std::vector<double> numbers(bytes.size() / sizeof(double));
    bytes.copy(reinterpret_cast<char*>(numbers.data()), numbers.size() * sizeof(double));
    return numbers;
}

// The answer to a question; empty when none came. Who waits at the socket is woken by its end.
std::vector<double> Asked(const std::vector<double>& question, const std::stop_token& stop)
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
    const pid_t child = Start(ends[1]);
    close(ends[1]);
    std::vector<double> answer;
    if (child > 0) {
        const std::stop_callback wake(stop, [socket = ends[0]] { shutdown(socket, SHUT_RDWR); });
        SendAll(ends[0], question);
        answer = ReceiveAll(ends[0]);
        kill(child, SIGKILL);  // it has answered, or never will
        waitpid(child, nullptr, 0);
    }
    close(ends[0]);
    return answer;
}

#else

bool IsInstalled()
{
    return false;
}

std::vector<double> Asked(const std::vector<double>& /*question*/, const std::stop_token& /*stop*/)
{
    return {};
}

#endif

// ---- the question ----

// In the order of opinion.h.
std::vector<double> QuestionOf(const LpResult& result, int way)
{
    const VtLP::LpProblem& problem = result.Problem;
    const Array1<std::int16_t> binary = BinaryVariables(result);
    std::vector<double> columns;
    std::vector<double> entries;
    std::vector<double> rows;
    for (int j = 1; j <= problem.NumVariables; ++j) {
        const bool whole = result.Integer && result.IntegerColumn(j) == 1;
        columns.insert(columns.end(), {static_cast<double>(entries.size()) / 2, binary(j) == 1 ? 1 : kAbsent,
                                       problem.LpCoefficients(0, j), whole ? 1.0 : 0.0});
        for (int i = 1; i <= problem.NumConstraints; ++i)
            if (problem.LpCoefficients(i, j) != 0)
                entries.insert(entries.end(), {i - 1.0, problem.LpCoefficients(i, j)});
    }
    for (int i = 1; i <= problem.NumConstraints; ++i) {
        const std::int16_t relation = problem.LpRelations(i);
        const double b = problem.LpCoefficients(i, 0);
        rows.insert(rows.end(),
                    {relation == VtLP::kLess ? -kAbsent : b, relation == VtLP::kGreater ? kAbsent : b});
    }
    std::vector<double> question{static_cast<double>(problem.NumVariables),
                                 static_cast<double>(problem.NumConstraints),
                                 static_cast<double>(entries.size()) / 2,
                                 result.Minimize ? 1.0 : 0.0,
                                 kSeconds,
                                 static_cast<double>(way)};
    for (const auto* part : {&columns, &entries, &rows})
        question.insert(question.end(), part->begin(), part->end());
    return question;
}

// ---- sums without rounding ----

// A sum as doubles that do not overlap, the smallest first (J. R. Shewchuk, 1997): adding is exact, and the
// sign is that of the last one.
class ExactSum {
public:
    void Add(double value)
    {
        std::vector<double> grown;
        for (const double part : parts_) {
            const double sum = value + part;
            const double back = sum - value;
            const double rest = (value - (sum - back)) + (part - back);
            if (rest != 0) grown.push_back(rest);
            value = sum;
        }
        grown.push_back(value);
        parts_ = std::move(grown);
    }

    void AddProduct(double a, double b)
    {
        const double product = a * b;
        Add(product);
        Add(std::fma(a, b, -product));
    }

    [[nodiscard]] double Value() const
    {
        double sum = 0;
        for (const double part : parts_)
            sum += part;
        return sum;
    }

private:
    std::vector<double> parts_;
};

double ExactRow(const VtLP::LpProblem& problem, int row, const std::vector<double>& values, double start)
{
    ExactSum sum;
    sum.Add(start);
    for (int j = 1; j <= problem.NumVariables; ++j)
        sum.AddProduct(problem.LpCoefficients(row, j), values[static_cast<std::size_t>(j) - 1]);
    return sum.Value();
}

// Values a hair beside a whole number or below 0 are what was meant.
void Tidy(const LpResult& result, std::vector<double>& values)
{
    for (int j = 1; j <= result.Problem.NumVariables; ++j) {
        double& x = values[static_cast<std::size_t>(j) - 1];
        const bool whole = result.Integer && result.IntegerColumn(j) == 1;
        if (std::abs(x - std::nearbyint(x)) <= (whole ? kWholeRoom : 1e-9)) x = std::nearbyint(x) + 0.0;
    }
}

OtherEnd EndOf(int end)
{
    switch (end) {
        case kOpinionOptimal:
            return OtherEnd::Optimal;
        case kOpinionInfeasible:
            return OtherEnd::Infeasible;
        case kOpinionUnbounded:
            return OtherEnd::Unbounded;
        case kOpinionTimeOut:
            return OtherEnd::TimeOut;
        default:
            return OtherEnd::Failed;
    }
}

}  // namespace

void SetOpinionFolder(const std::string& folder)
{
    folderOfModule = folder;
}

bool KeepsToLimits(const LpResult& result, const std::vector<double>& values)
{
    const VtLP::LpProblem& problem = result.Problem;
    const Array1<std::int16_t> binary = BinaryVariables(result);
    for (int j = 1; j <= problem.NumVariables; ++j) {
        const double x = values[static_cast<std::size_t>(j) - 1];
        if (!std::isfinite(x) || x < -kLimitRoom) return false;
        if (binary(j) == 1 && x > 1 + kLimitRoom) return false;
        if (result.Integer && result.IntegerColumn(j) == 1 && x != std::nearbyint(x)) return false;
    }
    for (int i = 1; i <= problem.NumConstraints; ++i) {
        const double b = problem.LpCoefficients(i, 0);
        const double over = ExactRow(problem, i, values, -b);
        const double room = kLimitRoom * (1 + std::abs(b));
        if (problem.LpRelations(i) != VtLP::kGreater && over > room) return false;
        if (problem.LpRelations(i) != VtLP::kLess && over < -room) return false;
    }
    return true;
}

// A solver that breaks down is asked once more in other ways.
OtherResult AskOther(const LpResult& result, const std::stop_token& stop)
{
    OtherResult other;
    if (!IsInstalled()) return other;
    std::vector<double> answer;
    for (int way = 0; way < kOpinionWays && answer.size() < 2 && !stop.stop_requested(); ++way)
        answer = Asked(QuestionOf(result, way), stop);
    other.End = answer.size() < 2 ? OtherEnd::Failed : EndOf(static_cast<int>(answer[0]));
    const auto count = static_cast<std::size_t>(result.Problem.NumVariables);
    if (answer.size() != count + 2) return other;
    other.Values.assign(answer.begin() + 2, answer.end());
    Tidy(result, other.Values);
    other.HasPlan = KeepsToLimits(result, other.Values);
    other.Objective = ExactRow(result.Problem, 0, other.Values, 0);
    return other;
}

}  // namespace LP_Engine
