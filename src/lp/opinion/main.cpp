// The second opinion by COIN-OR CBC through its C interface.
#include <Cbc_C_Interface.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include "lp/opinion/opinion.h"

namespace {

struct Question {
    int Columns = 0;
    int Rows = 0;
    bool Minimize = false;
    int Way = kOpinionUsual;
    std::string Seconds;
    std::vector<int> Starts;
    std::vector<double> Upper;
    std::vector<double> Objective;
    std::vector<char> IsInteger;
    std::vector<int> Indices;
    std::vector<double> Values;
    std::vector<double> RowLower;
    std::vector<double> RowUpper;
};

std::vector<double> ReadAll()
{
    std::string bytes;
    std::array<char, 65536> block{};
    for (ssize_t count = read(0, block.data(), block.size()); count > 0;
         count = read(0, block.data(), block.size()))
        bytes.append(block.data(), static_cast<std::size_t>(count));
    std::vector<double> numbers(bytes.size() / sizeof(double));
    bytes.copy(reinterpret_cast<char*>(numbers.data()), numbers.size() * sizeof(double));
    return numbers;
}

// The numbers in the order of opinion.h; nothing when there are not as many as they say.
bool Parse(const std::vector<double>& numbers, Question& question)
{
    if (numbers.size() < kOpinionHead) return false;
    question.Columns = static_cast<int>(numbers[0]);
    question.Rows = static_cast<int>(numbers[1]);
    const auto entries = static_cast<std::size_t>(numbers[2]);
    const auto columns = static_cast<std::size_t>(question.Columns);
    const auto rows = static_cast<std::size_t>(question.Rows);
    if (numbers.size() != kOpinionHead + 4 * columns + 2 * entries + 2 * rows) return false;
    question.Minimize = numbers[3] != 0;
    question.Seconds = std::to_string(static_cast<int>(numbers[4]));
    question.Way = static_cast<int>(numbers[5]);
    const double* next = numbers.data() + kOpinionHead;
    for (std::size_t j = 0; j < columns; ++j, next += 4) {
        question.Starts.push_back(static_cast<int>(next[0]));
        question.Upper.push_back(next[1]);
        question.Objective.push_back(next[2]);
        question.IsInteger.push_back(next[3] != 0 ? 1 : 0);
    }
    question.Starts.push_back(static_cast<int>(entries));
    for (std::size_t k = 0; k < entries; ++k, next += 2) {
        question.Indices.push_back(static_cast<int>(next[0]));
        question.Values.push_back(next[1]);
    }
    for (std::size_t i = 0; i < rows; ++i, next += 2) {
        question.RowLower.push_back(next[0]);
        question.RowUpper.push_back(next[1]);
    }
    return true;
}

class Model {
public:
    Model(const Question& question, const double* objective) : model_(Cbc_newModel())
    {
        const std::vector<double> lower(static_cast<std::size_t>(question.Columns), 0.0);
        Cbc_setLogLevel(model_, 0);
        Cbc_loadProblem(model_, question.Columns, question.Rows, question.Starts.data(),
                        question.Indices.data(), question.Values.data(), lower.data(), question.Upper.data(),
                        objective, question.RowLower.data(), question.RowUpper.data());
        Cbc_setObjSense(model_, question.Minimize ? 1 : -1);
        for (int j = 0; j < question.Columns; ++j)
            if (question.IsInteger[static_cast<std::size_t>(j)] != 0) Cbc_setInteger(model_, j);
        Cbc_setParameter(model_, "presolve", "off");
        Cbc_setParameter(model_, "preprocess", question.Way == kOpinionPreprocessed ? "on" : "off");
        for (const char* name : {"cuts", "heuristics"})
            if (question.Way == kOpinionPlain) Cbc_setParameter(model_, name, "off");
        for (const char* name : {"log", "ratioGap", "allowableGap"})
            Cbc_setParameter(model_, name, "0");
        Cbc_setParameter(model_, "seconds", question.Seconds.c_str());
        Cbc_solve(model_);
    }
    ~Model() { Cbc_deleteModel(model_); }
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    [[nodiscard]] bool IsOptimal() const { return Cbc_isProvenOptimal(model_) != 0; }
    [[nodiscard]] bool IsTimeOut() const { return Cbc_isSecondsLimitReached(model_) != 0; }
    [[nodiscard]] bool HasEnded() const
    {
        return Cbc_isProvenInfeasible(model_) != 0 || Cbc_isContinuousUnbounded(model_) != 0;
    }
    [[nodiscard]] const double* Solution() const { return Cbc_getColSolution(model_); }

private:
    Cbc_Model* model_;
};

// The solver does not always tell an infeasible program from an unbounded one: without an objective only the
// latter has a plan.
int EndWithoutOptimum(const Question& question)
{
    const std::vector<double> nothing(static_cast<std::size_t>(question.Columns), 0.0);
    const Model model(question, nothing.data());
    if (model.IsOptimal()) return kOpinionUnbounded;
    if (model.IsTimeOut()) return kOpinionTimeOut;
    return model.HasEnded() ? kOpinionInfeasible : kOpinionFailed;
}

int EndOf(const Model& model, const Question& question)
{
    if (model.IsOptimal()) return kOpinionOptimal;
    if (model.IsTimeOut()) return kOpinionTimeOut;
    return model.HasEnded() ? EndWithoutOptimum(question) : kOpinionFailed;
}

// A row without entries stands for 0, which the solver does not look at.
bool HasImpossibleRow(const Question& question)
{
    std::vector<bool> filled(static_cast<std::size_t>(question.Rows));
    for (const int row : question.Indices)
        filled[static_cast<std::size_t>(row)] = true;
    for (std::size_t i = 0; i < filled.size(); ++i)
        if (!filled[i] && (question.RowLower[i] > 0 || question.RowUpper[i] < 0)) return true;
    return false;
}

std::vector<double> AnswerTo(const Question& question)
{
    if (HasImpossibleRow(question)) return {kOpinionInfeasible, 0};
    const Model model(question, question.Objective.data());
    const int end = EndOf(model, question);
    const bool hasPlan = (end == kOpinionOptimal || end == kOpinionTimeOut) && model.Solution() != nullptr;
    std::vector<double> answer{static_cast<double>(end), hasPlan ? 1.0 : 0.0};
    if (hasPlan) answer.insert(answer.end(), model.Solution(), model.Solution() + question.Columns);
    return answer;
}

}  // namespace

int main()
{
    Question question;
    if (!Parse(ReadAll(), question)) return 2;
    const int out = dup(1);
    const int nowhere = open("/dev/null", O_WRONLY);  // what the solver itself would tell
    dup2(nowhere, 1);
    dup2(nowhere, 2);
    const std::vector<double> answer = AnswerTo(question);
    const std::size_t size = answer.size() * sizeof(double);
    return write(out, answer.data(), size) == static_cast<ssize_t>(size) ? 0 : 1;
}
