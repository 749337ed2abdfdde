#include "qt/fields.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QValidator>
#include <QtMath>
#include <algorithm>

#include "basic/error.h"
#include "desktop/desktop.h"
#include "qt/application.h"
#include "qt/colors.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kTextLines = 9;  // of a text to read; more of them scroll

// The box that had the focus last.
QPointer<QLineEdit>& LastBox()
{
    static QPointer<QLineEdit> box;
    return box;
}

// A text box whose whole text is selected whenever it gets the focus. It is framed while a message speaks of
// it, which takes the focus away from its window.
class TextBox : public QLineEdit {
protected:
    void focusInEvent(QFocusEvent* event) override
    {
        QLineEdit::focusInEvent(event);
        LastBox() = this;
        if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason) return;
        selectAll();
        clickedInto_ = event->reason() == Qt::MouseFocusReason;
    }

    // A spreadsheet puts a line end behind a single cell; it is no part of what is entered.
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!event->matches(QKeySequence::Paste)) return QLineEdit::keyPressEvent(event);
        QString text = QGuiApplication::clipboard()->text();
        while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r')))
            text.chop(1);
        if (!text.isEmpty()) insert(text);
    }

    // The click that brought the focus would put the cursor between two characters.
    void mousePressEvent(QMouseEvent* event) override
    {
        if (!clickedInto_) QLineEdit::mousePressEvent(event);
    }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (!clickedInto_) QLineEdit::mouseReleaseEvent(event);
        clickedInto_ = false;
    }

    void paintEvent(QPaintEvent* event) override
    {
        constexpr int kWidth = 3;
        QLineEdit::paintEvent(event);
        if (!property(kMarked).toBool()) return;
        QPainter painter(this);
        painter.setPen(QPen(AlertOn(palette().color(QPalette::Base)), kWidth));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }

private:
    bool clickedInto_ = false;
};

// A text to read, as high as its lines; more than kTextLines of them scroll.
class TextPage : public QPlainTextEdit {
public:
    TextPage()
    {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // a blank at the end of a line asks for one
        connect(this, &QPlainTextEdit::textChanged, this, &TextPage::Fit);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QPlainTextEdit::resizeEvent(event);
        Fit();
    }

private:
    void Fit()
    {
        const int needed = qMax(1, qCeil(document()->size().height()));  // in lines
        const int margins = qCeil(2 * document()->documentMargin());
        setVerticalScrollBarPolicy(needed > kTextLines ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
        setFixedHeight(qMin(needed, kTextLines) * fontMetrics().lineSpacing() + margins);
    }
};

// A label whose text begins where the others do: a blank or two in front of it are not shown; more of them
// set a line off on purpose.
class Label : public QLabel {
public:
    void Pale()
    {
        pale_ = true;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        constexpr float kShare = 0.72F;  // of a pale text's colour
        const qsizetype first = LeadingBlanks();
        if (!pale_ && first == 0) return QLabel::paintEvent(event);
        QPalette colors = palette();
        const QColor ink = colors.color(foregroundRole());
        if (pale_) colors.setColor(foregroundRole(), Mixed(ink, colors.color(QPalette::Window), kShare));
        QPainter painter(this);
        drawFrame(&painter);
        const QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
        const int flags = static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : 0);
        style()->drawItemText(&painter, room, flags, colors, isEnabled(), text().mid(first),
                              foregroundRole());
    }

private:
    [[nodiscard]] qsizetype LeadingBlanks() const
    {
        constexpr qsizetype kMost = 2;
        qsizetype blanks = 0;
        while (blanks < text().size() && text()[blanks] == QLatin1Char(' '))
            ++blanks;
        return blanks <= kMost ? blanks : 0;
    }

    bool pale_ = false;
};

bool IsArrow(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
}

// Tab goes to the chosen one of some options. While none is chosen, an arrow key chooses the one that it goes
// to, or at the end the one that it comes from.
class OptionButton : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

protected:
    void showEvent(QShowEvent* event) override
    {
        QRadioButton::showEvent(event);
        if (!isChecked()) return;
        setFocusPolicy(Qt::FocusPolicy(focusPolicy() | Qt::TabFocus));
        for (OptionButton* other : Others())
            other->setFocusPolicy(Qt::FocusPolicy(other->focusPolicy() & ~Qt::TabFocus));
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        const bool open = IsArrow(event->key()) && NoneIsChosen();
        QRadioButton::keyPressEvent(event);
        if (!open) return;
        for (OptionButton* other : Others())
            if (other->hasFocus()) return other->click();
        click();  // there is none further on
    }

private:
    [[nodiscard]] QList<OptionButton*> Others() const
    {
        QList<OptionButton*> others;
        for (QObject* sibling : parentWidget()->children())
            if (auto* option = dynamic_cast<OptionButton*>(sibling); option != nullptr && option != this)
                others.append(option);
        return others;
    }

    [[nodiscard]] bool NoneIsChosen() const
    {
        const auto others = Others();
        return !isChecked() && std::none_of(others.begin(), others.end(),
                                            [](const QRadioButton* other) { return other->isChecked(); });
    }
};

// A list shows by a frame that the keys are its own. Where one choice is wanted and nothing is chosen yet,
// the first arrow key chooses the entry that it stands on; until then no entry looks as if it were chosen.
class List : public QListWidget {
public:
    List()
    {
        setItemDelegate(new Entries(*this));
        connect(qApp, &QApplication::focusChanged, viewport(), qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QListWidget::paintEvent(event);
        if (!hasFocus() && !GetsKeys(*this)) return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (selectionMode() == SingleSelection && IsOpen() && IsArrow(event->key()) && count() > 0)
            setCurrentRow(qMax(0, currentRow()), QItemSelectionModel::ClearAndSelect);
        else
            QListWidget::keyPressEvent(event);
    }

private:
    class Entries : public QStyledItemDelegate {
    public:
        explicit Entries(List& list) : QStyledItemDelegate(&list), list_(list) {}

    protected:
        void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
        {
            QStyledItemDelegate::initStyleOption(option, index);
            const bool open = list_.selectionMode() == SingleSelection && list_.IsOpen();
            if (open) option->state.setFlag(QStyle::State_HasFocus, false);
        }

    private:
        const List& list_;
    };

    [[nodiscard]] bool IsOpen() const { return !selectionModel()->hasSelection(); }
};

// The wheel turns the list only where the user is.
class Combo : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

class CharacterValidator : public QValidator {
public:
    CharacterValidator(std::function<bool(char)> takes, QObject* parent)
        : QValidator(parent), takes_(std::move(takes))
    {
    }

    State validate(QString& text, int& /*cursor*/) const override
    {
        for (const QChar character : std::as_const(text))
            if (character.unicode() > 127 || !takes_(character.toLatin1())) return Invalid;
        return Acceptable;
    }

private:
    std::function<bool(char)> takes_;
};

template <typename Control>
Control* Named(Control* control, const char* name)
{
    control->setObjectName(QString::fromUtf8(name));
    return control;
}

// Captions of buttons and frames: an ampersand stands for itself.
QString Caption(std::string_view text)
{
    return ToQt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

void Put(QLayout* layout, QWidget* control)
{
    if (auto* rows = qobject_cast<QFormLayout*>(layout))
        rows->addRow(control);
    else
        layout->addWidget(control);
}

// `txtMean` goes with `lblMean`, `comboService` with `lblService`.
QString NameOfLabel(const QWidget* control)
{
    QString name = control->objectName();
    for (const QString& kind : {QStringLiteral("txt"), QStringLiteral("combo")})
        if (name.startsWith(kind)) name.remove(0, kind.size());
    return "lbl" + name;
}

template <typename Control>
Control* PutRow(QFormLayout* rows, Control* control, std::string_view label, const char* labelName)
{
    control->setAccessibleName(ToQt(label).trimmed());
    QLabel* text = MakeLabel(labelName, label);
    if (*labelName == '\0') text->setObjectName(NameOfLabel(control));
    if (label.find('&') == std::string_view::npos) text->setBuddy(control);  // it would mark an access key
    rows->addRow(text, control);
    return control;
}

QFormLayout* RowsAround(QWidget* control)
{
    if (control->parentWidget() == nullptr) return nullptr;
    for (auto* rows : control->parentWidget()->findChildren<QFormLayout*>())
        if (rows->indexOf(control) >= 0) return rows;
    return nullptr;
}

bool IsFirstButton(QLayout* row)
{
    for (int i = 0; i < row->count(); ++i)
        if (qobject_cast<QPushButton*>(row->itemAt(i)->widget()) != nullptr) return false;
    return true;
}

// Gives the focus to the main window when its widget is clicked.
class ClickToMenu : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress) desktop::TheForms().FocusMenu();
        return false;
    }
};

// The form whose Cancel button was pressed is still there: the user goes on with the box that was left.
void GoBackToBox(const QWidget& cancel)
{
    QLineEdit* box = LastBox();
    if (cancel.isVisible() && box != nullptr && box->window() == cancel.window() && box->isVisible())
        SelectBox(box);
}

}  // namespace

void Trap(const std::function<void()>& steps)
{
    try {
        steps();
    } catch (const RuntimeError& error) {
        ShowError(error);
    }
}

QLabel* MakeLabel(const char* name, std::string_view text)
{
    auto* label = Named(new Label, name);
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQt(text));
    return label;
}

void ShowAsTitle(QLabel* label)
{
    constexpr double kFactor = 1.25;
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * kFactor);
    font.setBold(true);
    label->setFont(font);
}

void ShowAsNote(QLabel* label)
{
    if (auto* own = dynamic_cast<Label*>(label)) own->Pale();
}

QVBoxLayout* MakePage(QWidget* form)
{
    constexpr int kMargin = 20;
    constexpr int kSpacing = 12;
    auto* page = new QVBoxLayout(form);
    page->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    page->setSpacing(kSpacing);
    return page;
}

QLabel* AddLabel(QLayout* layout, const char* name, std::string_view text)
{
    QLabel* label = MakeLabel(name, text);
    label->setWordWrap(true);
    Put(layout, label);
    return label;
}

QLineEdit* MakeBox(const char* name, std::string_view description, TextCheck check)
{
    auto* box = Named(new TextBox, name);
    box->setAccessibleName(ToQt(description).trimmed());
    if (!check) return box;
    CheckOnLeaving(box, [box, check = std::move(check)] {
        const bool taken = IsTaken(box, check);
        if (!taken) SelectBox(box);
        return taken;
    });
    return box;
}

QLineEdit* AddBox(QFormLayout* rows, const char* name, std::string_view label, TextCheck check,
                  const char* labelName)
{
    return PutRow(rows, MakeBox(name, label, std::move(check)), label, labelName);
}

QGroupBox* AddFrame(QLayout* layout, const char* name, std::string_view caption)
{
    auto* frame = Named(new QGroupBox(Caption(caption)), name);
    new QVBoxLayout(frame);  // owned by the frame
    Put(layout, frame);
    return frame;
}

QRadioButton* AddOption(QLayout* layout, const char* name, std::string_view caption)
{
    auto* option = Named(new OptionButton(Caption(caption)), name);
    Put(layout, option);
    return option;
}

QCheckBox* AddCheck(QLayout* layout, const char* name, std::string_view caption)
{
    auto* box = Named(new QCheckBox(Caption(caption)), name);
    Put(layout, box);
    return box;
}

QComboBox* AddCombo(QFormLayout* rows, const char* name, std::string_view label, const char* labelName)
{
    auto* combo = Named(new Combo, name);
    combo->setFocusPolicy(Qt::StrongFocus);  // turning the wheel over it takes no focus
    return PutRow(rows, combo, label, labelName);
}

QPlainTextEdit* AddText(QLayout* layout, const char* name, std::string_view description)
{
    auto* page = Named(new TextPage, name);
    page->setAccessibleName(ToQt(description));
    page->setReadOnly(true);
    page->setFrameShape(QFrame::NoFrame);
    page->viewport()->setAutoFillBackground(false);
    page->document()->setDocumentMargin(0);  // in line with the labels around it
    Put(layout, page);
    return page;
}

QListWidget* AddList(QLayout* layout, const char* name, std::string_view description)
{
    auto* list = Named(new List, name);
    list->setAccessibleName(ToQt(description).trimmed());
    Put(layout, list);
    return list;
}

QHBoxLayout* AddButtonRow(QLayout* layout)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    if (auto* rows = qobject_cast<QFormLayout*>(layout))
        rows->addRow(row);
    else if (auto* box = qobject_cast<QBoxLayout*>(layout))
        box->addLayout(row);
    return row;
}

QPushButton* AddButton(QLayout* row, const char* name, std::string_view caption,
                       std::function<void()> clicked)
{
    auto* button = Named(new QPushButton(Caption(caption)), name);
    const bool first = IsFirstButton(row);
    row->addWidget(button);
    if (first) button->setDefault(true);
    if (clicked)
        QObject::connect(button, &QPushButton::clicked, button,
                         [clicked = std::move(clicked)] { Trap(clicked); });
    return button;
}

QPushButton* AddCancelButton(QLayout* row, const char* name, std::string_view caption,
                             std::function<void()> clicked)
{
    QPushButton* button = AddButton(row, name, caption, std::move(clicked));
    QObject::connect(button, &QPushButton::clicked, button, [button] { GoBackToBox(*button); });
    button->setFocusPolicy(Qt::TabFocus);
    button->setProperty(kCancelsForm, true);
    LeavesUnchecked(button);
    return button;
}

std::string TextOf(const QLineEdit* box)
{
    return FromQt(box->text());
}

void SetTextOf(QLineEdit* box, std::string_view text)
{
    box->setText(ToQt(text));
}

void SelectBox(QLineEdit* box)
{
    box->setFocus(Qt::OtherFocusReason);
    box->selectAll();
}

bool IsTaken(QLineEdit* box, const TextCheck& check)
{
    if (!check) return true;
    if (!box->hasFocus()) SelectBox(box);
    bool taken = false;  // nor is a number that does not fit
    Trap([&] { taken = check(TextOf(box)); });
    return taken;
}

bool GetsKeys(const QWidget& control)
{
    if (!control.isVisible() || !control.window()->hasFocus()) return false;
    for (const QWidget* parent = control.parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (parent->focusProxy() == &control) return true;
    return false;
}

Mark::Mark(QWidget* box) : box_(qobject_cast<QLineEdit*>(box))
{
    if (box_ != nullptr) box_->selectAll();
    Set(true);
}

Mark::~Mark()
{
    Set(false);
}

void Mark::Set(bool marked)
{
    if (box_ == nullptr) return;
    box_->setProperty(kMarked, marked);
    box_->update();
}

void ShowRow(QWidget* control, bool visible)
{
    if (QFormLayout* rows = RowsAround(control))
        rows->setRowVisible(control, visible);
    else
        control->setVisible(visible);
}

void SetRowLabel(QWidget* control, std::string_view text)
{
    QFormLayout* rows = RowsAround(control);
    if (rows == nullptr) return;
    if (auto* label = qobject_cast<QLabel*>(rows->labelForField(control))) label->setText(ToQt(text));
    control->setAccessibleName(ToQt(text).trimmed());
}

void FilterKeys(QLineEdit* box, std::function<bool(char)> takes)
{
    box->setValidator(new CharacterValidator(std::move(takes), box));
}

void OnlyDigits(QLineEdit* box)
{
    FilterKeys(box, [](char character) { return character >= '0' && character <= '9'; });
}

void PassClickToMenu(QWidget* widget)
{
    widget->setFocusPolicy(Qt::ClickFocus);  // so that the click leaves what has the focus
    widget->installEventFilter(new ClickToMenu(widget));
}

void CheckOnLeaving(QWidget* widget, std::function<bool()> mayLeave)
{
    if (auto* application = qobject_cast<Application*>(qApp))
        application->Guard(widget, Leaving::Box, std::move(mayLeave));
}

bool LeavesTyped()
{
    auto* application = qobject_cast<Application*>(qApp);
    return application == nullptr || application->LeavesTyped();
}

void LeavesUnchecked(QWidget* control)
{
    control->setProperty(kLeavesUnchecked, true);
}

}  // namespace qt
