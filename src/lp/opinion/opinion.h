// What the program of the second opinion reads from its standard input and writes to its standard output:
// rows of doubles in the machine's own form.
//
//   question  columns, rows, entries, minimise (1 or 0), seconds, the way (below), then
//             by column: start of its entries, upper bound, objective, integer (1 or 0); by entry: row from
//             0, value; by row: lower bound, upper bound. Lower bounds of columns are 0; absent bounds are
//             1e30
//   answer    end (below), whether a plan follows, the values by column
#pragma once

constexpr int kOpinionHead = 6;

// Ways to solve, for a solver that breaks down on one of them.
constexpr int kOpinionUsual = 0;
constexpr int kOpinionPlain = 1;         // without cuts and heuristics
constexpr int kOpinionPreprocessed = 2;  // the program is made smaller first
constexpr int kOpinionWays = 3;

constexpr int kOpinionOptimal = 0;
constexpr int kOpinionInfeasible = 1;
constexpr int kOpinionUnbounded = 2;
constexpr int kOpinionTimeOut = 3;
constexpr int kOpinionFailed = 4;

constexpr const char* kOpinionProgram = "vantrel-opinion";
