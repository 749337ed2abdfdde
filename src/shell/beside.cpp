#include "shell/beside.h"

LastSolve TheLastSolve;

void LastSolve::Set(SolveEnd end)
{
    if (end == SolveEnd::None && end_ == SolveEnd::None) return;
    end_ = end;
    if (end != SolveEnd::None) ++number_;
    if (Changed) Changed();
}
