// Random problems of every module as the text of a problem file, and the answers to what Solve asks: small
// and large, from the smallest size to the limit, with zeros, ties, equal lines, unbalanced sides, nodes that
// cannot be reached and rates that a line cannot cope with. The same seed gives the same problems.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "support/fake_desktop.h"

namespace random_problems {

struct Given {
    int Module = 0;  // 1 to 12
    std::string Text = {};
    std::string Answers = {};  // in words, as the tests tell them

    bool Maximize = false;  // transportation, assignment, decisions
    int Criterion = 1;      // of decisions without chances
    int Start = 1;          // of a route
    int End = 2;            //
    int Method = 1;         // of forecasts, with its two fields
    std::string Parameter = {};
    std::string Count = {};
    int Kind = 0;  // of whole-number programs: all whole, all 0/1, some of each
    std::vector<bool> Binary = {};
    std::vector<bool> General = {};
};

class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    Given Next() { return Next(Whole(1, 12)); }
    Given Next(int module);

private:
    int Whole(int least, int most);
    bool OneIn(int count) { return Whole(1, count) == 1; }
    int Size(int least, int most);  // mostly small, now and then at the limit
    double Value(double most);      // of the problem's own kind: whole, with places, often 0
    void ChooseValues();

    Given LinearProgram(bool whole);
    std::string Limit(int variables, int rightMost);
    Given Tableau(int module);
    Given Network(int module);
    Given Project();
    Given Inventory();
    Given WaitingLine();
    Given Decision();
    Given TimeSeries();
    Given Chain();
    std::vector<double> Shares(int count);  // thousandths that add up to 1

    std::mt19937 random_;
    int values_ = 0;
    double same_ = 0;
};

// Answers the dialogs that Solve shows as `given` tells; it must outlive the forms' answers.
void AnswerDialogs(FakeForms& forms, const Given& given);

// Opens the problem in its module and solves it on the desktop at hand.
void Solve(FakeForms& forms, const Given& given);

}  // namespace random_problems
