#include "qt/entrygrid.h"

#include <QAbstractButton>
#include <QHeaderView>

#include "basic/error.h"
#include "desktop/desktop.h"
#include "qt/application.h"
#include "qt/forms.h"
#include "qt/gridmodel.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kDefaultCharacters = 6;

}  // namespace

KeyAnswer NumberKey(char character)
{
    const bool taken = (character >= '0' && character <= '9') || character == '-' || character == '.';
    return taken ? KeyAnswer::Taken : KeyAnswer::Refused;
}

// The grid as the logic sees it.
class EntryGrid::CellsOfGrid : public Grid {
public:
    explicit CellsOfGrid(EntryGrid& grid) : grid_(grid) {}

    void Resize(int rows, int columns, int fixedRows, int fixedColumns) override
    {
        grid_.Resize(rows, columns, fixedRows, fixedColumns);
    }
    [[nodiscard]] int Rows() const override { return grid_.model_->Rows(); }
    [[nodiscard]] int Columns() const override { return grid_.model_->Columns(); }
    [[nodiscard]] std::string Text(int row, int column) const override
    {
        return FromQt(grid_.model_->Text(row, column));
    }
    void SetText(int row, int column, std::string_view text) override
    {
        grid_.SetText(row, column, ToQt(text));
    }
    [[nodiscard]] int Row() const override { return grid_.Row(); }
    [[nodiscard]] int Column() const override { return grid_.Column(); }
    bool FinishEdit() override { return grid_.FinishEdit(); }
    void Reject(int row, int column) override { grid_.Reject(row, column); }
    void Select(int row, int column) override { grid_.Select(row, column); }
    void SetColumnWidth(int column, int characters) override { grid_.SetColumnWidth(column, characters); }
    // Also while its window is not the active one, a box having just gone: the next key is for it.
    void SetFocus() override
    {
        LeadKeysTo(&grid_);
        grid_.setFocus(Qt::OtherFocusReason);
    }

private:
    EntryGrid& grid_;
};

EntryGrid::EntryGrid(const char* name, std::string_view description, EntryRules rules)
    : model_(new GridModel(this)), cells_(std::make_unique<CellsOfGrid>(*this)), rules_(std::move(rules))
{
    setObjectName(QString::fromUtf8(name));
    setAccessibleName(ToQt(description));
    setModel(model_);
    InstallPainter();
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);  // its blocks are marked by its own keys and clicks
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setHorizontalScrollMode(ScrollPerPixel);
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setSectionsClickable(false);
        header->setHighlightSections(false);
    }
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setCornerButtonEnabled(false);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(this);
    Measure();
    if (auto* application = qobject_cast<Application*>(qApp))
        application->Guard(this, Leaving::Grid, [this] {
            if (FinishEdit()) return true;
            setFocus(Qt::OtherFocusReason);
            return false;
        });
}

EntryGrid::~EntryGrid() = default;

Grid& EntryGrid::Cells()
{
    return *cells_;
}

int EntryGrid::Row() const
{
    return qMax(0, currentIndex().row());
}

int EntryGrid::Column() const
{
    return qMax(0, currentIndex().column());
}

void EntryGrid::Resize(int rows, int columns, int fixedRows, int fixedColumns)
{
    if (rows < 0 || columns < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    EndEdit();
    if (history_ != nullptr && !history_->IsAtWork()) history_->Forget();
    model_->Resize(rows, columns, fixedRows, fixedColumns);
    characters_.assign(static_cast<std::size_t>(columns), kDefaultCharacters);
    horizontalHeader()->setVisible(fixedRows > 0);
    verticalHeader()->setVisible(fixedColumns > 0);
    for (int row = 0; row < rows; ++row)
        setRowHidden(row, row < fixedRows);
    for (int column = 0; column < columns; ++column)
        setColumnHidden(column, column < fixedColumns);
    Measure();
    if (model_->Has(1, 1))
        Select(1, 1);
    else if (model_->Has(0, 0))
        Select(0, 0);
}

void EntryGrid::SetText(int row, int column, const QString& text)
{
    const bool ends = editing_ && row == Row() && column == Column() && model_->Text(row, column) != text;
    model_->SetText(row, column, text);
    Widen(column, text);
    if (!ends) return;
    EndEdit();
    EndStep();
}

void EntryGrid::SetColumnWidth(int column, int characters)
{
    if (!model_->Has(0, column)) Raise(ErrorNumber::SubscriptOutOfRange);
    characters_[static_cast<std::size_t>(column)] = characters;
    FitColumn(column);
}

void EntryGrid::Select(int row, int column)
{
    if (!model_->Has(row, column)) Raise(ErrorNumber::SubscriptOutOfRange);
    if (editing_) {
        EndEdit();
        EndStep();
    }
    viewport()->update();
    GoTo(row, column);
}

void EntryGrid::Reject(int row, int column)
{
    Select(row, column);
    BeginStep();
    TakeRefusal(row, column, model_->Text(row, column));
}

void EntryGrid::GoTo(int row, int column)
{
    const QModelIndex cell = model_->index(row, column);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    corner_ = {column, row};
    ShowBlock();
    scrollTo(cell);
}

bool EntryGrid::IsClosed(int row, int column) const
{
    return model_->IsFixed(row, column) || (rules_.Closed && rules_.Closed(row, column));
}

// ---- for its history ----

void EntryGrid::BeginStep()
{
    if (history_ != nullptr) history_->Begin();
}

void EntryGrid::EndStep()
{
    if (history_ != nullptr) history_->End();
}

GridState EntryGrid::State() const
{
    return {model_->Rows(), model_->Columns(), model_->Texts(), Row(), Column()};
}

void EntryGrid::ShowState(const GridState& state)
{
    if (state.Rows != model_->Rows() || state.Columns != model_->Columns()) return;
    for (int row = 0; row < state.Rows; ++row)
        for (int column = 0; column < state.Columns; ++column)
            SetText(row, column, state.Texts[static_cast<qsizetype>(row) * state.Columns + column]);
    if (model_->Has(state.Row, state.Column)) GoTo(state.Row, state.Column);
}

void EntryGrid::ShowText(int row, int column, const QString& text)
{
    if (model_->Has(row, column)) SetText(row, column, text);
}

bool EntryGrid::Arrive(int row, int column)
{
    if (!model_->Has(row, column) || model_->IsFixed(row, column)) return false;
    GoTo(row, column);
    Cells().SetFocus();
    return true;
}

}  // namespace qt
