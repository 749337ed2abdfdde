// Linear programs for tests, written as one would on paper.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct LpRow {
    std::vector<double> Coefficients;
    char Relation = '<';
    double RightHandSide = 0;
};

struct Lp {
    bool Minimize = false;
    std::vector<double> Objective;
    std::vector<LpRow> Rows;
};

// Into the model of VtLP, with the names X1, X2, ...
void SetProblem(const Lp& lp);

// What stands in the model of VtLP, into LP_Engine::Result.
void SolveModel(bool integer = false);

// And solved: a linear program, or one whose variables are as the type lines tell ("DIN", or "BIN", "X1",
// ...).
void Solve(const Lp& lp);
void SolveInteger(const Lp& lp, const std::vector<std::string>& typeLines);

// What the engine left.
std::vector<double> Values();  // of the decision variables
double Objective();            // in the problem's own sense
double Activity(const LpRow& row, const std::vector<double>& values);

// How far the values are from fulfilling all rows and signs; 0 or less: they do.
double Violation(const Lp& lp, const std::vector<double>& values);
