#include "invariants.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "basic/entrytext.h"
#include "basic/number.h"
#include "decision/VtDecisionAnalysis.h"
#include "desktop/desktop.h"
#include "forecasting/VtForecasting.h"
#include "inventory/VtInvent.h"
#include "lp/VtLP.h"
#include "markov/Markov.h"
#include "network/vtshrtrt.h"
#include "project/VtPert_CPM.h"
#include "shell/session.h"
#include "tableau/VtTanda.h"
#include "waiting/VtWait.h"

namespace {

// The tables to type in. That of a project is filled from the field below it.
std::vector<qt::EntryGrid*> GridsOnScreen()
{
    constexpr int kProject = 7;
    std::vector<qt::EntryGrid*> grids;
    if (Session.CurrentModule == kProject) return grids;
    for (QWidget* window : QApplication::topLevelWidgets())
        for (auto* grid : window->findChildren<qt::EntryGrid*>())
            if (grid->isVisible()) grids.push_back(grid);
    return grids;
}

std::string Place(const Grid& cells, int row, int column)
{
    return " in row " + std::to_string(row) + ", column " + std::to_string(column) + ": \"" +
           cells.Text(row, column) + "\"";
}

// The number that a text of a cell means; an empty one is 0.
double NumberIn(std::string text)
{
    std::erase(text, ',');
    return Val(text);
}

// Texts have 15 digits, so they need not be the number to the last bit.
bool Shows(double shown, double held, double tolerance = 0)
{
    constexpr double kFifteenDigits = 1e-14;
    return std::abs(shown - held) <= tolerance + kFifteenDigits * std::abs(held);
}

// A cost that needs a second decimal is kept within the range of the reports.
bool ShowsCost(double shown, double held)
{
    constexpr double kMost = 999999;
    constexpr double kMostWithTwoPlaces = 999.99;
    return Shows(shown, held) || (shown < -kMost && held == -kMost) ||
           (std::abs(shown) > kMostWithTwoPlaces && std::abs(held) == kMostWithTwoPlaces);
}

bool IsCellOfTableau(const Grid& cells, int row, int column)
{
    using Tableau::Problem;
    const double shown = NumberIn(cells.Text(row, column));
    const bool inRows = row <= Problem.NumOrigins;
    const bool inColumns = column <= Problem.NumDestinations;
    if (inRows && inColumns)
        return ShowsCost(shown, Problem.ArcCost(Tableau::ArcNumber(row, column)).Value());
    if (inRows) return Shows(Int(shown + 0.5), Problem.NodeSupply(row));
    return !inColumns || Shows(Int(shown + 0.5), -Problem.NodeSupply(Problem.NumOrigins + column));
}

// Lengths are kept in thousandths and drawn with two decimals.
bool IsCellOfNetwork(const Grid& cells, int row, int column)
{
    constexpr double kThousand = 1000;
    constexpr double kHalfHundredth = 0.00501;
    const double shown = NumberIn(cells.Text(row, column));
    const double held = Network::Problem.ArcTable(column, row);
    return column == Network::kLength ? Shows(shown, held / kThousand, kHalfHundredth) : Int(shown) == held;
}

bool IsCellOfForm(const Grid& cells, int row, int column)
{
    switch (Session.CurrentModule) {
        case 2:
        case 3:
            return IsCellOfTableau(cells, row, column);
        case 5:
        case 6:
            return IsCellOfNetwork(cells, row, column);
        case 11:
            return Shows(NumberIn(cells.Text(row, column)), VtForecasting::Problem.TimeSeries(row).Value());
        case 12:
            return Shows(NumberIn(cells.Text(row, column)), Markov::Probability(row, column));
        default:
            return true;
    }
}

bool IsDecisionCell(const QString& grid, const Grid& cells, int row, int column)
{
    const double shown = NumberIn(cells.Text(row, column));
    if (grid == "Grid(0)") return Shows(shown, Decision::Problem.Payoff(row, column));
    const int pass = grid == "Grid(1)" ? Decision::kStateProbabilities : Decision::kIndicatorProbabilities;
    return Shows(shown, Decision::Probability(pass, row, column));
}

bool IsCell(qt::EntryGrid& grid, int row, int column)
{
    const Grid& cells = grid.Cells();
    const bool typed = grid.IsEditing() && row == cells.Row() && column == cells.Column();
    if (typed) return true;
    if (grid.objectName() == "gridDisplayEdit") return IsCellOfForm(cells, row, column);
    if (Session.CurrentModule == 10) return IsDecisionCell(grid.objectName(), cells, row, column);
    return true;
}

std::string WrongCell(qt::EntryGrid& grid)
{
    const Grid& cells = grid.Cells();
    for (int row = 1; row < cells.Rows(); ++row)
        for (int column = 1; column < cells.Columns(); ++column)
            if (!IsCell(grid, row, column))
                return "a cell is not what the record holds" + Place(cells, row, column) + " of " +
                       grid.objectName().toStdString();
    return {};
}

std::string Trimmed(const std::string& text)
{
    return QString::fromStdString(text).trimmed().toStdString();
}

// The grids of a linear program are its record; what they share is the names and the sizes.
std::string WrongProgram(const Grid& objective, const Grid& constraints)
{
    if (objective.Columns() - 1 != VtLP::Problem.NumVariables)
        return "there are other variables than counted";
    if (constraints.Rows() - 1 != VtLP::Problem.NumConstraints)
        return "there are other constraints than counted";
    for (int column = 1; column < objective.Columns(); ++column)
        if (Trimmed(constraints.Text(0, column)) != objective.Text(0, column))
            return "a heading is not the name" + Place(objective, 0, column);
    return {};
}

std::string WrongTables()
{
    const auto grids = GridsOnScreen();
    const auto edits = [](const qt::EntryGrid* grid) { return grid->IsEditing(); };
    if (std::count_if(grids.begin(), grids.end(), edits) > 1) return "two cells are being typed at once";
    for (qt::EntryGrid* grid : grids)
        if (std::string wrong = WrongCell(*grid); !wrong.empty()) return wrong;
    const bool linear = Session.CurrentModule == 1 || Session.CurrentModule == 4;
    if (!linear || grids.size() != 2) return {};
    const bool inOrder = grids[0]->objectName() == "Grid(0)";
    return WrongProgram(grids[inOrder ? 0 : 1]->Cells(), grids[inOrder ? 1 : 0]->Cells());
}

// ---- a project: its table, and the lists and boxes below it ----

struct ProjectTime {
    const char* Name;
    Array1<Variant> VtPert_CPM::PertProblem::*Times;
};

std::vector<ProjectTime> ProjectTimes()
{
    using VtPert_CPM::PertProblem;
    if (!VtPert_CPM::HasThreeEstimates()) return {{"txtExpectedTime", &PertProblem::ActivityTime}};
    return {{"txtOptimistic", &PertProblem::OptimisticTime},
            {"txtProbable", &PertProblem::ProbableTime},
            {"txtPessimistic", &PertProblem::PessimisticTime}};
}

std::string WrongProjectTable(const Grid& cells)
{
    constexpr int kHeadingRows = 2;
    constexpr int kFirstTime = 2;
    const auto times = ProjectTimes();
    if (cells.Rows() != VtPert_CPM::Problem.NumActivities + kHeadingRows)
        return "there are other activities than counted";
    for (int activity = 1; activity <= VtPert_CPM::Problem.NumActivities; ++activity) {
        const int row = activity + kHeadingRows - 1;
        if (cells.Text(row, 1) != VtPert_CPM::PredecessorText(activity))
            return "the table shows other predecessors" + Place(cells, row, 1);
        for (std::size_t k = 0; k < times.size(); ++k) {
            const int column = kFirstTime + static_cast<int>(k);
            const Variant& held = (VtPert_CPM::Problem.*times[k].Times)(activity);
            const std::string shown = cells.Text(row, column);
            const bool untouched = shown.empty() && held.Value() == 0;
            if (!untouched && shown != EntryText(held))
                return "the table shows another time" + Place(cells, row, column);
        }
    }
    return {};
}

// The predecessor list marks those that the record holds for the current activity.
std::string WrongPredecessors(const QListWidget& list)
{
    const int activity = VtPert_CPM::Problem.CurrentActivity;
    if (list.count() != activity - 1) return "the list offers other predecessors";
    const std::vector<int> held = VtPert_CPM::PredecessorsOf(activity);
    const bool refusedMore = VtPert_CPM::Problem.PredCount(activity).Value() > VtPert_CPM::kMostPredecessors;
    for (int row = 0; row < list.count() && !refusedMore; ++row) {
        const bool isHeld = std::count(held.begin(), held.end(), row + 1) > 0;
        if (list.item(row)->isSelected() != isHeld) return "a predecessor is not marked as it is held";
    }
    return {};
}

// ---- boxes ----

// What is being edited is a box with the focus, also while another window or the menu bar has the keys; an
// empty one has been passed over.
bool IsSettled(const QLineEdit& box)
{
    if (qobject_cast<const QMenuBar*>(box.window()->focusWidget()) != nullptr) return false;
    return box.isVisible() && box.window()->focusWidget() != &box && !box.text().isEmpty();
}

// Counts are kept without their decimals.
bool IsCount(const Variant& held)
{
    return &held == &VtWait::Problem.Channels || &held == &VtWait::Problem.Population;
}

std::string WrongBox(const QLineEdit& box, const Variant& held)
{
    const std::string text = box.text().toStdString();
    const double shown = NumberIn(text);
    if (!IsSettled(box) || text == EntryText(held)) return {};
    if (Shows(IsCount(held) ? std::trunc(shown) : shown, held.Value())) return {};
    return "a box is not what the record holds: " + box.objectName().toStdString() + " \"" + text + "\" of " +
           EntryText(held);
}

std::string WrongProject(const QWidget& form)
{
    const auto* grid = form.findChild<qt::EntryGrid*>("gridDisplayEdit");
    const auto* activities = form.findChild<QListWidget*>("lstActivityName");
    const auto* predecessors = form.findChild<QListWidget*>("lstPredecessor");
    if (grid == nullptr || activities == nullptr || predecessors == nullptr) return {};
    if (std::string wrong = WrongProjectTable(const_cast<qt::EntryGrid*>(grid)->Cells()); !wrong.empty())
        return wrong;
    if (activities->count() == 0) return {};  // a file may bring none
    if (activities->currentRow() + 1 != VtPert_CPM::Problem.CurrentActivity)
        return "another activity is current than the marked one";
    if (std::string wrong = WrongPredecessors(*predecessors); !wrong.empty()) return wrong;
    for (const ProjectTime& time : ProjectTimes()) {
        const auto* box = form.findChild<QLineEdit*>(time.Name);
        const Variant& held = (VtPert_CPM::Problem.*time.Times)(VtPert_CPM::Problem.CurrentActivity);
        if (std::string wrong = box == nullptr ? "" : WrongBox(*box, held); !wrong.empty()) return wrong;
    }
    return {};
}

// The boxes of an inventory form; null: it is no field of the record.
const Variant* InventoryField(const QString& form, const QString& box)
{
    using VtInvent::Problem;
    using Fields = std::vector<const Variant*>;
    static const std::map<QString, Fields> kNumbered = {
        {"txtEOQ", {&Problem.AnnualDemand, &Problem.OrderCost}},
        {"txtProdLot", {&Problem.AnnualDemand, &Problem.ProductionRate, &Problem.OrderCost}},
        {"txtPlannedShortages", {&Problem.AnnualDemand, &Problem.OrderCost, &Problem.BackorderCost}},
        {"txtQtyDiscounts", {&Problem.AnnualDemand, &Problem.OrderCost, &Problem.CarryingPercent}},
        {"txtQR_Prob", {&Problem.AnnualDemand, &Problem.OrderCost}},
        {"txtOnePeriodProb", {&Problem.OrderCost, &Problem.UnderCost}}};
    const QString name = box.section('(', 0, 0);
    const int index = box.section('(', 1).chopped(box.contains('(') ? 1 : 0).toInt();
    if (const auto found = kNumbered.find(name); found != kNumbered.end()) {
        const bool known = static_cast<std::size_t>(index) < found->second.size();
        return known ? found->second[static_cast<std::size_t>(index)] : &Problem.WorkingDays;
    }
    const bool percent = Problem.HoldingCostMethod.Value() == VtInvent::kPercentMethod;
    const bool normal = Problem.DistributionKind.Value() == VtInvent::kNormal;
    const bool probability = Problem.ServiceMethod.Value() == VtInvent::kStockoutProbability;
    if (name == "txtFrame1") return percent ? &Problem.CarryingPercent : &Problem.HoldingCost;
    if (name == "txtframe2") return &Problem.UnitCost;
    if (name == "txtleadtime") return &Problem.LeadTimeDays;
    if (name == "txtUnitCost") return &Problem.CategoryUnitCost(index + 1);
    if (name == "txtMinQty") return &Problem.CategoryMinimum(index + 1);
    if (name == "txtStockout") return probability ? &Problem.StockoutProbability : &Problem.AllowedStockouts;
    if (name == "txtSmallValue") return normal ? &Problem.MeanDemand : &Problem.LowestDemand;
    if (name == "txtLargeValue") return normal ? &Problem.DemandStdDev : &Problem.HighestDemand;
    if (form == "frmQR_Prob" && name == "txtMean") return &Problem.MeanDemand;
    if (form == "frmQR_Prob" && name == "txtStdDev") return &Problem.DemandStdDev;
    return nullptr;
}

const Variant* WaitingField(const QString& box)
{
    using VtWait::Problem;
    const QString name = box.section('(', 0, 0);
    const std::size_t index = box.section('(', 1).startsWith('0') ? 0 : box.section('(', 1).left(1).toUInt();
    if (name == "txtECONAnal") return index == 0 ? &Problem.CostPerUnitInSystem : &Problem.CostPerChannel;
    if (name != "txt_WL" || index >= VtWait::Boxes().size()) return nullptr;
    const VtWait::Box& known = VtWait::Boxes().at(index);
    return known.Take == nullptr ? nullptr : &(Problem.*known.Field);
}

// The common number of working days, and nothing at all, stand in boxes of a new problem before they are
// kept.
bool IsOffered(const QString& text, const Variant& held)
{
    return held.IsEmpty() && (text == "250" || text == "0");
}

std::string WrongModelForm(const QWidget& form)
{
    for (const QLineEdit* box : form.findChildren<QLineEdit*>()) {
        const Variant* held = Session.CurrentModule == 8
                                  ? InventoryField(form.objectName(), box->objectName())
                                  : WaitingField(box->objectName());
        if (held == nullptr || IsOffered(box->text(), *held)) continue;
        if (std::string wrong = WrongBox(*box, *held); !wrong.empty()) return wrong;
    }
    return {};
}

bool TakesKeys(const QWidget* widget)
{
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

}  // namespace

bool SomethingTakesTheNextKey()
{
    return QApplication::activePopupWidget() != nullptr || TakesKeys(QApplication::focusWidget()) ||
           TakesKeys(QApplication::activeWindow());
}

std::string WhatDoesNotHold()
{
    return Session.ProblemOnDisplay == "YES" ? WrongTables() : std::string();
}

std::string WhatBoxesDoNotHold()
{
    static const std::array<const char*, 8> kForms = {
        "frmPERT_CPM",     "frmEOQ",     "frmProductionLotSize", "frmPlannedShortages",
        "frmQtyDiscounts", "frmQR_Prob", "frmOnePeriodProb",     "frmWL_Model"};
    for (const char* name : kForms)
        for (QWidget* window : QApplication::topLevelWidgets()) {
            const QWidget* form = window->objectName() == name ? window : window->findChild<QWidget*>(name);
            if (form == nullptr || !form->isVisible()) continue;
            std::string wrong =
                form->objectName() == "frmPERT_CPM" ? WrongProject(*form) : WrongModelForm(*form);
            if (!wrong.empty()) return wrong;
        }
    return {};
}

TypedKey::TypedKey()
{
    for (qt::EntryGrid* grid : GridsOnScreen())
        grids_.push_back({grid, grid->State()});
}

std::string TypedKey::WhatDoesNotHold() const
{
    for (const Before& before : grids_) {
        if (before.Grid == nullptr || !before.Grid->isVisible()) continue;
        const qt::GridState after = before.Grid->State();
        if (after.Rows != before.State.Rows || after.Columns != before.State.Columns) continue;
        for (qsizetype i = 0; i < after.Texts.size(); ++i) {
            if (after.Texts[i] == before.State.Texts[i] || i < after.Columns) continue;  // headings follow
            const QModelIndex current = before.Grid->currentIndex();
            const bool isCurrent =
                i == static_cast<qsizetype>(current.row()) * after.Columns + current.column();
            if (!isCurrent) return "a key has changed another cell than the current one";
            if (!before.Grid->IsInUse()) return "a key has changed a cell of another table";
            const QRect seen = before.Grid->viewport()->rect();
            const QRect cell = before.Grid->visualRect(current);
            if (!seen.intersects(cell)) return "a key has changed a cell that is out of sight";
        }
    }
    return {};
}
