// The text form of a linear program: the lines of the input are the objective and the constraints.
#include "basic/error.h"
#include "input.h"
#include "lp/VtLP.h"
#include "support/fake_desktop.h"

namespace {

// As many lines as the model has room for.
void SetLines(const std::string& text)
{
    VtLP::LpProblem& problem = VtLP::Problem;
    std::size_t start = 0;
    int row = 0;
    for (; row <= VtLP::kMostConstraints && start <= text.size(); ++row) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        problem.LpLines(VtLP::kObjectiveLine + row) = text.substr(start, end - start);
        start = end + 1;
    }
    problem.NumConstraints = static_cast<std::int16_t>(row - 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FakeDesktop desktop;
    VtLP::AllocateLpModel();
    SetLines(TextOf(data, size));
    try {
        VtLP::ParseLpLines();
    } catch (const RuntimeError&) {
        return 0;  // what the command's trap would tell the user
    }
    Claim(VtLP::Problem.NumVariables <= VtLP::kMostVariables);
    for (int j = 1; j <= VtLP::Problem.NumVariables; ++j)
        Claim(!VtLP::Problem.LpVariableNames(j).empty());
    return 0;
}
