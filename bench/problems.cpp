#include "problems.h"

#include <algorithm>
#include <random>

#include "basic/error.h"
#include "basic/format.h"
#include "basic/records.h"

namespace bench {
namespace {

constexpr unsigned kSeed = 6;
constexpr int kMostPredecessors = 8;

class Draws {
public:
    int Whole(int least, int most)
    {
        return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
    }
    double Hundredths(int least, int most) { return Whole(least * 100, most * 100) / 100.0; }

private:
    std::mt19937 random_{kSeed};
};

// A maximum under limits that are all positive has an optimum.
std::string Term(int coefficient, int variable)
{
    return (coefficient < 0 ? "" : "+") + std::to_string(coefficient) + "X" + std::to_string(variable);
}

std::string LinearProgram(int constraints)
{
    Draws draws;
    const int variables = 2 * constraints;
    RecordWriter file;
    file.Write({static_cast<double>(constraints + 1)});
    std::string objective = "MAX ";
    for (int j = 1; j <= variables; ++j)
        objective += Term(draws.Whole(10, 99), j);
    file.Write({objective});
    for (int i = 1; i <= constraints; ++i) {
        std::string line;
        for (int j = 1; j <= variables; ++j)
            if (draws.Whole(1, 3) > 1) line += Term(draws.Whole(1, 40), j);
        file.Write({line + "<" + std::to_string(draws.Whole(500, 5000))});
    }
    return file.Text();
}

// A knapsack in each constraint, few enough variables for the search to end.
std::string IntegerProgram(int constraints)
{
    Draws draws;
    constexpr int kVariables = 8;
    RecordWriter file;
    file.Write({static_cast<double>(constraints + 1)});
    std::string objective = "MAX ";
    for (int j = 1; j <= kVariables; ++j)
        objective += Term(draws.Whole(10, 30), j);
    file.Write({objective});
    for (int i = 1; i <= constraints; ++i) {
        std::string line;
        for (int j = 1; j <= kVariables; ++j)
            line += Term(draws.Whole(3, 20), j);
        file.Write({line + "<" + std::to_string(draws.Whole(60, 120))});
    }
    return file.Text();
}

std::string Tableau(int size, bool withSupplies)
{
    Draws draws;
    RecordWriter file;
    file.Write({2.0, static_cast<double>(size), static_cast<double>(size)});
    for (int cell = 0; cell < size * size; ++cell)
        file.Write({draws.Hundredths(1, 99)});
    if (!withSupplies) return file.Text();
    for (int side = 0; side < 2 * size; ++side)
        file.Write({static_cast<double>(draws.Whole(10, 500))});
    return file.Text();
}

// A ring through all nodes, and as many chords.
std::string Network(int nodes)
{
    Draws draws;
    RecordWriter file;
    file.Write({0.0, static_cast<double>(nodes), static_cast<double>(2 * nodes)});
    const auto arc = [&](int from, int to) {
        file.Write({static_cast<double>(from)});
        file.Write({static_cast<double>(to)});
        file.Write({static_cast<double>(draws.Whole(1, 99))});
    };
    for (int node = 1; node <= nodes; ++node) {
        arc(node, node % nodes + 1);
        arc(node, (node + 2) % nodes + 1);
    }
    return file.Text();
}

std::string Project(int activities)
{
    Draws draws;
    const auto predecessors = [](int activity) { return std::min(activity - 1, kMostPredecessors); };
    RecordWriter file;
    file.Write({0.0, 0.0, static_cast<double>(activities), 2.0});
    for (int activity = 1; activity <= activities; ++activity)
        file.Write({0.0, static_cast<double>(predecessors(activity))});
    for (int activity = 1; activity <= activities; ++activity)
        for (int position = predecessors(activity); position >= 1; --position)
            file.Write({static_cast<double>(activity - position)});
    for (int activity = 1; activity <= activities; ++activity) {
        const int optimistic = draws.Whole(1, 9);
        file.Write({static_cast<double>(optimistic), static_cast<double>(optimistic + 2)});
        file.Write({static_cast<double>(optimistic + draws.Whole(3, 9)), 0.0});
    }
    return file.Text();
}

std::string QuantityDiscounts(int categories)
{
    const std::string count = std::to_string(categories);
    std::string text =
        "4,5000,\"5000\",49,\"49\",0,\"\",20,\"20\",0,\"\",0,\"\",250,\"250\",0,\"\",0,\"\"\r\n"
        "0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,0,0," +
        count + ",\"" + count + "\",0,\"\",0,\"\",0,\"\",0,\"\"\r\n";
    for (int category = 1; category <= categories; ++category) {
        const std::string cost = PlainText(5.0 - 0.1 * category);
        const std::string quantity = std::to_string((category - 1) * 500);
        text.append(cost).append(",\"").append(cost).append("\",");
        text.append(quantity).append(",\"").append(quantity).append("\"\r\n");
    }
    return text;
}

std::string FinitePopulation(int channels)
{
    const std::string count = std::to_string(channels);
    return "5," + count + ",0.05,0.4,30,0,\"NO\",,,\"" + count + "\",\"0.05\",\"0.4\",\"30\",\"\",\"\"\r\n";
}

std::string Decision(int size)
{
    Draws draws;
    RecordWriter file;
    file.Write({0.0, static_cast<double>(size), static_cast<double>(size), 1.0, 1.0, "YES", "YES"});
    for (int cell = 0; cell < size * size; ++cell)
        file.Write({static_cast<double>(draws.Whole(-500, 999))});
    for (int state = 0; state < size; ++state)
        file.Write({1.0 / size});
    file.Write({1.0, static_cast<double>(size)});
    for (int cell = 0; cell < size * size; ++cell)
        file.Write({1.0 / size});
    return file.Text();
}

std::string TimeSeries(int periods)
{
    Draws draws;
    RecordWriter file;
    file.Write({static_cast<double>(periods), 2.0});
    for (int period = 1; period <= periods; ++period)
        file.Write({period + draws.Hundredths(20, 40)});
    return file.Text();
}

// Every row leans to the next state.
std::string Chain(int states)
{
    RecordWriter file;
    file.Write({static_cast<double>(states)});
    for (int from = 0; from < states; ++from)
        for (int to = 0; to < states; ++to)
            file.Write({to == (from + 1) % states ? 0.55 : states == 1 ? 1.0 : 0.45 / (states - 1)});
    return file.Text();
}

}  // namespace

std::string ProblemText(int module, int size)
{
    switch (module) {
        case 1:
            return LinearProgram(size);
        case 2:
            return Tableau(size, true);
        case 3:
            return Tableau(size, false);
        case 4:
            return IntegerProgram(size);
        case 5:
        case 6:
            return Network(size);
        case 7:
            return Project(size);
        case 8:
            return QuantityDiscounts(size);
        case 9:
            return FinitePopulation(size);
        case 10:
            return Decision(size);
        case 11:
            return TimeSeries(size);
        case 12:
            return Chain(size);
        default:
            Raise(ErrorNumber::SubscriptOutOfRange);
    }
}

}  // namespace bench
