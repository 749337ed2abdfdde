#include "support/random_problems.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basic/format.h"
#include "basic/records.h"
#include "decision/VtDecisionAnalysis.h"
#include "forecasting/VtForecasting.h"
#include "lp/IntegerTypes.h"
#include "network/vtshrtrt.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "tableau/Criterion.h"

namespace random_problems {
namespace {

enum Values { kWhole, kPlaces, kFew, kZeros, kSame, kLarge, kKinds };

std::string Number(double value)
{
    return PlainText(value);
}

std::string Pair(double value)
{
    return Number(value) + ",\"" + Number(value) + "\",";
}

}  // namespace

int Maker::Whole(int least, int most)
{
    return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
}

int Maker::Size(int least, int most)
{
    const int which = Whole(1, 10);
    if (which == 1) return least;
    if (which == 2) return most;
    return Whole(least, which == 3 ? most : std::min(most, least + 5));
}

void Maker::ChooseValues()
{
    values_ = OneIn(3) ? Whole(0, kKinds - 1) : Whole(0, 1);
    same_ = Whole(0, 9);
}

double Maker::Value(double most)
{
    const int whole = static_cast<int>(most);
    switch (values_) {
        case kPlaces:
            return std::min(most, Whole(0, whole * 100) / 100.0);
        case kFew:
            return std::min(most, static_cast<double>(Whole(1, 3)));
        case kZeros:
            return OneIn(2) ? 0 : Whole(0, whole);
        case kSame:
            return std::min(most, same_);
        case kLarge:
            return std::min(most, 1000.0 * Whole(0, 900));
        default:
            return Whole(0, whole);
    }
}

Given Maker::Next(int module)
{
    ChooseValues();
    Given given;
    switch (module) {
        case 1:
        case 4:
            given = LinearProgram(module == 4);
            break;
        case 2:
        case 3:
            given = Tableau(module);
            break;
        case 5:
        case 6:
            given = Network(module);
            break;
        case 7:
            given = Project();
            break;
        case 8:
            given = Inventory();
            break;
        case 9:
            given = WaitingLine();
            break;
        case 10:
            given = Decision();
            break;
        case 11:
            given = TimeSeries();
            break;
        default:
            given = Chain();
            break;
    }
    given.Module = module;
    return given;
}

std::string Maker::Limit(int variables, int rightMost)
{
    std::string line;
    for (int j = 1; j <= variables; ++j) {
        const double coefficient = (OneIn(6) ? -1 : 1) * (OneIn(5) ? 0 : Value(20));
        line.append(coefficient < 0 ? "" : "+").append(Number(coefficient));
        line.append("X").append(std::to_string(j));
    }
    static const std::array<const char*, 6> kRelations = {"<", "<", "<", "<", ">", "="};
    line += kRelations.at(static_cast<std::size_t>(Whole(0, 5)));
    return line + Number(OneIn(8) ? 0 : Value(rightMost));
}

Given Maker::LinearProgram(bool whole)
{
    Given given;
    const int variables = OneIn(2) ? 2 : Size(1, whole ? 6 : 40);
    const int limits = Size(1, whole ? 8 : 50);
    RecordWriter file;
    file.Write({static_cast<double>(limits + 1)});
    std::string objective = OneIn(2) ? "MAX " : "MIN ";
    for (int j = 1; j <= variables; ++j) {
        const double coefficient = (OneIn(8) ? -1 : 1) * Value(30);
        objective.append(coefficient < 0 ? "" : "+").append(Number(coefficient));
        objective.append("X").append(std::to_string(j));
    }
    file.Write({objective});
    for (int i = 1; i <= limits; ++i)
        file.Write({Limit(variables, whole ? 40 : 200)});
    given.Text = file.Text();
    given.Kind = Whole(0, 2);
    for (int j = 1; j <= variables; ++j) {
        const int kind = Whole(0, 2);
        given.Binary.push_back(kind == 1);
        given.General.push_back(kind == 2);
    }
    static const std::array<const char*, 3> kKindWords = {"whole", "0/1", "mixed"};
    if (!whole) return given;
    given.Answers = kKindWords.at(static_cast<std::size_t>(given.Kind));
    for (std::size_t j = 0; j < given.Binary.size(); ++j)
        given.Answers += given.Binary[j] ? " b" : given.General[j] ? " w" : " -";
    return given;
}

Given Maker::Tableau(int module)
{
    Given given;
    const int origins = Size(1, 30);
    const int destinations = OneIn(3) ? origins : Size(1, 30);
    RecordWriter file;
    file.Write({2.0, static_cast<double>(origins), static_cast<double>(destinations)});
    for (int cell = 0; cell < origins * destinations; ++cell)
        file.Write({Value(99)});
    if (module == 2)
        for (int side = 0; side < origins + destinations; ++side)
            file.Write({static_cast<double>(OneIn(12) ? 0 : Whole(1, 20) * (OneIn(3) ? 10 : 1))});
    given.Text = file.Text();
    given.Maximize = OneIn(3);
    given.Answers = given.Maximize ? "maximize" : "minimize";
    return given;
}

Given Maker::Network(int module)
{
    Given given;
    const int nodes = Size(2, 20);
    const int arcs = Size(1, 40);
    RecordWriter file;
    file.Write({2.0, static_cast<double>(nodes), static_cast<double>(arcs)});
    const bool joined = !OneIn(5);
    for (int k = 1; k <= arcs; ++k) {
        const int to = joined && k < nodes ? k + 1 : Whole(1, nodes);
        int from = joined && k < nodes ? Whole(1, k) : Whole(1, nodes);
        if (from == to) from = to % nodes + 1;
        file.Write({static_cast<double>(from)});
        file.Write({static_cast<double>(to)});
        file.Write({Value(99)});
    }
    given.Text = file.Text();
    given.Start = OneIn(2) ? 1 : Whole(1, nodes);
    given.End = OneIn(2) ? nodes : Whole(1, nodes);
    if (module == 5) given.Answers = std::to_string(given.Start) + " " + std::to_string(given.End);
    return given;
}

Given Maker::Project()
{
    constexpr int kMostPredecessors = 8;
    Given given;
    const int activities = Size(1, 25);
    const bool estimates = OneIn(2);
    std::vector<std::vector<int>> before(static_cast<std::size_t>(activities));
    for (int i = 1; i < activities; ++i)
        for (int k = 0; k < i; ++k)
            if (OneIn(3 + i / 3) && before[static_cast<std::size_t>(i)].size() < kMostPredecessors)
                before[static_cast<std::size_t>(i)].push_back(k + 1);
    RecordWriter file;
    file.Write({2.0, 2.0, static_cast<double>(activities), estimates ? 2.0 : 1.0});
    for (const auto& list : before)
        file.Write({estimates ? 0.0 : Value(20), static_cast<double>(list.size())});
    for (const auto& list : before)
        for (const int activity : list)
            file.Write({static_cast<double>(activity)});
    if (estimates)
        for (int i = 0; i < activities; ++i) {
            const double optimistic = Value(9);
            const double probable = optimistic + Value(9);
            file.Write({optimistic, probable});
            file.Write({probable + Value(9), 0.0});
        }
    given.Text = file.Text();
    return given;
}

Given Maker::Inventory()
{
    Given given;
    const int model = Whole(1, 6);
    const double demand = Whole(1, 100) * (OneIn(2) ? 10 : 100);
    const bool amount = model != 4 && OneIn(2);
    const double holding = Whole(1, 500) / 100.0;
    const double percent = Whole(1, 60);
    const double cost = Whole(1, 900) / 10.0;
    const double held = amount || model == 4 ? holding : percent / 100 * cost;
    const int service = Whole(1, 2);
    const int categories = model == 4 ? Whole(1, 5) : 0;
    std::string text = std::to_string(model) + ",";
    text += Pair(demand) + Pair(Whole(1, 4000) / 10.0);
    text += Number(held) + ",\"" + (amount ? Number(held) : "") + "\",";
    text += Pair(amount ? 0 : percent) + Pair(amount ? 0 : cost) + Pair(Whole(1, 900) / 10.0);
    text += Pair(Whole(1, 366)) + Pair(OneIn(4) ? 0 : Whole(0, 400)) + Pair(Whole(1, 500));
    text.back() = '\r';
    text += "\n" + Pair(OneIn(10) ? 0 : Whole(1, 90)) + Pair(service);
    text += Pair(Whole(1, 999) / 1000.0) + Pair(Whole(1, 200) / 10.0);
    text += Pair(demand * Whole(110, 800) / 100) + Pair(amount ? 1 : 2) + "0,0,";
    text += (OneIn(2) ? "-1," : "0,") + Pair(categories) + Pair(Whole(1, 900) / 10.0);
    text += std::to_string(Whole(1, 2)) + ",\"\",";
    const int lowest = Whole(0, 300);
    text += Pair(lowest) + Pair(lowest + Whole(1, 400));
    text.back() = '\r';
    text += "\n";
    double unit = Whole(50, 400) / 10.0;
    int least = 0;
    for (int k = 1; k <= categories; ++k) {
        text += Pair(unit) + Pair(least);
        text.back() = '\r';
        text += "\n";
        unit = std::max(0.1, unit * Whole(80, 100) / 100);
        least += Whole(1, 30) * (OneIn(2) ? 10 : 100);
    }
    given.Text = text;
    return given;
}

Given Maker::WaitingLine()
{
    Given given;
    const int model = Whole(1, 5);
    const int channels = model == 2 || model == 3 ? 1 : Size(1, 25);
    const double service = Whole(1, 400) / 10.0;
    const int population = Size(channels, 30);
    const double load = Whole(5, model == 4 ? 200 : 99) / 100.0;
    double arrival = service * channels * load;
    if (model == 5) arrival = service * Whole(1, 200) / 100.0 / 10.0;
    const bool economic = OneIn(2);
    const std::string costs = economic ? Number(Whole(0, 90)) + "," + Number(Whole(0, 90)) : std::string(",");
    given.Text = std::to_string(model) + "," + std::to_string(channels) + "," + Number(arrival) + "," +
                 Number(service) + "," + (model == 5 ? std::to_string(population) : "") + "," +
                 Number(model == 2 ? Whole(0, 100) / 100.0 : 0) + ",\"" + (economic ? "YES" : "NO") + "\"," +
                 costs + ",\"\",\"\",\"\",\"\",\"\",\"\"\r\n";
    return given;
}

std::vector<double> Maker::Shares(int count)
{
    constexpr int kThousand = 1000;
    std::vector<int> cuts = {0, kThousand};
    for (int i = 1; i < count; ++i)
        cuts.push_back(OneIn(6) ? cuts[static_cast<std::size_t>(Whole(0, i))] : Whole(0, kThousand));
    std::sort(cuts.begin(), cuts.end());
    std::vector<double> shares;
    for (std::size_t i = 1; i < cuts.size(); ++i)
        shares.push_back((cuts[i] - cuts[i - 1]) / static_cast<double>(kThousand));
    return shares;
}

Given Maker::Decision()
{
    Given given;
    const int alternatives = Size(1, 10);
    const int states = OneIn(3) ? 2 : Size(1, 10);
    const bool chances = !OneIn(3);
    const bool sample = chances && OneIn(2);
    const int outcomes = Size(1, 10);
    RecordWriter file;
    file.Write({2.0, static_cast<double>(states), static_cast<double>(alternatives), chances ? 1.0 : 0.0,
                sample ? 1.0 : 0.0, std::string(chances ? "YES" : "NO"), std::string(sample ? "YES" : "NO")});
    const auto write = [&file](const std::vector<double>& values) {
        for (const double value : values)
            file.Write({value});
    };
    for (int cell = 0; cell < alternatives * states; ++cell)
        file.Write({(OneIn(4) ? -1 : 1) * Value(500)});
    if (chances) write(Shares(states));
    if (sample) {
        file.Write({1.0, static_cast<double>(outcomes)});
        for (int j = 1; j <= states; ++j)
            write(Shares(outcomes));
    }
    given.Text = file.Text();
    given.Maximize = OneIn(2);
    given.Criterion = Whole(1, 3);
    given.Answers = (given.Maximize ? "maximize " : "minimize ") + std::to_string(given.Criterion);
    return given;
}

Given Maker::TimeSeries()
{
    Given given;
    given.Method = Whole(1, 4);
    const int seasons = Whole(2, 12);
    const int periods = given.Method == 4 ? Whole(2 * seasons, 100) : Size(2, 100);
    RecordWriter file;
    file.Write({static_cast<double>(periods), 2.0});
    for (int t = 1; t <= periods; ++t)
        file.Write({(values_ == kWhole ? t : 0) + Value(90)});
    given.Text = file.Text();
    if (given.Method == 1) given.Parameter = std::to_string(Whole(1, periods));
    if (given.Method == 2) given.Parameter = Number(Whole(0, 100) / 100.0);
    if (given.Method == 3) given.Parameter = std::to_string(Whole(1, 12));
    if (given.Method == 4) given.Parameter = std::to_string(seasons);
    given.Count = std::to_string(Whole(1, given.Method == 4 ? seasons : 12));
    given.Answers = std::to_string(given.Method) + " " + given.Parameter + " " + given.Count;
    return given;
}

Given Maker::Chain()
{
    Given given;
    const int states = Size(1, 10);
    RecordWriter file;
    file.Write({static_cast<double>(states)});
    for (int from = 0; from < states; ++from) {
        std::vector<double> row = Shares(states);
        const int kind = Whole(1, 6);
        if (kind <= 2) {  // a state that absorbs, or goes to one other
            std::fill(row.begin(), row.end(), 0.0);
            row[static_cast<std::size_t>(kind == 1 ? from : Whole(0, states - 1))] = 1;
        }
        std::shuffle(row.begin(), row.end(), random_);
        if (kind == 1) {
            std::fill(row.begin(), row.end(), 0.0);
            row[static_cast<std::size_t>(from)] = 1;
        }
        for (const double share : row)
            file.Write({share});
    }
    given.Text = file.Text();
    return given;
}

void AnswerDialogs(FakeForms& forms, const Given& given)
{
    forms.onModal["frmTransObj"] = [&given] {
        TakeCriterion(given.Maximize ? Criterion::Maximize : Criterion::Minimize);
    };
    forms.onModal["frmdecnopt"] = [&given] {
        Decision::TheSenseAndCriterion.Give({.Maximize = given.Maximize, .Criterion = given.Criterion});
    };
    forms.onModal["frminputnodes"] = [&given] {
        Network::TakeNodes(std::to_string(given.Start), std::to_string(given.End));
    };
    forms.onModal["frmForecastingModels"] = [&given] {
        VtForecasting::TakeMethod(given.Method, {given.Parameter, given.Count});
    };
    forms.onModal["frmIP"] = [&given] {
        static const std::array<VtLP::IntegerKind, 3> kKindsOf = {
            VtLP::IntegerKind::AllGeneral, VtLP::IntegerKind::AllBinary, VtLP::IntegerKind::Multiple};
        VtLP::TheIntegerChoice.Give({.Kind = kKindsOf.at(static_cast<std::size_t>(given.Kind)),
                                     .Binary = given.Binary,
                                     .General = given.General});
    };
}

void Solve(FakeForms& forms, const Given& given)
{
    AnswerDialogs(forms, given);
    Commands::Start();
    Commands::SelectModule(given.Module);
    Commands::ChooseModule();
    RecordReader file(given.Text);
    CurrentModule().Routines->Read(file);
    Session.NewProblem = false;
    DisplayProblem();
    Commands::Solve();
}

}  // namespace random_problems
