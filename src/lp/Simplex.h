// The steps of the simplex method on the tables of one run, and who listens to them.
#pragma once

#include <vector>

#include "lp/LP_Engine.h"

namespace LP_Engine {

// The column that enters, and the way it goes: +1 up from its lower bound, -1 down from its upper one.
struct Entering {
    int Column = 0;
    int Direction = 0;
    double Gain = 0;  // of the objective a unit, in the primal step
};

// The row that leaves, and how far the entering column goes. With kBoundFlip no row leaves.
struct Leaving {
    int Row = 0;
    int Kind = kBoundFlip;
    double Step = 0;
};

// A basic value outside of its bounds. The kind is the bound that it is to go to.
struct BoundViolation {
    int Row = 0;  // 0: there is none
    int Kind = kBoundFlip;
    double Step = EngineInfinity;
};

// A step that is about to be made.
struct Pivot {
    bool Dual = false;
    Entering In;
    Leaving Out;
    const Array1<double>* Column = nullptr;  // the entering column of the tableau, by row position
};

// Hears what a run does. What is handed over lasts as long as the call.
class Recorder {
public:
    virtual ~Recorder() = default;
    // Asked before each step of a replay: false breaks it off like the user.
    virtual bool GoesOn(const LpResult& /*at*/) { return true; }
    virtual void Started(const LpResult& /*at*/) {}  // with the logical columns as the basis
    virtual void Turns(const LpResult& /*at*/, const Pivot& /*pivot*/) {}  // before the basis changes
    virtual void NoEntering(const LpResult& /*at*/, const BoundViolation& /*row*/) {}
    virtual void Unlimited(const LpResult& /*at*/, const Entering& /*column*/) {}
    virtual void Settled(const LpResult& /*at*/, int /*record*/) {
    }  // a node of the search, its relaxation solved
};

class Simplex {
public:
    Simplex(LpResult& result, Recorder* recorder) : at_(result), recorder_(recorder) {}

    // The tables for the problem of the result; the search may bound and mark columns before BuildColumns.
    void MakeTables();
    void BuildColumns();

    // False: a basic value outside of its bounds could not be mended.
    bool DualSteps();
    // False: the objective grows without end.
    [[nodiscard]] bool PrimalSteps();
    // The basic values follow when the bound that a nonbasic column rests at moves.
    void MoveRestingColumn(int column, double change);

    // Value times cost over all columns, at the costs of the last pricing.
    void ComputeObjective();

private:
    struct RowLimit;

    void AddLogicalColumn(int column, int row, std::int16_t kind, double coefficient);
    void StartBasic(int column, int row);
    void AddArtificial(int column, int row);
    void BuildDecisionColumns();
    void BuildLogicalColumns();
    void SetInitialValues();
    void CountClearedArtificials();

    void SetPhaseCosts();
    void SolvePrices();
    void PriceColumns();
    [[nodiscard]] Entering ChooseEntering() const;
    Entering Price();

    void TransformColumn(int column);
    [[nodiscard]] bool IsUnbounded(const Entering& entering) const;
    [[nodiscard]] RowLimit LimitOf(int row, int direction) const;
    [[nodiscard]] bool IsClearedArtificial(int row) const;
    [[nodiscard]] bool IsNearer(int row, const RowLimit& limit, double step) const;
    [[nodiscard]] Leaving ChooseLeaving(const Entering& entering) const;

    void MarkBoundViolations();
    [[nodiscard]] BoundViolation PickInfeasibleRow() const;
    [[nodiscard]] int ViolatedSide(int row) const;
    int GatherCandidates();
    [[nodiscard]] int DualRatioTest(const BoundViolation& violation);
    [[nodiscard]] Pivot DualStep(int column, const BoundViolation& violation);

    void ChangeStatus(const Entering& entering, const Leaving& leaving);
    void ChangeValues(double step);
    void ChangeKinds(int entering, int leavingRow);
    void ShiftBasis(const Entering& entering, const Leaving& leaving);
    void UpdateBasis(const Pivot& pivot);
    void LetBreakOff() const;

    [[nodiscard]] int Rows() const { return at_.Problem.NumConstraints; }
    [[nodiscard]] int Variables() const { return at_.Problem.NumVariables; }

    LpResult& at_;
    Recorder* recorder_;

    // Scratch, made once, so that no step allocates.
    Array1<double> priceVector_;
    Array1<double> basicCosts_;
    Array1<double> columnEntries_;
    Array1<double> workColumn_;
    Array1<double> pivotColumn_;
    Array2<double> candidateBlock_;
    std::vector<int> candidates_;
};

}  // namespace LP_Engine
