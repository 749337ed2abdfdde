#include "qt/entrygrid.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <tuple>
#include <vector>

#include "basic/error.h"
#include "support/qt_desktop.h"

namespace {

using Stored = std::tuple<int, int, std::string>;

// A window with a menu, a grid of numbers and a button; commits are recorded, the text "9" is refused.
class EntryGridTest : public testing::Test {
protected:
    void Open(qt::EntryRules rules, int rows = 4, int columns = 4)
    {
        grid = new qt::EntryGrid("grid", "Numbers", std::move(rules));
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(grid);
        layout->addWidget(button = new QPushButton("Elsewhere"));
        window.setCentralWidget(page);
        menu = window.menuBar()->addMenu("&File");
        menu->addAction("New");
        window.resize(800, 600);
        window.show();
        Cells().Resize(rows, columns);
        Cells().SetFocus();
        QCoreApplication::processEvents();  // lays the window out
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    qt::EntryRules Numbers()
    {
        qt::EntryRules rules;
        rules.Key = [](int, int, char character, bool) { return qt::NumberKey(character); };
        rules.Commit = [this](int row, int column, std::string_view text) {
            stored.emplace_back(row, column, text);
            return text != "9";
        };
        rules.Edited = [this](int row, int column) { edited.emplace_back(row, column); };
        return rules;
    }

    Grid& Cells() { return grid->Cells(); }
    void Type(const char* text) { QTest::keyClicks(grid, text); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(grid, key, modifiers); }
    void Click(int row, int column)
    {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualRect(grid->model()->index(row, column)).center());
    }
    [[nodiscard]] std::pair<int, int> At() { return {Cells().Row(), Cells().Column()}; }

    QtDesktop desktop;
    QMainWindow window;
    qt::EntryGrid* grid = nullptr;
    QPushButton* button = nullptr;
    QMenu* menu = nullptr;
    std::vector<Stored> stored;
    std::vector<std::pair<int, int>> edited;
};

using Cell = std::pair<int, int>;

}  // namespace

TEST_F(EntryGridTest, OpensOnTheFirstCellWithEveryCellEmpty)
{
    Open(Numbers());
    EXPECT_EQ(At(), Cell(1, 1));
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(Cells().Text(row, column), "");
    Cells().SetText(2, 2, "x");
    Cells().Resize(3, 3);
    EXPECT_EQ(Cells().Text(2, 2), "");
    Cells().Resize(1, 1);
    EXPECT_EQ(At(), Cell(0, 0));
}

TEST_F(EntryGridTest, AnIndexOutsideIsARunTimeError)
{
    Open(Numbers());
    EXPECT_THROW(static_cast<void>(Cells().Text(4, 0)), RuntimeError);
    EXPECT_THROW(Cells().SetText(0, 4, "x"), RuntimeError);
    EXPECT_THROW(Cells().Select(-1, 0), RuntimeError);
    EXPECT_THROW(Cells().SetColumnWidth(4, 1), RuntimeError);
}

TEST_F(EntryGridTest, TakesDigitsMinusAndPointAndBeepsAtOthers)
{
    Open(Numbers());
    Type("-1.5");
    EXPECT_EQ(Cells().Text(1, 1), "-1.5");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    Type("a,+ ");
    EXPECT_EQ(Cells().Text(1, 1), "-1.5");
    EXPECT_EQ(desktop.dialogs.beeps, 4);
    Press(Qt::Key_F5);
    EXPECT_EQ(desktop.dialogs.beeps, 4);
}

TEST_F(EntryGridTest, TheFirstKeyClearsTheCellAndTheNextOnesAppend)
{
    Open(Numbers());
    Cells().SetText(1, 1, "77");
    Type("1");
    EXPECT_EQ(Cells().Text(1, 1), "1");
    Type("2");
    EXPECT_EQ(Cells().Text(1, 1), "12");
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, BackspaceTakesTheLastCharacterAndBeepsAtAnEmptyCell)
{
    Open(Numbers());
    Cells().SetText(1, 1, "123");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(1, 1), "12");
    Type("7");
    EXPECT_EQ(Cells().Text(1, 1), "127");
    for (int i = 0; i < 3; ++i)
        Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(1, 1), "");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(desktop.dialogs.beeps, 1);
}

TEST_F(EntryGridTest, BackspaceMayBeKeptToWhatWasTyped)
{
    qt::EntryRules rules = Numbers();
    rules.BackspaceOnlyTyped = true;
    Open(std::move(rules));
    Cells().SetText(1, 1, "123");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(1, 1), "123");
    EXPECT_EQ(desktop.dialogs.beeps, 1);
    Type("45");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(1, 1), "4");
}

TEST_F(EntryGridTest, DeleteEmptiesACell)
{
    Open(Numbers());
    Cells().SetText(1, 1, "12");
    Press(Qt::Key_Delete);
    EXPECT_EQ(Cells().Text(1, 1), "");
    Type("34");
    Press(Qt::Key_Delete);
    EXPECT_EQ(Cells().Text(1, 1), "");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
}

TEST_F(EntryGridTest, DeleteMayBeKeptFromACellInEdit)
{
    qt::EntryRules rules = Numbers();
    rules.DeleteNotInEdit = true;
    Open(rules);
    Type("34");
    Press(Qt::Key_Delete);
    EXPECT_EQ(Cells().Text(1, 1), "34");
}

TEST_F(EntryGridTest, AnEmptiedCellIsCommittedWhenItIsLeft)
{
    Open(Numbers());
    Cells().SetText(1, 1, "12");
    Press(Qt::Key_Delete);
    Press(Qt::Key_Right);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, ""}}));
}

TEST_F(EntryGridTest, ArrowsMoveWithinTheGridAndBeepAtItsEdges)
{
    Open(Numbers());
    struct Step {
        Qt::Key key;
        Cell at;
        int beeps;
    };
    for (const Step& step : {
             Step{Qt::Key_Left, {1, 1}, 1},
             Step{Qt::Key_Up, {1, 1}, 2},
             Step{Qt::Key_Right, {1, 2}, 2},
             Step{Qt::Key_Right, {1, 3}, 2},
             Step{Qt::Key_Right, {1, 3}, 3},
             Step{Qt::Key_Down, {2, 3}, 3},
             Step{Qt::Key_Down, {3, 3}, 3},
             Step{Qt::Key_Down, {3, 3}, 4},
             Step{Qt::Key_Left, {3, 2}, 4},
             Step{Qt::Key_Up, {2, 2}, 4},
         }) {
        Press(step.key);
        EXPECT_EQ(At(), step.at);
        EXPECT_EQ(desktop.dialogs.beeps, step.beeps);
    }
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, TabGoesThroughTheRowsAndFromTheLastCellToTheFirst)
{
    Open(Numbers(), 3, 3);
    for (const Cell& cell : {Cell(1, 2), Cell(2, 1), Cell(2, 2), Cell(1, 1)}) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(At(), cell);
    }
    for (const Cell& cell : {Cell(2, 2), Cell(2, 1), Cell(1, 2), Cell(1, 1)}) {
        Press(Qt::Key_Backtab);
        EXPECT_EQ(At(), cell);
    }
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(EntryGridTest, TabMayLeaveTheGridAtItsEnds)
{
    int forward = 0;
    int backward = 0;
    qt::EntryRules rules = Numbers();
    rules.LeaveForward = [&] { ++forward; };
    rules.LeaveBackward = [&] { ++backward; };
    Open(std::move(rules), 3, 3);
    Press(Qt::Key_Backtab);
    EXPECT_EQ(backward, 1);
    Cells().Select(2, 2);
    Press(Qt::Key_Tab);
    EXPECT_EQ(forward, 1);
    EXPECT_EQ(At(), Cell(2, 2));
}

TEST_F(EntryGridTest, EnterCommitsAlsoAnUnchangedCellAndGoesDown)
{
    Open(Numbers(), 3, 3);
    Press(Qt::Key_Return);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, ""}}));
    EXPECT_EQ(At(), Cell(2, 1));
    Type("5");
    Press(Qt::Key_Enter);
    EXPECT_EQ(stored.back(), Stored(2, 1, "5"));
    EXPECT_EQ(At(), Cell(2, 1));
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    Type("6");
    EXPECT_EQ(Cells().Text(2, 1), "6");  // a new edit
}

TEST_F(EntryGridTest, EnterMayBeepAtTheLastRow)
{
    qt::EntryRules rules = Numbers();
    rules.EnterBeepsAtLastRow = true;
    Open(std::move(rules), 2, 2);
    Press(Qt::Key_Return);
    EXPECT_EQ(desktop.dialogs.beeps, 1);
    EXPECT_EQ(At(), Cell(1, 1));
}

TEST_F(EntryGridTest, MovingCommitsOnlyAChangedText)
{
    Open(Numbers());
    Cells().SetText(1, 1, "12");
    Type("12");
    Press(Qt::Key_Right);
    EXPECT_TRUE(stored.empty());
    Type("3");
    Press(Qt::Key_Left);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 2, "3"}}));
}

TEST_F(EntryGridTest, ARefusedCellIsBlankedAndStaysTheCurrentOne)
{
    Open(Numbers());
    Cells().SetText(1, 1, "4");
    Type("9");
    Press(Qt::Key_Right);
    EXPECT_EQ(At(), Cell(1, 1));
    EXPECT_EQ(Cells().Text(1, 1), "");
    EXPECT_TRUE(grid->IsEditing());  // it waits to be entered again
    Press(Qt::Key_Right);
    EXPECT_EQ(At(), Cell(1, 2));
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, "9"}, {1, 1, ""}}));
}

TEST_F(EntryGridTest, ARefusedCellIsCommittedBlankAlsoWhereNothingStoodBefore)
{
    Open(Numbers());
    Type("9");
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, "9"}, {1, 1, ""}}));
}

TEST_F(EntryGridTest, TheProgramRejectsACellAsLeavingItDoes)
{
    Open(Numbers());
    Cells().SetText(2, 2, "9");
    Cells().Reject(2, 2);
    EXPECT_EQ(At(), Cell(2, 2));
    EXPECT_EQ(Cells().Text(2, 2), "");
    EXPECT_TRUE(stored.empty());
    Type("5");
    Press(Qt::Key_Right);
    EXPECT_EQ(stored, (std::vector<Stored>{{2, 2, "5"}}));
}

TEST_F(EntryGridTest, EscapeGivesBackWhatStoodInTheCell)
{
    Open(Numbers());
    Cells().SetText(1, 1, "4");
    Type("56");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Cells().Text(1, 1), "4");
    EXPECT_EQ(edited.back(), Cell(1, 1));
    EXPECT_FALSE(grid->IsEditing());
    Press(Qt::Key_Delete);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Cells().Text(1, 1), "4");
    Type("9");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Cells().Text(1, 1), "4");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    Press(Qt::Key_Escape);  // there is nothing to give back
    EXPECT_EQ(desktop.dialogs.beeps, 1);
}

TEST_F(EntryGridTest, AKeyOfAnEditWithinTheTextGoesToTheCaret)
{
    Open(Numbers());
    Cells().SetText(1, 1, "1234");
    Press(Qt::Key_F2);
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    Type(".5");
    EXPECT_EQ(Cells().Text(1, 1), "12.534");
    Press(Qt::Key_Delete);
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Backspace);  // nothing stands before the caret
    EXPECT_EQ(desktop.dialogs.beeps, 1);
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(1, 1), "2.5");
    EXPECT_EQ(At(), Cell(1, 1));
    Press(Qt::Key_Down);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, "2.5"}}));
}

TEST_F(EntryGridTest, ADoubleClickEditsWithinTheText)
{
    Open(Numbers());
    Cells().SetText(2, 2, "12");
    const QPoint where = grid->visualRect(grid->model()->index(2, 2)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, where);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, where);
    Press(Qt::Key_End);
    Type("3");
    EXPECT_EQ(Cells().Text(2, 2), "123");
}

TEST_F(EntryGridTest, AnEditWithinATextHoldsToItsFirstCharacter)
{
    qt::EntryRules rules = Numbers();
    rules.Key = [](int, int, char character, bool first) {
        return first && character == '1' ? qt::KeyAnswer::Refused : qt::KeyAnswer::Taken;
    };
    Open(std::move(rules));
    Cells().SetText(1, 1, "X1");
    Press(Qt::Key_F2);
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_TRUE(stored.empty());
    EXPECT_EQ(At(), Cell(1, 1));
    EXPECT_EQ(desktop.dialogs.beeps, 1);
}

// The program scrolls by itself only where a key edits or leads.
TEST_F(EntryGridTest, AKeyBringsTheCurrentCellIntoSight)
{
    Open(Numbers(), 80, 60);
    const auto shows = [&](int row, int column) {
        return grid->viewport()->rect().contains(grid->visualRect(grid->model()->index(row, column)));
    };
    const auto scrollAway = [&] {
        grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum());
        grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
        EXPECT_FALSE(shows(Cells().Row(), Cells().Column()));
    };
    Type("5");
    scrollAway();
    Type("6");
    EXPECT_TRUE(shows(1, 1));
    EXPECT_EQ(Cells().Text(1, 1), "56");
    scrollAway();
    Press(Qt::Key_Backspace);
    EXPECT_TRUE(shows(1, 1));
    scrollAway();
    Press(Qt::Key_Right);
    EXPECT_TRUE(shows(1, 2));
    scrollAway();
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);  // beeps, and is seen where it is
    EXPECT_TRUE(shows(1, 1));
    scrollAway();
    Press(Qt::Key_Shift);
    EXPECT_FALSE(shows(1, 1));
}

TEST_F(EntryGridTest, AnotherSizeOfTheWindowKeepsThePlaceInTheTable)
{
    Open(Numbers(), 80, 60);
    grid->verticalScrollBar()->setValue(30);
    grid->horizontalScrollBar()->setValue(200);
    window.resize(600, 500);
    QTest::qWait(0);
    EXPECT_EQ(grid->verticalScrollBar()->value(), 30);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), 200);
    Cells().Select(60, 1);
    window.resize(600, 300);
    QTest::qWait(0);
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex())));
}

TEST_F(EntryGridTest, MovesAsInASpreadsheet)
{
    Open(Numbers());
    Cells().Select(2, 2);
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(At(), Cell(3, 3));
    Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(At(), Cell(1, 1));
}

// ---- blocks ----

TEST_F(EntryGridTest, ShiftAndTheMouseMarkABlockThatIsCopied)
{
    Open(Numbers());
    for (int row = 1; row < 4; ++row)
        for (int column = 1; column < 4; ++column)
            Cells().SetText(row, column, std::to_string(10 * row + column));
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(At(), Cell(1, 1));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "11\t12\n21\t22\n");
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->html(),
              "<table><tr><td>11</td><td>12</td></tr><tr><td>21</td><td>22</td></tr></table>");
    const auto centre = [&](int row, int column) {
        return grid->visualRect(grid->model()->index(row, column)).center();
    };
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, centre(3, 3));
    QMouseEvent move(QEvent::MouseMove, centre(2, 3), grid->viewport()->mapToGlobal(centre(2, 3)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(grid->viewport(), &move);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, centre(2, 3));
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "23\n33\n");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier, centre(3, 2));
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "32\t33");
    Press(Qt::Key_Left);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "32");
}

TEST_F(EntryGridTest, APastedBlockIsEnteredCellByCell)
{
    Open(Numbers());
    QGuiApplication::clipboard()->setText("1\t-2\r\n\t\"3.5\"\r\n");
    Cells().SetText(3, 2, "7");
    Cells().Select(2, 2);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(stored, (std::vector<Stored>{{2, 2, "1"}, {2, 3, "-2"}, {3, 2, ""}, {3, 3, "3.5"}}));
    EXPECT_EQ(At(), Cell(2, 2));
    EXPECT_EQ(edited.size(), 4U);
}

TEST_F(EntryGridTest, ABlockThatDoesNotFitIsRefusedWhole)
{
    Open(Numbers());
    QGuiApplication::clipboard()->setText("1\t2\n3\t4\n5\t6\n");
    Cells().Select(2, 3);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(
        desktop.dialogs.Last().Text,
        "The clipboard holds 3 rows and 2 columns.  From this cell on the table has room for 2 rows and 1 "
        "column.");
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, ARefusedCellEndsAPaste)
{
    Open(Numbers());
    Cells().SetText(1, 2, "8");
    QGuiApplication::clipboard()->setText("1\t9\t3\n");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Cells().Text(1, 1), "1");
    EXPECT_EQ(Cells().Text(1, 2), "");
    EXPECT_EQ(Cells().Text(1, 3), "");
    EXPECT_EQ(At(), Cell(1, 2));
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, "1"}, {1, 2, "9"}, {1, 2, ""}}));
    QGuiApplication::clipboard()->setText("4\tx\n");
    Cells().Select(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("\"x\" cannot be entered in this cell."));
    EXPECT_EQ(At(), Cell(2, 2));
}

TEST_F(EntryGridTest, DeleteAndCutEmptyABlock)
{
    Open(Numbers());
    for (int column = 1; column < 4; ++column)
        Cells().SetText(1, column, "5");
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, ""}, {1, 2, ""}}));
    Cells().Select(1, 3);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "5");
    EXPECT_EQ(Cells().Text(1, 3), "");
}

TEST_F(EntryGridTest, TheMenuOfACellOffersWhatApplies)
{
    Open(Numbers());
    QGuiApplication::clipboard()->setText("6");
    Type("5");
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(grid, &byKey);
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    std::vector<std::string> offered;
    for (const QAction* action : popup->actions())
        if (action->isEnabled() && !action->isSeparator()) offered.push_back(action->text().toStdString());
    EXPECT_EQ(offered, (std::vector<std::string>{"&Undo", "Cu&t", "&Copy", "&Paste", "&Delete"}));
    popup->actions().at(5)->trigger();
    EXPECT_EQ(Cells().Text(1, 1), "6");
    popup->close();
}

TEST_F(EntryGridTest, ARefusedCellMayGetItsFormerTextBack)
{
    qt::EntryRules rules = Numbers();
    rules.RestoresRefused = true;
    Open(std::move(rules));
    Cells().SetText(1, 1, "4");
    Type("9");
    Press(Qt::Key_Return);
    EXPECT_EQ(At(), Cell(1, 1));
    EXPECT_EQ(Cells().Text(1, 1), "4");
    EXPECT_EQ(edited.back(), Cell(1, 1));
}

TEST_F(EntryGridTest, AClickOnAnotherCellCommitsTheOneThatIsLeft)
{
    Open(Numbers());
    Type("5");
    Click(2, 3);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, "5"}}));
    EXPECT_EQ(At(), Cell(2, 3));
    Type("9");
    Click(1, 2);
    EXPECT_EQ(At(), Cell(2, 3));
    EXPECT_EQ(Cells().Text(2, 3), "");
}

TEST_F(EntryGridTest, AClickPassesOverACellThatIsAsItWas)
{
    Open(Numbers());
    Click(2, 3);
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, AClickCanCommitAlsoACellThatIsAsItWas)
{
    qt::EntryRules rules = Numbers();
    rules.ClickAlwaysCommits = true;
    Open(std::move(rules));
    Click(1, 1);
    EXPECT_TRUE(stored.empty());  // it is not left
    Click(2, 3);
    EXPECT_EQ(stored, (std::vector<Stored>{{1, 1, ""}}));
    Press(Qt::Key_Left);
    EXPECT_EQ(stored.size(), 1U);  // keys commit what has changed
    Cells().SetText(2, 2, "9");
    Click(1, 1);
    EXPECT_EQ(At(), Cell(2, 2));
    EXPECT_EQ(Cells().Text(2, 2), "");
}

TEST_F(EntryGridTest, AClickOnTheSameCellCommitsItAndTypingBeginsAnew)
{
    Open(Numbers());
    Type("5");
    Click(1, 1);
    Type("6");
    EXPECT_EQ(Cells().Text(1, 1), "6");
    EXPECT_EQ(stored.size(), 1U);
    EXPECT_EQ(stored.back(), Stored(1, 1, "5"));
}

TEST_F(EntryGridTest, AClickOnAFixedCellDoesNothing)
{
    Open(Numbers());
    Type("5");
    Click(0, 2);
    Click(2, 0);
    Click(0, 0);
    EXPECT_EQ(At(), Cell(1, 1));
    EXPECT_TRUE(grid->IsEditing());
}

TEST_F(EntryGridTest, ClickingAnotherControlCommitsFirst)
{
    Open(Numbers());
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, button, [&] { ++clicks; });
    Type("9");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(Cells().Text(1, 1), "");
    Type("8");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(stored.back(), Stored(1, 1, "8"));
    EXPECT_FALSE(grid->hasFocus());
}

TEST_F(EntryGridTest, AMenuThatIsClickedOpensDuringAnEdit)
{
    Open(Numbers());
    QMenuBar* bar = window.menuBar();
    const QPoint where = bar->actionGeometry(menu->menuAction()).center();
    Type("9");
    QTest::mouseClick(bar, Qt::LeftButton, {}, where);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(Cells().Text(1, 1), "9");
    EXPECT_TRUE(stored.empty());
    menu->close();
}

TEST_F(EntryGridTest, AClosedCellTakesNoKey)
{
    qt::EntryRules rules = Numbers();
    rules.Closed = [](int row, int column) { return row == 3 && column == 3; };
    Open(std::move(rules));
    Cells().SetText(3, 3, "***");
    Cells().Select(3, 3);
    Type("1");
    Press(Qt::Key_Delete);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cells().Text(3, 3), "***");
    EXPECT_EQ(desktop.dialogs.beeps, 3);
}

TEST_F(EntryGridTest, ARuleHearsWhetherAnEditBegins)
{
    std::vector<bool> first;
    qt::EntryRules rules = Numbers();
    rules.Key = [&](int, int, char, bool begins) {
        first.push_back(begins);
        return qt::KeyAnswer::Taken;
    };
    Open(std::move(rules));
    Type("ab");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    Type("c");
    EXPECT_EQ(first, (std::vector<bool>{true, false, true}));
    Press(Qt::Key_Down);
    Type("d");
    EXPECT_TRUE(first.back());
}

TEST_F(EntryGridTest, AKeyThatARuleHasToldAboutIsDroppedWithoutABeep)
{
    qt::EntryRules rules = Numbers();
    rules.Key = [](int, int, char, bool) { return qt::KeyAnswer::Told; };
    Open(std::move(rules));
    Type("1");
    EXPECT_EQ(Cells().Text(1, 1), "");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
}

TEST_F(EntryGridTest, TheProgramMovesTheCursorWithoutACheck)
{
    Open(Numbers());
    Type("9");
    Cells().Select(2, 2);
    EXPECT_EQ(Cells().Text(1, 1), "9");
    EXPECT_TRUE(stored.empty());
    EXPECT_EQ(At(), Cell(2, 2));
}

TEST_F(EntryGridTest, TheProgramEndsAnEditAlsoWhereItStands)
{
    Open(Numbers());
    Type("9");
    Cells().Select(1, 1);
    EXPECT_EQ(Cells().Text(1, 1), "9");
    EXPECT_FALSE(grid->IsEditing());
    Click(1, 1);
    EXPECT_TRUE(stored.empty());
    Type("5");
    EXPECT_EQ(Cells().Text(1, 1), "5");
}

TEST_F(EntryGridTest, ARedrawEndsAnEdit)
{
    Open(Numbers());
    Type("9");
    Cells().SetText(1, 1, "4");
    EXPECT_FALSE(grid->IsEditing());
    Press(Qt::Key_Right);
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, FixedCellsCanBeReadButNotEntered)
{
    Open(Numbers());
    Cells().SetText(0, 2, "Head");
    Cells().SetText(2, 0, "Side");
    EXPECT_EQ(Cells().Text(0, 2), "Head");
    EXPECT_EQ(Cells().Text(2, 0), "Side");
    Cells().Select(0, 2);
    Type("1");
    EXPECT_EQ(Cells().Text(0, 2), "Head");
}

TEST_F(EntryGridTest, AGridWithoutCellsIgnoresKeys)
{
    Open(Numbers(), 0, 0);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Home})
        Press(key);
    Type("12");
    EXPECT_TRUE(stored.empty());
}

TEST_F(EntryGridTest, HomeAndEndGoToTheEndsOfTheRow)
{
    Open(Numbers());
    Press(Qt::Key_End);
    EXPECT_EQ(At(), Cell(1, 3));
    Press(Qt::Key_Home);
    EXPECT_EQ(At(), Cell(1, 1));
    Press(Qt::Key_PageDown);
    EXPECT_EQ(At(), Cell(3, 1));
    Press(Qt::Key_PageUp);
    EXPECT_EQ(At(), Cell(1, 1));
}

TEST_F(EntryGridTest, AColumnIsWideEnoughForItsTexts)
{
    Open(Numbers());
    const QString text = QString(40, QLatin1Char('8'));
    Cells().SetText(2, 2, text.toStdString());
    EXPECT_GT(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance(text));
}

TEST_F(EntryGridTest, GridsInLineHaveTheSameWidthsAndScrollTogether)
{
    Open(Numbers(), 3, 40);
    auto* other = new qt::EntryGrid("other", "More numbers", Numbers());
    window.centralWidget()->layout()->addWidget(other);
    grid->AlignWith(*other);
    other->Cells().Resize(3, 42);
    QTest::qWait(0);
    other->Cells().SetText(1, 2, std::string(30, '8'));
    EXPECT_EQ(grid->columnWidth(2), other->columnWidth(2));
    other->Cells().SetText(1, 0, std::string(30, '8'));
    EXPECT_EQ(grid->verticalHeader()->width(), other->verticalHeader()->width());
    other->Cells().Select(1, 20);
    EXPECT_GT(other->horizontalScrollBar()->value(), 0);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), other->horizontalScrollBar()->value());
    other->Cells().Select(1, 41);
    const QModelIndex last = other->model()->index(1, 41);
    EXPECT_TRUE(other->viewport()->rect().contains(other->visualRect(last)));
}

TEST_F(EntryGridTest, AKeyTakesLessThanTwoMilliseconds)
{
    Open(Numbers(), 31, 31);
    QElapsedTimer clock;
    clock.start();
    constexpr int kKeys = 1000;
    for (int i = 0; i < kKeys / 2; ++i) {
        Type("1");
        Press(Qt::Key_Tab);
    }
    EXPECT_LT(clock.elapsed(), 2 * kKeys);
}

TEST_F(EntryGridTest, IsAsHighAsItsRowsBeforeItIsOnScreen)
{
    qt::EntryGrid hidden("grid", "Numbers", Numbers());
    hidden.ShowRows(10);
    hidden.Cells().Resize(3, 3);
    Open(Numbers(), 3, 3);
    grid->ShowRows(10);
    EXPECT_EQ(hidden.sizeHint().height(), grid->sizeHint().height());
}

TEST_F(EntryGridTest, HasRoomForTheScrollBarThatItsColumnsNeed)
{
    Open(Numbers(), 3, 3);
    grid->ShowRows(10);
    QTest::qWait(0);
    const int without = grid->sizeHint().height();
    window.resize(150, 600);
    QTest::qWait(0);
    EXPECT_GT(grid->sizeHint().height(), without);
}

TEST_F(EntryGridTest, AColumnTakesTheWidthThatTheOthersLeave)
{
    Open(Numbers());
    Cells().SetText(1, 2, "twelve letters");
    grid->FillWidthWith(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
    EXPECT_GT(grid->columnWidth(2), 400);
    window.resize(420, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
    window.resize(200, 600);  // now its text needs more than there is
    QCoreApplication::processEvents();
    EXPECT_GE(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance("twelve letters"));
}
