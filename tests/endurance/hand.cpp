#include "endurance/hand.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "play/hands.h"

namespace {

constexpr int kMostTries = 2;
constexpr int kPatience = 1500;  // milliseconds of a solve

void FillIn(const QWidget& form)
{
    int number = 1;
    for (auto* box : form.findChildren<QLineEdit*>()) {
        if (box->isVisible() && box->text().isEmpty()) box->setText(QString::number(number));
        ++number;
    }
    for (auto* list : form.findChildren<QListWidget*>())
        if (list->currentRow() < 0) list->setCurrentRow(0);
    const auto options = form.findChildren<QRadioButton*>();
    for (auto* option : options)
        if (option->isChecked()) return;
    if (!options.isEmpty()) options.constFirst()->click();
}

QPushButton* ButtonOf(const QWidget& form, std::initializer_list<const char*> names)
{
    for (const char* name : names)
        if (auto* button = form.findChild<QPushButton*>(name); button != nullptr && button->isVisible())
            return button;
    return nullptr;
}

}  // namespace

Hand::Hand()
{
    quiet_.start();
    QTimer::singleShot(0, this, &Hand::Look);
}

void Hand::Look()
{
    QTimer::singleShot(1, this, &Hand::Look);  // before what may run a dialog of its own
    if (QWidget* dialog = QApplication::activeModalWidget(); dialog != nullptr) {
        quiet_.restart();
        Answer(*dialog);
    } else if (quiet_.elapsed() > kPatience && QApplication::activeWindow() != nullptr) {
        quiet_.restart();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(QApplication::activeWindow(), &escape);
    }
}

void Hand::Answer(QWidget& dialog)
{
    if (auto* box = qobject_cast<QMessageBox*>(&dialog); box != nullptr)
        box->buttons().constFirst()->click();  // OK or Yes
    else if (auto* files = qobject_cast<QFileDialog*>(&dialog); files != nullptr)
        AnswerFile(*files);
    else
        AnswerForm(dialog);
}

void Hand::AnswerFile(QFileDialog& dialog)
{
    ++fileDialogs_;
    const QPointer<QFileDialog> shown = &dialog;
    if (!File.isEmpty()) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setFocus();
        name->setText(File);
        QMetaObject::invokeMethod(&dialog, "accept");
    }
    if (!shown.isNull() && shown->isVisible()) shown->reject();
}

void Hand::AnswerForm(QWidget& form)
{
    if (form_ != &form) tries_ = 0;
    form_ = &form;
    FillIn(form);
    const bool givesUp = ++tries_ > kMostTries;
    QPushButton* button = givesUp ? ButtonOf(form, {"cmdCancel"}) : ButtonOf(form, {"cmdSolve", "cmdOK"});
    if (button != nullptr)
        button->click();
    else
        form.close();
}
