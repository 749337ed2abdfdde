#include "qt/forms.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "basic/error.h"
#include "desktop/desktop.h"
#include "qt/colors.h"
#include "qt/entrygrid.h"
#include "qt/fields.h"
#include "qt/text.h"

namespace qt {
namespace {

QPushButton* CancelButton(const QWidget& form)
{
    for (auto* button : form.findChildren<QPushButton*>())
        if (button->property(kCancelsForm).toBool()) return button;
    return nullptr;
}

void CancelOrUnload(const QWidget& form)
{
    QPushButton* cancel = CancelButton(form);
    if (cancel == nullptr)
        desktop::TheForms().Unload(FromQt(form.objectName()));
    else if (cancel->isEnabled())
        cancel->click();
}

// The caption with room for what stands beside it in the title bar.
int TitleWidth(const QWidget& window)
{
    constexpr int kBeside = 6;  // title bar heights: icon, up to four buttons, margins
    const int height = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    QFont font = window.font();
    font.setBold(true);  // as many window managers write it
    return QFontMetrics(font).horizontalAdvance(window.windowTitle().trimmed()) + kBeside * height;
}

// What the contents and the caption of a window need, labels broken into lines at its width included.
QSize NeededSize(const QWidget& window)
{
    QSize size = window.sizeHint();
    size.setWidth(std::max(size.width(), TitleWidth(window)));
    const QLayout* layout = window.layout();
    if (layout != nullptr && layout->hasHeightForWidth())
        size.setHeight(layout->totalHeightForWidth(size.width()));
    return size;
}

void CentreOver(QWidget& window, const QWidget* main)
{
    const QRect screen = window.screen()->availableGeometry();
    QRect place(QPoint(), NeededSize(window).boundedTo(screen.size()));
    place.moveCenter(main != nullptr && main->isVisible() ? main->frameGeometry().center() : screen.center());
    place.moveTo(qBound(screen.left(), place.left(), screen.right() - place.width() + 1),
                 qBound(screen.top(), place.top(), screen.bottom() - place.height() + 1));
    window.setGeometry(place);
}

// Not larger than the free part of the screen, and not smaller than everything can still be reached in it.
void FitMain(QWidget& main)
{
    constexpr QSize kLeast(520, 400);  // the choice of a module
    constexpr QSize kFrame(16, 48);    // of the window manager
    const QSize room = main.screen()->availableSize() - kFrame;
    main.setMinimumSize(kLeast.boundedTo(room));
    main.resize(main.size().boundedTo(room));
}

void SetTextOfControl(QWidget& control, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setText(text);
    } else if (auto* box = qobject_cast<QLineEdit*>(&control)) {
        box->setText(text);
    } else if (auto* page = qobject_cast<QPlainTextEdit*>(&control)) {
        page->setPlainText(text);
    } else if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
        frame->setTitle(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text);
    }
}

// A form as the logic sees it.
class FormOnWidget : public Form {
public:
    explicit FormOnWidget(QWidget& form) : form_(form) {}

    void SetCaption(std::string_view text) override { form_.setWindowTitle(ToQt(text)); }
    void SetText(std::string_view control, std::string_view text) override
    {
        SetTextOfControl(Control(control), ToQt(text));
    }
    void SetVisible(std::string_view control, bool visible) override { ShowRow(&Control(control), visible); }
    void SetFocus(std::string_view control) override { Control(control).setFocus(Qt::OtherFocusReason); }
    Grid& GridOf(std::string_view control) override
    {
        auto* grid = qobject_cast<EntryGrid*>(&Control(control));
        if (grid == nullptr) Raise(ErrorNumber::SubscriptOutOfRange);
        return grid->Cells();
    }
    bool FinishEdit() override
    {
        for (EntryGrid* grid : form_.findChildren<EntryGrid*>()) {
            if (grid->FinishEdit()) continue;
            grid->Cells().SetFocus();
            return false;
        }
        return true;
    }
    void BeginStep() override
    {
        if (auto* history = form_.findChild<GridHistory*>()) history->Begin();
    }
    void EndStep() override
    {
        if (auto* history = form_.findChild<GridHistory*>()) history->End();
    }

private:
    [[nodiscard]] QWidget& Control(std::string_view name) const
    {
        auto* control = form_.findChild<QWidget*>(ToQt(name));
        if (control == nullptr) Raise(ErrorNumber::SubscriptOutOfRange);
        return *control;
    }

    QWidget& form_;
};

bool FillsArea(Place place)
{
    return place == Place::Filling || place == Place::Report;
}

Qt::WindowFlags FrameFlags(Place place)
{
    if (place == Place::Filling) return Qt::SubWindow | Qt::FramelessWindowHint;
    Qt::WindowFlags flags = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (place == Place::Report) flags |= Qt::WindowCloseButtonHint;
    return flags;
}

}  // namespace

ChildForm::ChildForm(QWidget* parent) : QWidget(parent)
{
}

void ChildForm::ClosedByHand()
{
    CancelOrUnload(*this);
}

void ChildForm::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Trap([this] { ClosedByHand(); });
}

ModalForm::ModalForm(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint)
{
}

// Where the focus is can be seen from the beginning, not only once Tab has been pressed.
void ModalForm::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    setAttribute(Qt::WA_KeyboardFocusChange);
}

void ModalForm::ClosedByHand()
{
    CancelOrUnload(*this);
}

void ModalForm::reject()
{
    Trap([this] { ClosedByHand(); });
}

// A dialog grows with fields that come up while it is shown.
bool ModalForm::event(QEvent* event)
{
    const bool done = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest && isVisible())
        resize(size().expandedTo(NeededSize(*this)).boundedTo(screen()->availableSize()));
    return done;
}

struct QtForms::Entry {
    std::string Name;
    Place Stands = Place::Modal;
    Maker Make;

    QPointer<QWidget> Widget;       // null while the form is not loaded
    QPointer<QMdiSubWindow> Frame;  // of a form inside the main window
    std::unique_ptr<FormOnWidget> Adapter;

    [[nodiscard]] QWidget* Top() const { return Frame != nullptr ? Frame.data() : Widget.data(); }
};

// The inside of the main window: lays out the forms there and hands on the keys that come to the main window
// itself.
class QtForms::Area : public QObject {
public:
    explicit Area(QWidget& main) : main_(main), area_(main.findChild<QMdiArea*>())
    {
        main.installEventFilter(this);
        if (area_ == nullptr) return;
        area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        area_->viewport()->installEventFilter(this);
        SetGround();
    }

    QMdiSubWindow* Take(QWidget* form, Place place)
    {
        auto* frame = new QMdiSubWindow;
        frame->setSystemMenu(nullptr);
        frame->setFocusPolicy(Qt::NoFocus);
        frame->setWidget(form);
        frame->setProperty(kFills, FillsArea(place));
        area_->addSubWindow(frame, FrameFlags(place));
        frame->hide();
        return frame;
    }

    void Show(QMdiSubWindow& frame)
    {
        if (!frame.isVisible()) Arrange(frame);
        frame.widget()->show();
        frame.show();
        frame.raise();
        area_->setActiveSubWindow(&frame);
    }

    void Hide(QMdiSubWindow& frame)
    {
        frame.hide();
        if (QMdiSubWindow* front = Front()) area_->setActiveSubWindow(front);
    }

    void Remove(QMdiSubWindow& frame)
    {
        frame.hide();
        area_->removeSubWindow(&frame);
        if (QMdiSubWindow* front = Front()) area_->setActiveSubWindow(front);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == &main_ && event->type() == QEvent::PaletteChange && area_ != nullptr) SetGround();
        if (watched == &main_)
            return event->type() == QEvent::KeyPress && HandOn(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::Resize) Fill();
        return false;
    }

private:
    static constexpr const char* kFills = "fillsArea";

    [[nodiscard]] QMdiSubWindow* Front() const
    {
        const auto frames = area_->subWindowList(QMdiArea::StackingOrder);
        for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame)
            if ((*frame)->isVisible()) return *frame;
        return nullptr;
    }

    void Arrange(QMdiSubWindow& frame) const
    {
        const QRect inside = area_->viewport()->rect();
        if (frame.property(kFills).toBool()) {
            frame.setGeometry(inside);
            return;
        }
        frame.resize(frame.sizeHint().boundedTo(inside.size()).expandedTo(frame.minimumSizeHint()));
        Centre(frame);
    }

    void Centre(QMdiSubWindow& frame) const
    {
        const QRect inside = area_->viewport()->rect();
        frame.move(qMax(0, (inside.width() - frame.width()) / 2),
                   qMax(0, (inside.height() - frame.height()) / 2));
    }

    // A quiet one, a little off the colour of the windows on it.
    void SetGround() const
    {
        constexpr float kShare = 0.06F;
        const QPalette colors = main_.palette();
        area_->setBackground(
            Mixed(colors.color(QPalette::WindowText), colors.color(QPalette::Window), kShare));
    }

    void Fill() const
    {
        for (auto* frame : area_->subWindowList())
            if (frame->property(kFills).toBool())
                frame->setGeometry(area_->viewport()->rect());
            else
                Arrange(*frame);
    }

    // A key that nothing in the main window has the focus for belongs to the form in front. Tab only goes
    // there, but in a grid, which shows its current cell without the focus as well.
    bool HandOn(QKeyEvent& key)
    {
        if (handsOn_ || !main_.hasFocus() || area_ == nullptr || (key.modifiers() & Qt::AltModifier) != 0)
            return false;
        const QMdiSubWindow* front = Front();
        QWidget* target = front == nullptr ? nullptr : front->widget()->focusProxy();
        if (target == nullptr || !target->isVisible() || StaysWithMain(key.key())) return false;
        if (target->focusPolicy() != Qt::NoFocus) target->setFocus(Qt::OtherFocusReason);
        if (IsTab(key.key()) && qobject_cast<EntryGrid*>(target) == nullptr) return true;
        const QScopedValueRollback<bool> once(handsOn_, true);  // a key without effect comes back
        QCoreApplication::sendEvent(target, &key);
        return key.isAccepted();
    }

    static bool IsTab(int key) { return key == Qt::Key_Tab || key == Qt::Key_Backtab; }

    static bool StaysWithMain(int key)
    {
        return key == Qt::Key_Escape || key == Qt::Key_Alt || key == Qt::Key_Shift ||
               key == Qt::Key_Control || key == Qt::Key_Meta || key == Qt::Key_AltGr;
    }

    QWidget& main_;
    QMdiArea* area_;
    bool handsOn_ = false;
};

QtForms::QtForms() = default;

QtForms::~QtForms()
{
    area_.reset();
    const QPointer<QWidget> main = MainWindow();
    for (auto& [name, entry] : entries_)
        if (entry->Widget != nullptr && entry->Widget != main) delete entry->Top();
    delete main.data();
}

void QtForms::Add(std::string_view name, Place place, Maker make)
{
    auto entry = std::make_unique<Entry>();
    entry->Name = name;
    entry->Stands = place;
    entry->Make = std::move(make);
    entries_.insert_or_assign(std::string(name), std::move(entry));
}

QtForms::Entry& QtForms::EntryOf(std::string_view form) const
{
    const auto found = entries_.find(form);
    if (found == entries_.end()) Raise(ErrorNumber::SubscriptOutOfRange);
    return *found->second;
}

QtForms::Entry& QtForms::LoadedEntry(std::string_view form)
{
    Load(form);
    return EntryOf(form);
}

void QtForms::Load(std::string_view form)
{
    Entry& entry = EntryOf(form);
    if (entry.Widget != nullptr) return;
    const bool inside = entry.Stands != Place::Modal && entry.Stands != Place::Main;
    QWidget* widget = entry.Make(inside ? nullptr : MainWindow());
    widget->setObjectName(ToQt(entry.Name));
    entry.Widget = widget;
    entry.Adapter = std::make_unique<FormOnWidget>(*widget);
    if (entry.Stands == Place::Main) area_ = std::make_unique<Area>(*widget);
    if (inside) entry.Frame = area_->Take(widget, entry.Stands);
}

void QtForms::Unload(std::string_view form)
{
    Entry& entry = EntryOf(form);
    if (entry.Widget == nullptr) return;
    if (auto* events = dynamic_cast<FormEvents*>(entry.Widget.data())) events->Unloading();
    QWidget* top = entry.Top();
    if (entry.Frame != nullptr) area_->Remove(*entry.Frame);
    if (entry.Stands == Place::Main) area_.reset();
    entry.Frame = nullptr;
    entry.Widget = nullptr;
    entry.Adapter.reset();
    top->hide();
    // The form may be the one whose button is being clicked. A dialog that is being shown goes when that
    // ends.
    if (!running_.contains(top)) top->deleteLater();
}

bool QtForms::IsLoaded(std::string_view form) const
{
    return Find(form) != nullptr;
}

void QtForms::Show(std::string_view form)
{
    Entry& entry = LoadedEntry(form);
    if (entry.Frame != nullptr) {
        area_->Show(*entry.Frame);
        return;
    }
    QWidget& widget = *entry.Widget;
    if (entry.Stands == Place::Main && !widget.isVisible()) FitMain(widget);
    if (entry.Stands == Place::Modal && !widget.isVisible()) CentreOver(widget, MainWindow());
    widget.show();
    widget.raise();
    widget.activateWindow();
}

void QtForms::Hide(std::string_view form)
{
    Entry& entry = LoadedEntry(form);
    if (entry.Frame != nullptr)
        area_->Hide(*entry.Frame);
    else
        entry.Widget->hide();
}

void QtForms::ShowModal(std::string_view form)
{
    Entry& entry = LoadedEntry(form);
    const QPointer<QDialog> dialog = qobject_cast<QDialog*>(entry.Widget.data());
    if (dialog == nullptr || running_.contains(dialog)) {
        Show(form);
        return;
    }
    CentreOver(*dialog, MainWindow());
    running_.insert(dialog);
    dialog->exec();
    running_.erase(dialog);
    if (entry.Widget != dialog) delete dialog.data();
    QWidget* next = QApplication::activeModalWidget();
    if (next == nullptr) next = MainWindow();
    if (next != nullptr) next->activateWindow();
}

Form& QtForms::Loaded(std::string_view form)
{
    return *LoadedEntry(form).Adapter;
}

void QtForms::FocusMenu()
{
    QWidget* main = MainWindow();
    if (main == nullptr) return;
    if (QApplication::activeModalWidget() == nullptr) main->activateWindow();
    main->setFocus(Qt::OtherFocusReason);
}

void QtForms::FocusForm(std::string_view form)
{
    FocusMenu();
    const QWidget* widget = Find(form);
    QWidget* control = widget == nullptr ? nullptr : widget->focusProxy();
    if (control != nullptr && control->isVisible()) control->setFocus(Qt::OtherFocusReason);
}

QWidget* QtForms::Find(std::string_view form) const
{
    return EntryOf(form).Widget;
}

std::vector<std::string> QtForms::Names() const
{
    std::vector<std::string> names;
    names.reserve(entries_.size());
    for (const auto& [name, entry] : entries_)
        names.push_back(name);
    return names;
}

QWidget* QtForms::MainWindow() const
{
    for (const auto& [name, entry] : entries_)
        if (entry->Stands == Place::Main) return entry->Widget;
    return nullptr;
}

void LeadKeysTo(QWidget* control)
{
    for (QWidget* parent = control->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        auto* form = qobject_cast<ChildForm*>(parent);
        if (form == nullptr || form->focusProxy() == control) continue;
        form->setFocusProxy(control);
        for (auto* grid : form->findChildren<EntryGrid*>())
            grid->viewport()->update();
    }
}

}  // namespace qt
