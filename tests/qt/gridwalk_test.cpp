// Random steps on the tables of the real forms: what the cells show and what the record holds are held
// against plain lists after each of them.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <cmath>
#include <random>

#include "forecasting/VtForecasting.h"
#include "forecasting/module.h"
#include "qt/entrygrid.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/qt_desktop.h"
#include "tableau/TableauEdit.h"
#include "tableau/VtTanda.h"
#include "tableau/frmProblem.h"

namespace {

class Window : public QMainWindow {
public:
    explicit Window(QWidget* parent) : QMainWindow(parent) { setCentralWidget(new QMdiArea); }
};

using Table = std::vector<std::vector<std::string>>;

// A table as a user would keep it on paper: the texts, what each of them counts for, and the decimals that
// the numbers have needed so far.
struct Sheet {
    Table Texts;
    std::vector<std::vector<double>> Values;  // NaN: never entered
    double Decimals = 0;

    [[nodiscard]] int Rows() const { return static_cast<int>(Texts.size()); }
    [[nodiscard]] int Columns() const { return static_cast<int>(Texts.front().size()); }
};

constexpr double kNever = std::numeric_limits<double>::quiet_NaN();

bool IsSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

struct Judgement {
    bool Accepted;
    double Value;
};

class Walk : public testing::Test {
protected:
    void Open(int module)
    {
        Session = {};
        Session.CurrentModule = static_cast<std::int16_t>(module);
        Session.ProblemTitle = CurrentModule().Title;
        desktop.forms.Add<Window>("frmMenu", qt::Place::Main);
        desktop.forms.Add<frmProblem>("frmProblem", qt::Place::Filling);
        desktop.forms.Load("frmMenu");
        desktop.forms.Load("frmProblem");
        grid = desktop.forms.Find("frmProblem")->findChild<qt::EntryGrid*>();
    }

    int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
    bool Chance(int percent) { return Pick(100) < percent; }

    void Press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(grid, &event);
    }

    void Type(const std::string& text)
    {
        for (const char character : text)
            Press(QChar(character).unicode(), {}, QString(QChar(character)));
    }

    void Remember()
    {
        past.resize(now);
        past.push_back(sheet);
        ++now;
    }

    // ---- what a table allows ----

    [[nodiscard]] virtual Judgement Judge(int row, int column, const std::string& text) const = 0;
    [[nodiscard]] virtual bool IsOpen(int /*row*/, int /*column*/) const { return true; }
    [[nodiscard]] virtual bool CountsDecimals(int /*row*/, int /*column*/) const { return true; }
    virtual void ChangeLines() = 0;
    virtual void CheckRecord() = 0;

    // Stores a text that is committed; a refused one blanks the cell.
    bool Enter(int row, int column, const std::string& text)
    {
        const auto i = static_cast<std::size_t>(row);
        const auto j = static_cast<std::size_t>(column);
        const Judgement judgement = Judge(row, column, text);
        sheet.Texts[i][j] = judgement.Accepted ? text : "";
        sheet.Values[i][j] = judgement.Accepted ? judgement.Value : 0;
        if (judgement.Accepted && CountsDecimals(row, column) && text.find('.') != std::string::npos)
            sheet.Decimals = std::max(sheet.Decimals, 1.0);
        return judgement.Accepted;
    }

    std::string SomeText()
    {
        static const std::array<std::string, 10> kTexts = {"1",   "23", "456", "7",     "80",
                                                           "2.5", "",   "-3",  "1.2.3", "x"};
        return kTexts.at(static_cast<std::size_t>(Chance(8) ? 6 + Pick(4) : Pick(6)));
    }

    static bool CanBeTyped(const std::string& text) { return text != "x"; }

    void GoSomewhere(int& row, int& column)
    {
        do {
            row = Pick(sheet.Rows());
            column = Pick(sheet.Columns());
        } while (!IsOpen(row, column));
        grid->Cells().Select(row + 1, column + 1);
    }

    // ---- steps ----

    void TypeCell()
    {
        int row = 0;
        int column = 0;
        GoSomewhere(row, column);
        const std::string text = SomeText();
        if (text.empty() || !CanBeTyped(text)) return;
        const std::string former =
            sheet.Texts[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        Type(text);
        if (Chance(10)) {
            Press(Qt::Key_Escape);
            return;
        }
        Press(Qt::Key_Right);
        const Sheet before = sheet;
        const bool accepted = text == former || Enter(row, column, text);
        if (!accepted && Chance(50)) {
            Press(Qt::Key_Escape);
            sheet = before;
            return;
        }
        if (!accepted) Press(Qt::Key_Right);  // it is left blank
        RememberIfChanged(before);
    }

    // What changes no cell changes nothing.
    void RememberIfChanged(const Sheet& before)
    {
        if (sheet.Texts != before.Texts)
            Remember();
        else
            sheet = before;
    }

    void PasteBlock()
    {
        int row = 0;
        int column = 0;
        GoSomewhere(row, column);
        const int rows = 1 + Pick(3);
        const int columns = 1 + Pick(3);
        Table block(static_cast<std::size_t>(rows));
        std::string text;
        for (auto& line : block) {
            for (int j = 0; j < columns; ++j) {
                line.push_back(SomeText());
                text += (j > 0 ? "\t" : "") + line.back();
            }
            text += Chance(50) ? "\r\n" : "\n";
        }
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        Press(Qt::Key_V, Qt::ControlModifier);
        if (row + rows > sheet.Rows() || column + columns > sheet.Columns()) return;
        const Sheet before = sheet;
        EnterBlock(block, row, column);
        RememberIfChanged(before);
    }

    void EnterBlock(const Table& block, int row, int column)
    {
        for (std::size_t i = 0; i < block.size(); ++i)
            for (std::size_t j = 0; j < block[i].size(); ++j) {
                const int toRow = row + static_cast<int>(i);
                const int toColumn = column + static_cast<int>(j);
                const std::string& text = block[i][j];
                const std::string& held =
                    sheet.Texts[static_cast<std::size_t>(toRow)][static_cast<std::size_t>(toColumn)];
                if (text == held || (!IsOpen(toRow, toColumn) && text.empty())) continue;
                if (!CanBeTyped(text) || !IsOpen(toRow, toColumn)) return;
                if (!Enter(toRow, toColumn, text)) return;
            }
    }

    void EmptyBlock()
    {
        int row = 0;
        int column = 0;
        GoSomewhere(row, column);
        const int down = Pick(3);
        const int across = Pick(3);
        for (int i = 0; i < down; ++i)
            Press(Qt::Key_Down, Qt::ShiftModifier);
        for (int i = 0; i < across; ++i)
            Press(Qt::Key_Right, Qt::ShiftModifier);
        Press(Qt::Key_X, Qt::ControlModifier);
        const Sheet before = sheet;
        for (int i = row; i <= std::min(row + down, sheet.Rows() - 1); ++i)
            for (int j = column; j <= std::min(column + across, sheet.Columns() - 1); ++j)
                if (IsOpen(i, j) &&
                    !sheet.Texts[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)].empty())
                    Enter(i, j, "");
        RememberIfChanged(before);
    }

    void Undo()
    {
        Press(Qt::Key_Z, Qt::ControlModifier);
        if (now > 1) sheet = past[--now - 1];
    }

    void Redo()
    {
        Press(Qt::Key_Y, Qt::ControlModifier);
        if (now < past.size()) sheet = past[now++];
    }

    void CheckCells()
    {
        const Grid& cells = grid->Cells();
        ASSERT_EQ(cells.Rows(), sheet.Rows() + 1);
        ASSERT_EQ(cells.Columns(), sheet.Columns() + 1);
        for (int row = 0; row < sheet.Rows(); ++row)
            for (int column = 0; column < sheet.Columns(); ++column)
                ASSERT_EQ(cells.Text(row + 1, column + 1),
                          sheet.Texts[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
                    << "row " << row + 1 << ", column " << column + 1;
    }

    void Take(int steps)
    {
        Remember();
        for (int step = 0; step < steps && !HasFatalFailure(); ++step) {
            const int kind = Pick(100);
            if (kind < 30)
                TypeCell();
            else if (kind < 45)
                PasteBlock();
            else if (kind < 50)
                EmptyBlock();
            else if (kind < 72)
                Undo();
            else if (kind < 92)
                Redo();
            else
                ChangeLines();
            SCOPED_TRACE("step " + std::to_string(step) + ", kind " + std::to_string(kind));
            CheckCells();
            CheckRecord();
            desktop.dialogs.messages.clear();
        }
    }

    QtDesktop desktop;
    qt::EntryGrid* grid = nullptr;
    std::mt19937 random{20240607};
    Sheet sheet;
    std::vector<Sheet> past;  // all that was, up to `now`, and what has been undone
    std::size_t now = 0;
};

// ---- transportation: origins and destinations come and go ----

class TransportationWalk : public Walk {
protected:
    void SetUp() override
    {
        Open(2);
        Tableau::Allocate(3, 4);
        Session.NewProblem = true;
        DisplayProblem();
        Session.NewProblem = false;
        sheet.Texts.assign(4, std::vector<std::string>(5));
        sheet.Texts[3][4] = kCorner;
        sheet.Values.assign(4, std::vector<double>(5, 0));
    }

    [[nodiscard]] bool IsOpen(int row, int column) const override
    {
        return row != sheet.Rows() - 1 || column != sheet.Columns() - 1;
    }

    [[nodiscard]] bool IsQuantity(int row, int column) const
    {
        return row == sheet.Rows() - 1 || column == sheet.Columns() - 1;
    }
    [[nodiscard]] bool CountsDecimals(int row, int column) const override { return !IsQuantity(row, column); }

    // Quantities are whole and not negative.
    [[nodiscard]] Judgement Judge(int row, int column, const std::string& text) const override
    {
        if (text.empty()) return {true, 0};
        if (text == "1.2.3") return {false, 0};
        const double value = std::stod(text);
        const bool whole = value >= 0 && text.find('.') == std::string::npos;
        return {!IsQuantity(row, column) || whole, value};
    }

    void ChangeLines() override
    {
        const int origins = sheet.Rows() - 1;
        const int destinations = sheet.Columns() - 1;
        const Sheet before = sheet;
        const int item = Pick(4);
        const bool isOrigin = item % 2 == 0;
        const int count = isOrigin ? origins : destinations;
        const int line = Pick(count);
        if (item < 2 && count >= kMost) return;
        desktop.dialogs.inputs = {std::to_string(line + 1)};
        Commands::LowerItem(item);
        desktop.dialogs.inputs.clear();
        if (item >= 2 && count == 1) return;
        if (item == 0) InsertRow(origins);
        if (item == 1) InsertColumn(destinations);
        if (item == 2) EraseRow(line);
        if (item == 3) EraseColumn(line);
        Redraw();
        Remember();
    }

    void InsertRow(int at)
    {
        sheet.Texts.insert(sheet.Texts.begin() + at, std::vector<std::string>(sheet.Texts[0].size()));
        sheet.Values.insert(sheet.Values.begin() + at, std::vector<double>(sheet.Values[0].size(), 0));
    }
    void EraseRow(int at)
    {
        sheet.Texts.erase(sheet.Texts.begin() + at);
        sheet.Values.erase(sheet.Values.begin() + at);
    }
    void InsertColumn(int at)
    {
        for (auto& row : sheet.Texts)
            row.insert(row.begin() + at, std::string());
        for (auto& row : sheet.Values)
            row.insert(row.begin() + at, 0.0);
    }
    void EraseColumn(int at)
    {
        for (auto& row : sheet.Texts)
            row.erase(row.begin() + at);
        for (auto& row : sheet.Values)
            row.erase(row.begin() + at);
    }

    // An empty cell counts for 0 and is drawn as one when the lines change.
    void Redraw()
    {
        for (std::size_t i = 0; i < sheet.Texts.size(); ++i)
            for (std::size_t j = 0; j < sheet.Texts[i].size(); ++j)
                sheet.Texts[i][j] =
                    sheet.Values[i][j] == 2.5 ? "2.5" : std::to_string(std::lround(sheet.Values[i][j]));
        sheet.Texts.back().back() = kCorner;
    }

    void CheckRecord() override
    {
        const Tableau::TableauProblem& record = Tableau::Problem;
        ASSERT_EQ(record.NumOrigins, sheet.Rows() - 1);
        ASSERT_EQ(record.NumDestinations, sheet.Columns() - 1);
        ASSERT_EQ(record.DecimalPlaces.Value(), sheet.Decimals);
        for (int row = 0; row < sheet.Rows(); ++row)
            for (int column = 0; column < sheet.Columns(); ++column)
                if (IsOpen(row, column)) {
                    ASSERT_EQ(Held(row, column),
                              sheet.Values[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
                        << "row " << row + 1 << ", column " << column + 1;
                }
    }

    [[nodiscard]] double Held(int row, int column) const
    {
        const Tableau::TableauProblem& record = Tableau::Problem;
        if (column == record.NumDestinations) return record.NodeSupply(row + 1);
        if (row == record.NumOrigins) return -record.NodeSupply(record.NumOrigins + column + 1);
        return record.ArcCost(Tableau::ArcNumber(row + 1, column + 1)).Value();
    }

    static constexpr int kMost = 6;
    static constexpr const char* kCorner = "***********";
};

TEST_F(TransportationWalk, CellsAndRecordAreWhatThePlainListsSay)
{
    Take(80000);
}

// ---- forecasting: periods come at the end and go at the beginning; a cell may never have been entered ----

class ForecastingWalk : public Walk {
protected:
    void SetUp() override
    {
        Open(11);
        VtForecasting::MakeArrays();
        VtForecasting::Problem.PeriodCount = 5;
        Session.NewProblem = true;
        DisplayProblem();
        Session.NewProblem = false;
        sheet.Texts.assign(5, {""});
        sheet.Values.assign(5, {kNever});
    }

    [[nodiscard]] Judgement Judge(int, int, const std::string& text) const override
    {
        if (text.empty()) return {true, 0};
        return text == "1.2.3" ? Judgement{false, 0} : Judgement{true, std::stod(text)};
    }

    void ChangeLines() override
    {
        const bool adds = sheet.Rows() < 3 || (sheet.Rows() < 12 && Chance(50));
        Session.AskIncomplete = false;
        desktop.dialogs.inputs = {"1"};
        Commands::EditItem(adds ? 3 : 4);
        desktop.dialogs.inputs.clear();
        if (adds) {
            sheet.Texts.push_back({""});
            sheet.Values.push_back({kNever});
        } else {
            if (sheet.Texts.back()[0].empty()) sheet.Values.back()[0] = 0;  // the last cell counts then
            sheet.Texts.erase(sheet.Texts.begin());
            sheet.Values.erase(sheet.Values.begin());
        }
        Redraw();
        Remember();
    }

    void Redraw()
    {
        for (std::size_t i = 0; i < sheet.Texts.size(); ++i) {
            const double value = sheet.Values[i][0];
            if (std::isnan(value))
                sheet.Texts[i][0] = "";
            else
                sheet.Texts[i][0] = value == 2.5 ? "2.5" : std::to_string(std::lround(value));
        }
    }

    void CheckRecord() override
    {
        ASSERT_EQ(VtForecasting::Problem.PeriodCount, sheet.Rows());
        ASSERT_EQ(VtForecasting::Problem.DecimalPlaces.Value(), sheet.Decimals);
        for (int row = 0; row < sheet.Rows(); ++row) {
            const Variant& held = VtForecasting::Problem.TimeSeries(row + 1);
            ASSERT_TRUE(IsSame(held.IsEmpty() ? kNever : held.Value(),
                               sheet.Values[static_cast<std::size_t>(row)][0]))
                << "row " << row + 1;
        }
    }
};

TEST_F(ForecastingWalk, CellsAndRecordAreWhatThePlainListsSay)
{
    Take(20000);
}

}  // namespace
