// A linear program, solved here and by a general solver where the machine has one. Both begin from the
// problem in memory; Vantrel's time holds its command from the entry grids to the report on screen.
#include <benchmark/benchmark.h>

#include "desk.h"
#include "problems.h"

#ifdef VANTREL_WITH_GLPK
#include <glpk.h>

#include "lp/VtLP.h"
#endif

namespace {

constexpr int kLinearProgramming = 1;
constexpr int kConstraints = 50;

void Vantrel(benchmark::State& state)
{
    bench::Desk desk(kLinearProgramming, kConstraints);
    for (auto _ : state)
        desk.Solve();
}

#ifdef VANTREL_WITH_GLPK

class GlpkProblem {
public:
    GlpkProblem() : problem_(glp_create_prob())
    {
        const VtLP::LpProblem& model = VtLP::Problem;
        glp_set_obj_dir(problem_, GLP_MAX);
        glp_add_rows(problem_, model.NumConstraints);
        glp_add_cols(problem_, model.NumVariables);
        for (int i = 1; i <= model.NumConstraints; ++i)
            glp_set_row_bnds(problem_, i, GLP_UP, 0.0, model.LpCoefficients(i, 0));
        for (int j = 1; j <= model.NumVariables; ++j)
            AddColumn(model, j);
    }
    ~GlpkProblem() { glp_delete_prob(problem_); }
    GlpkProblem(const GlpkProblem&) = delete;
    GlpkProblem& operator=(const GlpkProblem&) = delete;

    void Solve()
    {
        glp_std_basis(problem_);
        glp_smcp settings;
        glp_init_smcp(&settings);
        settings.msg_lev = GLP_MSG_OFF;
        glp_simplex(problem_, &settings);
    }

private:
    void AddColumn(const VtLP::LpProblem& model, int j)
    {
        glp_set_col_bnds(problem_, j, GLP_LO, 0.0, 0.0);
        glp_set_obj_coef(problem_, j, model.LpCoefficients(0, j));
        std::vector<int> rows{0};
        std::vector<double> values{0.0};
        for (int i = 1; i <= model.NumConstraints; ++i) {
            if (model.LpCoefficients(i, j) == 0.0) continue;
            rows.push_back(i);
            values.push_back(model.LpCoefficients(i, j));
        }
        glp_set_mat_col(problem_, j, static_cast<int>(rows.size()) - 1, rows.data(), values.data());
    }

    glp_prob* problem_;
};

void Glpk(benchmark::State& state)
{
    const bench::Desk desk(kLinearProgramming, kConstraints);
    GlpkProblem problem;
    for (auto _ : state)
        problem.Solve();
}

BENCHMARK(Glpk)->Name("GLPK")->Unit(benchmark::kMicrosecond);

#endif

BENCHMARK(Vantrel)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
