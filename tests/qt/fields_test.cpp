#include "qt/fields.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "basic/error.h"
#include "shell/frmuserlistinput.h"
#include "shell/userinput.h"
#include "support/qt_desktop.h"

namespace {

// A dialog with two boxes that take no text with an "x" in it, and its buttons.
class Dialog : public qt::ModalForm {
public:
    Dialog() : qt::ModalForm(nullptr)
    {
        auto* page = new QVBoxLayout(this);
        auto* rows = new QFormLayout;
        page->addLayout(rows);
        first = qt::AddBox(rows, "txtFirst", "First & foremost:", Taker());
        second = qt::AddBox(rows, "txtSecond", "Second:", Taker(), "lblSecond");
        option = qt::AddOption(page, "optSomething", "Something");
        auto* buttons = qt::AddButtonRow(page);
        ok = qt::AddButton(buttons, "cmdOK", "OK", [this] { ++accepted; });
        cancel = qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [this] { ++cancelled; });
    }

    qt::TextCheck Taker()
    {
        return [this](std::string_view text) {
            checked.emplace_back(text);
            return text.find('x') == std::string_view::npos;
        };
    }

    QLineEdit* first;
    QLineEdit* second;
    QRadioButton* option;
    QPushButton* ok;
    QPushButton* cancel;
    std::vector<std::string> checked;
    int accepted = 0;
    int cancelled = 0;
};

class FieldsTest : public testing::Test {
protected:
    void SetUp() override
    {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        form.first->setFocus();
    }

    static void Click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }

    QtDesktop desktop;
    Dialog form;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(FieldsTest, ABoxIsCheckedOnceWhenAClickLeavesIt)
{
    form.first->setText("1");
    Click(form.second);
    EXPECT_EQ(form.checked, Texts{"1"});
    EXPECT_TRUE(form.second->hasFocus());
}

TEST_F(FieldsTest, ARefusedTextKeepsTheFocusAndIsSelected)
{
    form.first->setText("1x");
    form.first->deselect();
    Click(form.second);
    EXPECT_EQ(form.checked, Texts{"1x"});
    EXPECT_TRUE(form.first->hasFocus());
    EXPECT_EQ(form.first->selectedText(), "1x");
}

TEST_F(FieldsTest, TheClickThatWasRefusedHasNoEffect)
{
    form.first->setText("x");
    Click(form.ok);
    Click(form.option);
    EXPECT_EQ(form.accepted, 0);
    EXPECT_FALSE(form.option->isChecked());
    EXPECT_EQ(form.checked.size(), 2U);
    form.first->setText("1");
    Click(form.ok);
    EXPECT_EQ(form.accepted, 1);
}

TEST_F(FieldsTest, AClickThatIsAllowedAfterAMessageHasItsEffect)
{
    auto* box = qt::MakeBox("txtThird", "Third", [this](std::string_view) {
        QTimer::singleShot(0, [] {
            auto* told = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(told, nullptr);
            QTest::mouseClick(told->button(QMessageBox::Ok), Qt::LeftButton);
        });
        QMessageBox::information(&form, "", "Hello");
        return true;
    });
    form.layout()->addWidget(box);
    box->show();
    box->setFocus();
    QTest::mousePress(form.ok, Qt::LeftButton);  // the message box has the release
    EXPECT_EQ(form.accepted, 1);
    EXPECT_FALSE(form.ok->isDown());
}

TEST_F(FieldsTest, TabAndBacktabCheck)
{
    form.first->setText("x");
    QTest::keyClick(form.first, Qt::Key_Tab);
    EXPECT_TRUE(form.first->hasFocus());
    form.first->setText("1");
    QTest::keyClick(form.first, Qt::Key_Tab);
    EXPECT_TRUE(form.second->hasFocus());
    form.second->setText("x");
    QTest::keyClick(form.second, Qt::Key_Backtab);
    EXPECT_TRUE(form.second->hasFocus());
    EXPECT_EQ(form.checked, (Texts{"x", "1", "x"}));
}

TEST_F(FieldsTest, EnterChecksBeforeItPressesTheFirstButton)
{
    form.first->setText("x");
    QTest::keyClick(form.first, Qt::Key_Return);
    EXPECT_EQ(form.accepted, 0);
    form.first->setText("1");
    QTest::keyClick(form.first, Qt::Key_Return);
    EXPECT_EQ(form.accepted, 1);
    EXPECT_EQ(form.checked, (Texts{"x", "1"}));
}

TEST_F(FieldsTest, CancelDoesNotCheck)
{
    form.first->setText("x");
    Click(form.cancel);
    EXPECT_EQ(form.cancelled, 1);
    EXPECT_TRUE(form.checked.empty());
}

TEST_F(FieldsTest, TheCloseButtonAndEscapeActLikeCancel)
{
    form.first->setText("x");
    form.close();
    EXPECT_EQ(form.cancelled, 1);
    EXPECT_TRUE(form.isVisible());  // Cancel decides whether it goes
    QTest::keyClick(form.first, Qt::Key_Escape);
    EXPECT_EQ(form.cancelled, 2);
    EXPECT_TRUE(form.checked.empty());
}

TEST_F(FieldsTest, AMessageBoxOnTopDoesNotCheck)
{
    form.first->setText("x");
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    QMessageBox::information(&form, "", "Hello");
    EXPECT_TRUE(form.checked.empty());
}

TEST_F(FieldsTest, WhatIsToldDuringACheckIsNotCheckedItself)
{
    auto* box = qt::MakeBox("txtThird", "Third", [this](std::string_view) {
        form.checked.emplace_back("told");
        form.second->setFocus();
        Click(form.ok);
        return true;
    });
    form.layout()->addWidget(box);
    box->show();
    box->setFocus();
    Click(form.first);
    EXPECT_EQ(form.checked, Texts{"told"});
}

TEST_F(FieldsTest, ARunTimeErrorInACheckIsShownAndTheFormStays)
{
    auto* box = qt::MakeBox("txtThird", "Third",
                            [](std::string_view) -> bool { Raise(ErrorNumber::DivisionByZero); });
    form.layout()->addWidget(box);
    box->show();
    box->setFocus();
    Click(form.first);
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"Division by zero", "Error # 11", Icon::Critical, Buttons::OK}));
}

TEST_F(FieldsTest, ARunTimeErrorUnderAButtonIsShownAndTheFormStays)
{
    auto* row = qt::AddButtonRow(form.layout());
    QPushButton* button =
        qt::AddButton(row, "cmdFail", "Fail", [] { Raise(ErrorNumber::SubscriptOutOfRange); });
    Click(button);
    EXPECT_EQ(desktop.dialogs.Last().Text, "Subscript out of range");
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FieldsTest, TheWholeTextIsSelectedWhenABoxGetsTheFocus)
{
    form.second->setText("123");
    Click(form.second);
    EXPECT_EQ(form.second->selectedText(), "123");
    Click(form.first);
    form.first->setText("45");
    Click(form.second);
    QTest::keyClick(form.second, Qt::Key_Backtab);
    EXPECT_EQ(form.first->selectedText(), "45");
}

TEST_F(FieldsTest, OnlyTheCharactersOfAFilterCanBeTyped)
{
    qt::OnlyDigits(form.first);
    QTest::keyClicks(form.first, "1a-2.");
    EXPECT_EQ(form.first->text(), "12");
    EXPECT_EQ(desktop.dialogs.beeps, 0);
    form.first->setText("");
    EXPECT_EQ(form.first->text(), "");
}

TEST_F(FieldsTest, ARowComesAndGoesWithItsLabel)
{
    auto* label = form.findChild<QLabel*>("lblSecond");
    qt::ShowRow(form.second, false);
    EXPECT_FALSE(form.second->isVisible());
    EXPECT_FALSE(label->isVisible());
    qt::ShowRow(form.second, true);
    EXPECT_TRUE(form.second->isVisible());
    EXPECT_TRUE(label->isVisible());
    qt::SetRowLabel(form.second, "Third:");
    EXPECT_EQ(label->text(), "Third:");
}

TEST_F(FieldsTest, TheTabOrderIsTheOrderOfTheFields)
{
    form.first->setFocus();
    std::vector<QWidget*> met;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        met.push_back(QApplication::focusWidget());
    }
    EXPECT_EQ(met, (std::vector<QWidget*>{form.second, form.option, form.ok, form.cancel}));
}

TEST_F(FieldsTest, LabelsAreReadOutAndStandAsTheyAreGiven)
{
    EXPECT_EQ(form.first->accessibleName(), "First & foremost:");
    EXPECT_NE(form.findChild<QLabel*>("lblFirst"), nullptr);
    for (const auto* label : form.findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
}

namespace {

// A dialog of options and a list, and nothing before them.
class Choices : public qt::ModalForm {
public:
    Choices() : qt::ModalForm(nullptr)
    {
        auto* page = new QVBoxLayout(this);
        QLayout* frame = qt::AddFrame(page, "Frame1", "Kind")->layout();
        for (const char* name : {"optFirst", "optSecond", "optThird"})
            options.push_back(qt::AddOption(frame, name, name));
        list = qt::AddList(page, "lstModels", "Models");
        list->addItems({"One", "Two", "Three"});
        ok = qt::AddButton(qt::AddButtonRow(page), "cmdOK", "OK");
    }

    void Open()
    {
        show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(this));
    }

    static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    std::vector<QRadioButton*> options;
    QListWidget* list;
    QPushButton* ok;
};

class ChoicesTest : public testing::Test {
protected:
    QtDesktop desktop;
    Choices form;
};

}  // namespace

TEST_F(ChoicesTest, TheChosenOptionHasTheFocusAtFirst)
{
    form.options[2]->setChecked(true);
    form.Open();
    EXPECT_TRUE(form.options[2]->hasFocus());
}

TEST_F(ChoicesTest, TabAndBacktabGoToTheChosenOption)
{
    form.options[1]->setChecked(true);
    form.ok->setFocus();
    form.Open();
    Choices::Press(Qt::Key_Tab);
    EXPECT_TRUE(form.options[1]->hasFocus());
    Choices::Press(Qt::Key_Tab);
    EXPECT_TRUE(form.list->hasFocus());
    Choices::Press(Qt::Key_Backtab);
    EXPECT_TRUE(form.options[1]->hasFocus());
}

TEST_F(ChoicesTest, AnArrowKeyChoosesWhereNothingIsChosenYet)
{
    form.Open();
    EXPECT_TRUE(form.options[0]->hasFocus());
    EXPECT_FALSE(form.options[0]->isChecked());
    Choices::Press(Qt::Key_Down);
    EXPECT_TRUE(form.options[1]->isChecked());
    EXPECT_TRUE(form.options[1]->hasFocus());
    Choices::Press(Qt::Key_Up);
    EXPECT_TRUE(form.options[0]->isChecked());
    EXPECT_FALSE(form.options[1]->isChecked());
}

TEST_F(ChoicesTest, SpaceChoosesTheOptionThatHasTheFocus)
{
    form.Open();
    Choices::Press(Qt::Key_Space);
    EXPECT_TRUE(form.options[0]->isChecked());
}

TEST_F(ChoicesTest, TheFirstArrowKeyInAListChoosesItsFirstEntry)
{
    form.list->setFocus();
    form.Open();
    EXPECT_TRUE(form.list->selectedItems().isEmpty());
    Choices::Press(Qt::Key_Down);
    EXPECT_EQ(form.list->selectedItems(), QList<QListWidgetItem*>{form.list->item(0)});
    Choices::Press(Qt::Key_Down);
    EXPECT_EQ(form.list->selectedItems(), QList<QListWidgetItem*>{form.list->item(1)});
}

// Also where an entry is chosen, and where there is none at all.
TEST_F(ChoicesTest, AListWithTheFocusHasAFrame)
{
    const QColor frame = form.list->palette().color(QPalette::Highlight);
    const auto corner = [this] {
        const QWidget* inside = form.list->viewport();
        return form.list->viewport()->grab().toImage().pixelColor(inside->width() - 1, inside->height() - 1);
    };
    form.Open();
    form.list->setCurrentRow(0);
    form.options.front()->setFocus();
    EXPECT_NE(corner(), frame);
    form.list->setFocus();
    EXPECT_EQ(corner(), frame);
    form.list->clear();
    EXPECT_EQ(corner(), frame);
}

TEST_F(ChoicesTest, AnArrowKeyInAnEmptyListChoosesNothing)
{
    form.list->clear();
    form.list->setFocus();
    form.Open();
    Choices::Press(Qt::Key_Down);
    EXPECT_TRUE(form.list->selectedItems().isEmpty());
}

TEST_F(FieldsTest, ACancelThatLeavesTheFormLeadsBackToTheBox)
{
    form.second->setFocus();
    form.second->setText("x");
    form.second->deselect();
    Click(form.cancel);
    EXPECT_EQ(form.cancelled, 1);
    EXPECT_TRUE(form.second->hasFocus());
    EXPECT_EQ(form.second->selectedText(), "x");
    EXPECT_EQ(form.checked, Texts{});
    form.second->setText("1");
    form.cancel->setFocus(Qt::TabFocusReason);
    QTest::keyClick(form.cancel, Qt::Key_Space);
    EXPECT_EQ(form.cancelled, 2);
    EXPECT_TRUE(form.second->hasFocus());
}

TEST_F(FieldsTest, TheWheelTurnsAListOnlyWhereTheFocusIs)
{
    auto* rows = new QFormLayout;
    static_cast<QVBoxLayout*>(form.layout())->addLayout(rows);
    QComboBox* combo = qt::AddCombo(rows, "comboThing", "Thing:");
    combo->addItems({"One", "Two"});
    QCoreApplication::processEvents();
    const auto turn = [combo] {
        const QPointF place = combo->rect().center();
        QWheelEvent wheel(place, combo->mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(combo, &wheel);
    };
    turn();
    EXPECT_EQ(combo->currentIndex(), 0);
    combo->setFocus();
    turn();
    EXPECT_EQ(combo->currentIndex(), 1);
}

TEST(ListOfModels, ADoubleClickBesideTheItemsIsOK)
{
    QtDesktop desktop;
    desktop.forms.Add<frmuserlistinput>("frmuserlistinput", qt::Place::Modal);
    QTimer::singleShot(0, [&desktop] {
        auto* form = desktop.forms.Find("frmuserlistinput");
        auto* list = form->findChild<QListWidget*>("lstModelSelection");
        const QPoint beside(5, list->viewport()->height() - 3);
        EXPECT_EQ(list->itemAt(beside), nullptr);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, beside);
        EXPECT_TRUE(form->isVisible());  // nothing was chosen
        list->setCurrentRow(1);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, beside);
    });
    EXPECT_EQ(AskListItem({.Caption = "", .Items = {"A", "B"}, .EmptyMessage = "None"}), 2);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("None"));
}
