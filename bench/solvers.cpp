// The same work here and in the solvers that a machine may have, in one run: a linear program read from its
// text, solved and written with its ranges (GLPK), an integer program from the model to its optimum (CBC),
// tables of transportation and assignment from their costs to the optimum (LEMON's network simplex).
// Vantrel/NAME and OTHER/NAME make a pair; a pair whose optima differ fails.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "basic/format.h"
#include "basic/records.h"
#include "desk.h"
#include "lp/IntegerTypes.h"
#include "lp/LP_Engine.h"
#include "lp/LpReport.h"
#include "lp/VtLP.h"
#include "problems.h"
#include "shell/module.h"
#include "shell/report.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

#ifdef VANTREL_WITH_GLPK
#include <glpk.h>
#endif
#ifdef VANTREL_WITH_CBC
#include <Cbc_C_Interface.h>
#endif
#ifdef VANTREL_WITH_LEMON
#include <lemon/list_graph.h>
#include <lemon/network_simplex.h>
#endif

namespace {

constexpr int kLinearProgramming = 1;
constexpr int kTransportation = 2;
constexpr int kAssignment = 3;
constexpr int kIntegerProgramming = 4;
constexpr int kConstraints = 50;
constexpr int kTableSize = 30;

bool Agree(double a, double b)
{
    constexpr double kTolerance = 1e-6;
    return std::abs(a - b) <= kTolerance * std::max(1.0, std::abs(a));
}

void Compare(benchmark::State& state, double here, double there)
{
    if (!Agree(here, there)) state.SkipWithError("another optimum");
}

// ---- linear programs ----

VtLP::LpProblem ReadProgram(const std::string& text)
{
    RecordReader file(text);
    CurrentModule().Routines->Read(file);
    return VtLP::Problem;
}

void VantrelLinear(benchmark::State& state)
{
    const bench::Desk desk(kLinearProgramming, kConstraints);
    const std::string text = bench::ProblemText(kLinearProgramming, kConstraints);
    for (auto _ : state) {
        TextFileChannel report;
        WriteLpReport(report, LP_Engine::Solve(ReadProgram(text), VtLP::MinimizeFlag == 1, false));
        benchmark::DoNotOptimize(report.Text().size());
    }
}

#ifdef VANTREL_WITH_GLPK

// In the form that the solver reads.
void WriteProgram(const VtLP::LpProblem& problem, const std::filesystem::path& path)
{
    std::ofstream file(path);
    const auto expression = [&](int row) {
        for (int j = 1; j <= problem.NumVariables; ++j)
            if (const double value = problem.LpCoefficients(row, j); value != 0)
                file << (value < 0 ? " - " : " + ") << PlainText(std::abs(value)) << " "
                     << problem.LpVariableNames(j) << (j % 10 == 0 ? "\n" : "");
    };
    file << "Maximize\n";
    expression(0);
    file << "\nSubject To\n";
    for (int i = 1; i <= problem.NumConstraints; ++i) {
        expression(i);
        file << " <= " << PlainText(problem.LpCoefficients(i, 0)) << "\n";
    }
    file << "End\n";
}

void GlpkLinear(benchmark::State& state)
{
    const bench::Desk desk(kLinearProgramming, kConstraints);
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::string program = folder / "vantrel-bench.lp";
    const std::string ranges = folder / "vantrel-bench.txt";
    WriteProgram(VtLP::Problem, program);
    glp_term_out(GLP_OFF);
    glp_smcp settings;
    glp_init_smcp(&settings);
    settings.msg_lev = GLP_MSG_OFF;
    double value = 0;
    for (auto _ : state) {
        glp_prob* problem = glp_create_prob();
        glp_read_lp(problem, nullptr, program.c_str());
        glp_simplex(problem, &settings);
        glp_print_ranges(problem, 0, nullptr, 0, ranges.c_str());
        value = glp_get_obj_val(problem);
        glp_delete_prob(problem);
    }
    Compare(state, LP_Engine::Solve(VtLP::Problem, false, false).ObjectiveValue, value);
    std::filesystem::remove(program);
    std::filesystem::remove(ranges);
}

#endif

// ---- integer programs ----

// All variables are whole.
VtLP::LpProblem IntegerModel()
{
    VtLP::LpProblem model = VtLP::Problem;
    model.LpLines(VtLP::TypeLine(model)) = "DIN";
    return model;
}

void VantrelInteger(benchmark::State& state)
{
    const bench::Desk desk(kIntegerProgramming, kConstraints);
    const VtLP::LpProblem model = IntegerModel();
    for (auto _ : state)
        benchmark::DoNotOptimize(LP_Engine::Solve(model, false, true).ObjectiveValue);
}

#ifdef VANTREL_WITH_CBC

// By columns, as the solver takes it.
class CbcModel {
public:
    explicit CbcModel(const VtLP::LpProblem& problem)
    {
        for (int j = 1; j <= problem.NumVariables; ++j) {
            starts_.push_back(static_cast<int>(rows_.size()));
            objective_.push_back(problem.LpCoefficients(0, j));
            for (int i = 1; i <= problem.NumConstraints; ++i) {
                if (problem.LpCoefficients(i, j) == 0) continue;
                rows_.push_back(i - 1);
                values_.push_back(problem.LpCoefficients(i, j));
            }
        }
        starts_.push_back(static_cast<int>(rows_.size()));
        for (int i = 1; i <= problem.NumConstraints; ++i)
            most_.push_back(problem.LpCoefficients(i, 0));
        least_.assign(most_.size(), -HUGE_VAL);
        lower_.assign(objective_.size(), 0.0);
        upper_.assign(objective_.size(), HUGE_VAL);
    }

    [[nodiscard]] double Solve() const
    {
        constexpr double kMaximize = -1;
        const int columns = static_cast<int>(objective_.size());
        Cbc_Model* model = Cbc_newModel();
        Cbc_setLogLevel(model, 0);
        Cbc_loadProblem(model, columns, static_cast<int>(most_.size()), starts_.data(), rows_.data(),
                        values_.data(), lower_.data(), upper_.data(), objective_.data(), least_.data(),
                        most_.data());
        Cbc_setObjSense(model, kMaximize);
        for (int j = 0; j < columns; ++j)
            Cbc_setInteger(model, j);
        Cbc_setParameter(model, "log", "0");
        Cbc_solve(model);
        const double value = Cbc_getObjValue(model);
        Cbc_deleteModel(model);
        return value;
    }

private:
    std::vector<int> starts_;
    std::vector<int> rows_;
    std::vector<double> values_;
    std::vector<double> objective_;
    std::vector<double> lower_;
    std::vector<double> upper_;
    std::vector<double> least_;
    std::vector<double> most_;
};

void CbcInteger(benchmark::State& state)
{
    const bench::Desk desk(kIntegerProgramming, kConstraints);
    const CbcModel model(VtLP::Problem);
    double value = 0;
    for (auto _ : state)
        value = model.Solve();
    Compare(state, LP_Engine::Solve(IntegerModel(), false, true).ObjectiveValue, value);
}

#endif

// ---- tables ----

// What the routes of the plan cost; the arcs behind them only join the nodes.
double CostOf(const Tableau::TableauResult& plan)
{
    double cost = 0;
    for (int n = 1; n <= Tableau::Problem.NumNodes; ++n) {
        const int arc = std::abs(plan.BasicArc(n));
        if (arc <= Tableau::Problem.NumArcs)
            cost += Tableau::Problem.ArcCost(arc).Value() * plan.BasicFlow(n);
    }
    return cost;
}

void VantrelTable(benchmark::State& state, int module)
{
    const bench::Desk desk(module, kTableSize);
    for (auto _ : state)
        benchmark::DoNotOptimize(CostOf(Tableau::TaSolve(Tableau::Problem, false)));
}

#ifdef VANTREL_WITH_LEMON

class LemonNetwork {
public:
    explicit LemonNetwork(const Tableau::TableauProblem& problem) : costs_(graph_), supplies_(graph_)
    {
        std::vector<lemon::ListDigraph::Node> nodes;
        nodes.reserve(static_cast<std::size_t>(problem.NumNodes));
        for (int n = 1; n <= problem.NumNodes; ++n) {
            nodes.push_back(graph_.addNode());
            supplies_[nodes.back()] = problem.NodeSupply(n);
            balance_ += problem.NodeSupply(n);
        }
        const auto node = [&](int n) { return nodes[static_cast<std::size_t>(n - 1)]; };
        for (int a = 1; a <= problem.NumArcs; ++a)
            costs_[graph_.addArc(node(problem.TailNode(a)), node(problem.HeadNode(a)))] =
                problem.ArcCost(a).Value();
    }

    // What is left over of the supplies, or missing, stays where it is.
    [[nodiscard]] double Solve() const
    {
        using Solver = lemon::NetworkSimplex<lemon::ListDigraph, int, double>;
        Solver solver(graph_);
        solver.supplyMap(supplies_).costMap(costs_).supplyType(balance_ < 0 ? Solver::GEQ : Solver::LEQ);
        solver.run();
        return solver.totalCost();
    }

private:
    lemon::ListDigraph graph_;
    lemon::ListDigraph::ArcMap<double> costs_;
    lemon::ListDigraph::NodeMap<int> supplies_;
    int balance_ = 0;
};

void LemonTable(benchmark::State& state, int module)
{
    const bench::Desk desk(module, kTableSize);
    const LemonNetwork network(Tableau::Problem);
    double value = 0;
    for (auto _ : state)
        value = network.Solve();
    Compare(state, CostOf(Tableau::TaSolve(Tableau::Problem, false)), value);
}

#endif

void RegisterPairs()
{
    const auto add = [](const char* name, auto... routine) {
        benchmark::RegisterBenchmark(name, routine...)->Unit(benchmark::kMicrosecond);
    };
    add("Vantrel/linear program", VantrelLinear);
    add("Vantrel/integer program", VantrelInteger);
    add("Vantrel/transportation", VantrelTable, kTransportation);
    add("Vantrel/assignment", VantrelTable, kAssignment);
#ifdef VANTREL_WITH_GLPK
    add("GLPK/linear program", GlpkLinear);
#endif
#ifdef VANTREL_WITH_CBC
    add("CBC/integer program", CbcInteger);
#endif
#ifdef VANTREL_WITH_LEMON
    add("LEMON/transportation", LemonTable, kTransportation);
    add("LEMON/assignment", LemonTable, kAssignment);
#endif
}

}  // namespace

int main(int argc, char* argv[])
{
    RegisterPairs();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
