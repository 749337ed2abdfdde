#include "project/frmPERT_CPM.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QUndoCommand>
#include <QUndoStack>
#include <optional>
#include <set>

#include "basic/entrytext.h"
#include "basic/format.h"
#include "desktop/dialogs.h"
#include "project/VtPert_CPM.h"
#include "qt/colors.h"
#include "qt/fields.h"
#include "qt/text.h"
#include "shell/session.h"

using VtPert_CPM::PertProblem;
using VtPert_CPM::Problem;

namespace {

constexpr int kHeadingRows = 2;
constexpr int kPredecessorColumn = 1;
constexpr int kFirstTimeColumn = 2;

// A time of an activity: its box, its rule, its place in the table.
struct TimeField {
    const char* Name;
    const char* Heading;
    const char* Range;
    bool (*Take)(std::string_view text);
    Array1<Variant> PertProblem::*Times;
};
using TimeFields = std::vector<TimeField>;

const TimeFields& Fields()
{
    static const TimeFields known{
        {"txtExpectedTime", "Expected", qt::kZeroOrMore, VtPert_CPM::TakeExpectedTime,
         &PertProblem::ActivityTime},
    };
    static const TimeFields estimated{
        {"txtOptimistic", "Optimistic", qt::kZeroOrMore, VtPert_CPM::TakeOptimisticTime,
         &PertProblem::OptimisticTime},
        {"txtProbable", "Most Probable", "At least the optimistic time", VtPert_CPM::TakeProbableTime,
         &PertProblem::ProbableTime},
        {"txtPessimistic", "Pessimistic", "At least the most probable time", VtPert_CPM::TakePessimisticTime,
         &PertProblem::PessimisticTime},
    };
    return VtPert_CPM::HasThreeEstimates() ? estimated : known;
}

// "A, C" as the table shows it, or any letters with blanks or commas between them. Nothing where one of them
// is no activity before the current one.
std::optional<std::vector<int>> ReadPredecessors(const std::string& text)
{
    std::set<int> predecessors;
    for (const char character : UpperCase(text)) {
        if (character == ' ' || character == ',' || character == ';') continue;
        const int activity = character - 'A' + 1;
        if (activity < 1 || activity >= Problem.CurrentActivity) return std::nullopt;
        predecessors.insert(activity);
    }
    return std::vector<int>(predecessors.begin(), predecessors.end());
}

// The order in which a menu checks the boxes: the pessimistic time before the most probable one.
std::vector<std::size_t> MenuOrder()
{
    if (VtPert_CPM::HasThreeEstimates()) return {0, 2, 1};
    return {0};
}

std::string TimeText(const TimeField& field, int activity)
{
    return EntryText((Problem.*field.Times)(activity));
}

int RowOf(int activity)
{
    return activity + kHeadingRows - 1;
}

int ColumnOf(std::size_t timeField)
{
    return kFirstTimeColumn + static_cast<int>(timeField);
}

// What can be taken back, to the opening of the problem. The form comes and goes with each report.
QUndoStack& History()
{
    constexpr int kMost = 1000;  // steps; each keeps the whole table
    static QUndoStack history;
    if (history.undoLimit() == 0) history.setUndoLimit(kMost);
    return history;
}

int historyOf = 0;                // the number of the table
frmPERT_CPM* openForm = nullptr;  // there is one at most

// A menu that was being opened goes when what stands in a box is refused: the keys are the box's again.
void GoBackFromMenus(QLineEdit* box)
{
    QTimer::singleShot(0, box, [box] {
        while (QWidget* popup = QApplication::activePopupWidget())
            if (!popup->close()) break;
        qt::SelectBox(box);
    });
}

// Draws the table as something to read: on the ground of the form, the row of the current activity marked.
class ReadOnlyCells : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool marked = index.row() == RowOf(Problem.CurrentActivity);
        const QPalette& colors = option.palette;
        const QColor ground = colors.color(marked ? QPalette::Highlight : QPalette::Window);
        QStyleOptionViewItem cell = option;
        cell.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
        cell.backgroundBrush = ground;
        cell.palette.setColor(
            QPalette::Text,
            qt::ReadableOn(ground, colors.color(marked ? QPalette::HighlightedText : QPalette::WindowText)));
        painter->fillRect(option.rect, ground);
        QStyledItemDelegate::paint(painter, cell, index);
        painter->setPen(colors.color(QPalette::Mid));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }
};

QVBoxLayout* AddColumn(QBoxLayout* row)
{
    auto* column = new QVBoxLayout;
    row->addLayout(column, 1);
    return column;
}

}  // namespace

frmPERT_CPM::frmPERT_CPM(QWidget* parent) : qt::ChildForm(parent)
{
    setWindowTitle("PERT/CPM Activity Schedule");
    auto* page = new QVBoxLayout(this);
    AddTable(page);
    auto* row = new QHBoxLayout;
    page->addLayout(row);
    AddActivities(row);
    AddPredecessors(row);
    AddTimes(row);
    QLabel* info = qt::AddLabel(
        page, "lblInfo",
        "For each activity, select/deselect its predecessor(s) and enter its activity time.  Choose "
        "solution to solve.");
    qt::ShowAsNote(info);
    FillTable();
    FitLists();
    lstActivityName->setCurrentRow(0);
    lstActivityName->installEventFilter(this);
    lstPredecessor->installEventFilter(this);
    for (QLineEdit* box : timeBoxes_)
        box->installEventFilter(this);
    for (QListWidget* list : {lstActivityName, lstPredecessor}) {
        list->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(list, &QWidget::customContextMenuRequested, this,
                [this, list](const QPoint& at) { ShowMenu(*list, list->viewport()->mapToGlobal(at)); });
    }
    gridDisplayEdit->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(gridDisplayEdit, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        ShowMenu(*lstActivityName, gridDisplayEdit->viewport()->mapToGlobal(at));
    });
    setFocusProxy(lstActivityName);
    VtPert_CPM::CheckTimeBoxes = [this] { CheckTimes(); };
    if (historyOf != VtPert_CPM::TableNumber) History().clear();
    historyOf = VtPert_CPM::TableNumber;
    openForm = this;
}

void frmPERT_CPM::Unloading()
{
    VtPert_CPM::CheckTimeBoxes = {};
    openForm = nullptr;
}

// ---- what stands on it ----

// The table only shows: it is filled from the lists and boxes below it.
void frmPERT_CPM::AddTable(QVBoxLayout* page)
{
    qt::EntryRules rules;
    rules.Key = [](int, int, char, bool) { return qt::KeyAnswer::Refused; };
    rules.Commit = [](int, int, std::string_view) { return true; };
    rules.Closed = [](int, int) { return true; };
    gridDisplayEdit = new qt::EntryGrid("gridDisplayEdit", "Activities", std::move(rules));
    gridDisplayEdit->setFocusPolicy(Qt::NoFocus);
    gridDisplayEdit->setItemDelegate(new ReadOnlyCells(gridDisplayEdit));
    gridDisplayEdit->viewport()->setBackgroundRole(QPalette::Window);
    gridDisplayEdit->viewport()->installEventFilter(this);
    gridDisplayEdit->verticalHeader()->viewport()->installEventFilter(this);
    page->addWidget(gridDisplayEdit, 1);
}

void frmPERT_CPM::AddActivities(QBoxLayout* row)
{
    QVBoxLayout* column = AddColumn(row);
    QLabel* label = qt::AddLabel(column, "lblActivityName", "Select Activity:");
    lstActivityName = qt::AddList(column, "lstActivityName", "Activity");
    label->setBuddy(lstActivityName);
    for (int i = 1; i <= Problem.NumActivities; ++i)
        lstActivityName->addItem(qt::ToQt(Problem.ActivityName(i)));
    // A click on the current one shows its stored times again.
    const auto show = [this] { qt::Trap([this] { ShowActivity(lstActivityName->currentRow() + 1); }); };
    connect(lstActivityName, &QListWidget::currentRowChanged, this, show);
    connect(lstActivityName, &QListWidget::itemClicked, this, show);
    column->addStretch();
}

void frmPERT_CPM::AddPredecessors(QBoxLayout* row)
{
    QVBoxLayout* column = AddColumn(row);
    lblPredecessor = qt::AddLabel(column, "lblPredecessor", "");
    lstPredecessor = qt::AddList(column, "lstPredecessor", "Predecessors");
    lblPredecessor->setBuddy(lstPredecessor);
    lstPredecessor->setSelectionMode(QAbstractItemView::MultiSelection);
    connect(lstPredecessor, &QListWidget::itemSelectionChanged, this,
            [this] { qt::Trap([this] { Enter([this] { TakePredecessors(); }); }); });
    column->addStretch();
}

// As high as their items, where there is room for them.
void frmPERT_CPM::FitLists()
{
    constexpr int kLeastRows = 4;
    for (QListWidget* list : {lstActivityName, lstPredecessor}) {
        const int row = lstActivityName->sizeHintForRow(0);
        const int frame = 2 * (list->frameWidth() + 1);
        list->setMinimumHeight(kLeastRows * row + frame);
        list->setMaximumHeight(qMax(kLeastRows, int{Problem.NumActivities}) * row + frame);
    }
}

void frmPERT_CPM::AddTimes(QBoxLayout* row)
{
    QVBoxLayout* column = AddColumn(row);
    lblActivityTime = qt::AddLabel(column, "lblActivityTime", "");
    auto* rows = new QFormLayout;
    column->addLayout(rows);
    for (const TimeField& field : Fields()) {
        const std::size_t index = timeBoxes_.size();
        timeBoxes_.push_back(qt::AddBox(rows, field.Name, field.Heading + std::string(":"),
                                        [this, index](std::string_view) { return TakeTime(index); }));
        timeBoxes_.back()->setToolTip(field.Range);
    }
    column->addStretch();
}

// A click on the table goes to the field that changes what stands there.
bool frmPERT_CPM::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        return UsesKeys(*static_cast<QWidget*>(watched), *static_cast<const QKeyEvent*>(event));
    const bool onTable =
        watched == gridDisplayEdit->viewport() || watched == gridDisplayEdit->verticalHeader()->viewport();
    const bool pressed =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!onTable || !pressed) return ChildForm::eventFilter(watched, event);
    const QPoint place = static_cast<const QMouseEvent*>(event)->position().toPoint();
    const bool onName = watched == gridDisplayEdit->verticalHeader()->viewport();
    const int row = gridDisplayEdit->rowAt(place.y());
    const int column = onName ? 0 : gridDisplayEdit->columnAt(place.x());
    if (row >= kHeadingRows && column >= 0 && qt::LeavesTyped()) GoToField(row, column);
    return true;
}

void frmPERT_CPM::GoToField(int row, int column)
{
    lstActivityName->setCurrentRow(row - kHeadingRows);
    if (column >= kFirstTimeColumn)
        qt::SelectBox(timeBoxes_[static_cast<std::size_t>(column - kFirstTimeColumn)]);
    else if (column == kPredecessorColumn)
        lstPredecessor->setFocus(Qt::OtherFocusReason);
    else
        lstActivityName->setFocus(Qt::OtherFocusReason);
}

// ---- what it shows ----

void frmPERT_CPM::FillTable()
{
    constexpr int kPredecessorWidth = 24;
    constexpr int kTimeWidth = 14;
    const int n = Problem.NumActivities;
    Grid& cells = gridDisplayEdit->Cells();
    cells.Resize(n + kHeadingRows, ColumnOf(Fields().size()), kHeadingRows);
    cells.SetText(1, 0, "Activity");
    cells.SetText(0, kPredecessorColumn, "Immediate");
    cells.SetText(1, kPredecessorColumn, "Predecessors");
    cells.SetColumnWidth(kPredecessorColumn, kPredecessorWidth);
    for (std::size_t k = 0; k < Fields().size(); ++k) {
        cells.SetText(0, ColumnOf(k), Fields()[k].Heading);
        cells.SetText(1, ColumnOf(k), "Time");
        cells.SetColumnWidth(ColumnOf(k), kTimeWidth);
    }
    gridDisplayEdit->FillWidthWith(kPredecessorColumn);
    for (int i = 1; i <= n; ++i) {
        cells.SetText(RowOf(i), 0, "       " + Problem.ActivityName(i));
        cells.SetText(RowOf(i), kPredecessorColumn, VtPert_CPM::PredecessorText(i));
        if (Session.NewProblem) continue;
        for (std::size_t k = 0; k < Fields().size(); ++k)
            cells.SetText(RowOf(i), ColumnOf(k), TimeText(Fields()[k], i));
    }
}

void frmPERT_CPM::ShowActivity(int activity)
{
    if (activity < 1 || activity > Problem.NumActivities) return;
    Problem.CurrentActivity = static_cast<std::int16_t>(activity);
    const std::string letter = Problem.ActivityName(activity);
    gridDisplayEdit->Cells().Select(RowOf(activity), kPredecessorColumn);
    gridDisplayEdit->viewport()->update();
    lblPredecessor->setText(qt::ToQt("Select Predecessor of " + letter + ":"));
    lblActivityTime->setText(qt::ToQt("Enter Activity Time of " + letter + ":"));
    ShowPredecessors(activity);
    for (std::size_t k = 0; k < timeBoxes_.size(); ++k)
        qt::SetTextOf(timeBoxes_[k], TimeText(Fields()[k], activity));
}

void frmPERT_CPM::ShowPredecessors(int activity)
{
    const QSignalBlocker nothingIsChosen(lstPredecessor);
    lstPredecessor->clear();
    for (int i = 1; i < activity; ++i)
        lstPredecessor->addItem(qt::ToQt(Problem.ActivityName(i)));
    for (const int predecessor : VtPert_CPM::PredecessorsOf(activity))
        if (QListWidgetItem* item = lstPredecessor->item(predecessor - 1)) item->setSelected(true);
}

// ---- what is entered ----

void frmPERT_CPM::TakePredecessors()
{
    std::vector<int> predecessors;
    for (int row = 0; row < lstPredecessor->count(); ++row)
        if (lstPredecessor->item(row)->isSelected()) predecessors.push_back(row + 1);
    VtPert_CPM::TakePredecessors(predecessors);
    const int activity = Problem.CurrentActivity;
    gridDisplayEdit->Cells().SetText(RowOf(activity), kPredecessorColumn,
                                     VtPert_CPM::PredecessorText(activity));
}

bool frmPERT_CPM::TakeTime(std::size_t index)
{
    const TimeField& field = Fields()[index];
    const std::string text = qt::TextOf(timeBoxes_[index]);
    bool taken = false;
    Enter([&] {
        taken = field.Take(text);
        const int activity = Problem.CurrentActivity;
        if (taken && !text.empty())
            gridDisplayEdit->Cells().SetText(RowOf(activity), ColumnOf(index), TimeText(field, activity));
    });
    return taken;
}

void frmPERT_CPM::CheckTimes()
{
    for (const std::size_t index : MenuOrder()) {
        if (TakeTime(index)) continue;
        qt::SelectBox(timeBoxes_[index]);
        GoBackFromMenus(timeBoxes_[index]);
    }
}

// ---- undo and redo ----

class frmPERT_CPM::Step : public QUndoCommand {
public:
    Step(int activity, Entries before, Entries after)
        : activity_(activity), before_(std::move(before)), after_(std::move(after))
    {
    }

    void undo() override { Show(before_); }
    void redo() override
    {
        if (done_) Show(after_);
        done_ = true;
    }

private:
    void Show(const Entries& entries) const
    {
        if (openForm != nullptr) openForm->Restore(entries, activity_);
    }

    int activity_;
    Entries before_;
    Entries after_;
    bool done_ = false;  // the step itself has been done when it is told
};

// What is entered within it is one step; nothing that changes no cell is a step.
void frmPERT_CPM::Enter(const std::function<void()>& change)
{
    if (entering_) {
        change();
        return;
    }
    const QScopedValueRollback<bool> once(entering_, true);
    const int activity = Problem.CurrentActivity;
    Entries before = Remember();
    change();
    Entries after = Remember();
    if (after.Cells != before.Cells) History().push(new Step(activity, std::move(before), std::move(after)));
}

frmPERT_CPM::Entries frmPERT_CPM::Remember() const
{
    Entries entries{.Record = Problem, .Cells = {}};
    const Grid& cells = gridDisplayEdit->Cells();
    for (int row = kHeadingRows; row < cells.Rows(); ++row)
        for (int column = kPredecessorColumn; column < cells.Columns(); ++column)
            entries.Cells.push_back(cells.Text(row, column));
    return entries;
}

// What a solve has put into the record stays.
void frmPERT_CPM::Restore(const Entries& entries, int activity)
{
    Problem.PredCount = entries.Record.PredCount;
    Problem.PredTable = entries.Record.PredTable;
    Problem.DecimalPlaces = entries.Record.DecimalPlaces;
    for (const TimeField& field : Fields())
        Problem.*field.Times = entries.Record.*field.Times;
    Grid& cells = gridDisplayEdit->Cells();
    std::size_t at = 0;
    for (int row = kHeadingRows; row < cells.Rows(); ++row)
        for (int column = kPredecessorColumn; column < cells.Columns(); ++column)
            cells.SetText(row, column, entries.Cells[at++]);
    lstActivityName->setCurrentRow(activity - 1);
    ShowActivity(activity);  // also where it was the current one
}

// A box takes back what is being typed into it first.
bool frmPERT_CPM::UsesHistory(const QWidget& watched, const QKeyEvent& key)
{
    const QKeyCombination pressed = key.keyCombination();
    const bool undo = pressed == (Qt::CTRL | Qt::Key_Z);
    const bool redo = pressed == (Qt::CTRL | Qt::Key_Y) || pressed == (Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    const auto* box = qobject_cast<const QLineEdit*>(&watched);
    if (undo && (box == nullptr || !box->isUndoAvailable()))
        History().undo();
    else if (redo && (box == nullptr || !box->isRedoAvailable()))
        History().redo();
    else
        return false;
    return true;
}

void frmPERT_CPM::ShowMenu(QListWidget& list, const QPoint& global)
{
    auto* menu = new QMenu(this);
    menu->setObjectName("menuOfTable");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* text, const QKeySequence& keys, bool enabled, auto run) {
        QAction* action = menu->addAction(QString::fromUtf8(text), this, run);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);  // the lists themselves listen to them
        action->setEnabled(enabled);
    };
    add("&Undo", Qt::CTRL | Qt::Key_Z, History().canUndo(), [] { qt::Trap([] { History().undo(); }); });
    add("&Redo", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, History().canRedo(),
        [] { qt::Trap([] { History().redo(); }); });
    menu->addSeparator();
    add("&Copy", Qt::CTRL | Qt::Key_C, true,
        [this, &list] { CopyTable(&list == lstActivityName ? 0 : kPredecessorColumn); });
    add("&Paste", Qt::CTRL | Qt::Key_V, !QGuiApplication::clipboard()->text().isEmpty(),
        [this, &list] { qt::Trap([this, &list] { Paste(list, true); }); });
    menu->popup(global);
}

// ---- blocks of a spreadsheet ----

// A list stands for the table, from its own column on. A box keeps its keys but for a text of several cells.
bool frmPERT_CPM::UsesKeys(QWidget& watched, const QKeyEvent& key)
{
    const bool onList = &watched == lstActivityName || &watched == lstPredecessor;
    bool used = false;
    qt::Trap([&] {
        if (UsesHistory(watched, key)) {
            used = true;
        } else if (onList && key.matches(QKeySequence::Copy)) {
            used = true;
            CopyTable(&watched == lstActivityName ? 0 : kPredecessorColumn);
        } else if (key.matches(QKeySequence::Paste)) {
            used = onList;  // also where a run-time error ends it
            used = Paste(watched, onList);
        }
    });
    return used;
}

void frmPERT_CPM::CopyTable(int fromColumn) const
{
    const Grid& cells = gridDisplayEdit->Cells();
    qt::BlockText block;
    for (int row = kHeadingRows; row < cells.Rows(); ++row) {
        block.emplaceBack();
        for (int column = fromColumn; column < cells.Columns(); ++column)
            block.back().append(qt::ToQt(cells.Text(row, column)).trimmed());
    }
    qt::PutOnClipboard(block);
}

// Times go into the first column of times, and what is wider begins as far left as it needs.
int frmPERT_CPM::PasteColumn(const QWidget& watched, int columns) const
{
    if (&watched == lstPredecessor) return kPredecessorColumn;
    for (std::size_t k = 0; k < timeBoxes_.size(); ++k)
        if (&watched == timeBoxes_[k]) return ColumnOf(k);
    return qBound(0, ColumnOf(timeBoxes_.size()) - columns, kFirstTimeColumn);
}

// False: there is nothing to paste here, or the box takes it as ever.
bool frmPERT_CPM::Paste(QWidget& watched, bool listTakesText)
{
    const qt::BlockText block = qt::ReadBlock(QGuiApplication::clipboard()->text());
    const bool single = block.size() <= 1 && qt::ColumnsOf(block) <= 1;
    if (block.isEmpty() || (single && !listTakesText)) return false;
    const int column = PasteColumn(watched, qt::ColumnsOf(block));
    const int activity = Problem.CurrentActivity;
    const std::string told = qt::TooLargeText(block, Problem.NumActivities - activity + 1,
                                              gridDisplayEdit->Cells().Columns() - column);
    bool pasted = false;
    if (told.empty())
        Enter([&] { pasted = PasteBlock(block, column); });
    else
        MsgBox(told, "Paste");
    if (pasted) {
        lstActivityName->setCurrentRow(activity - 1);
        ShowActivity(activity);
        watched.setFocus(Qt::OtherFocusReason);
    }
    return true;
}

// From the current activity on, each cell as if it were entered below the table. The first one that is
// refused ends it, and its activity stays the current one.
bool frmPERT_CPM::PasteBlock(const qt::BlockText& block, int column)
{
    const int first = Problem.CurrentActivity - 1;
    for (int i = 0; i < block.size(); ++i) {
        lstActivityName->setCurrentRow(first + i);
        ShowActivity(first + i + 1);  // also where it was the current one: a box may hold half a time
        for (int j = 0; j < block[i].size(); ++j)
            if (!PasteCell(column + j, block[i][j].trimmed())) return false;
    }
    return true;
}

bool frmPERT_CPM::PasteCell(int column, const QString& text)
{
    if (column == kPredecessorColumn) return PastePredecessors(qt::FromQt(text));
    if (column < kPredecessorColumn) {
        if (text == lstActivityName->currentItem()->text()) return true;
        lstActivityName->setFocus(Qt::OtherFocusReason);
        return Refuse("\"" + qt::FromQt(text) + "\" is not the activity of this row.");
    }
    if (text.isEmpty()) return true;
    const auto index = static_cast<std::size_t>(column - kFirstTimeColumn);
    QLineEdit* box = timeBoxes_[index];
    qt::SetTextOf(box, qt::FromQt(text));
    if (qt::IsTaken(box, [this, index](std::string_view) { return TakeTime(index); })) return true;
    qt::SelectBox(box);
    return false;
}

bool frmPERT_CPM::PastePredecessors(const std::string& text)
{
    const auto predecessors = ReadPredecessors(text);
    if (!predecessors) {
        lstPredecessor->setFocus(Qt::OtherFocusReason);
        return Refuse("\"" + text + "\" cannot be entered in this cell.");
    }
    const QSignalBlocker chosenTogether(lstPredecessor);
    lstPredecessor->clearSelection();
    for (const int predecessor : *predecessors)
        lstPredecessor->item(predecessor - 1)->setSelected(true);
    TakePredecessors();
    return true;
}
