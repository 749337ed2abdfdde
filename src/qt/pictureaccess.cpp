#include "qt/pictureaccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "qt/pictureview.h"
#include "qt/text.h"

namespace qt {
namespace {

class CanvasAccess;

// An item of a picture. It is known by its number as long as the picture stays.
class ItemAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ItemAccess(PictureCanvas& canvas, std::size_t number) : canvas_(&canvas), number_(number) {}

    [[nodiscard]] bool isValid() const override
    {
        return canvas_ != nullptr && number_ < canvas_->Items().size();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(canvas_);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? canvas_->Items()[number_].Tip : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override
    {
        if (!isValid()) return {};
        const QRect area = canvas_->Items()[number_].Shape.boundingRect().toAlignedRect();
        return {canvas_->mapToGlobal(area.topLeft()), area.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Graphic; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = isValid() && canvas_->hasFocus() && canvas_->FocusItem() == number_;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name != setFocusAction() || !isValid()) return;
        canvas_->setFocus(Qt::OtherFocusReason);
        canvas_->SetFocusItem(number_);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<PictureCanvas> canvas_;
    std::size_t number_;
};

class CanvasAccess : public QAccessibleWidget {
public:
    explicit CanvasAccess(PictureCanvas* canvas)
        : QAccessibleWidget(canvas, QAccessible::Graphic), canvas_(canvas)
    {
    }
    ~CanvasAccess() override
    {
        for (const auto& [number, id] : children_)
            QAccessible::deleteAccessibleInterface(id);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const PicturePage* page = canvas_->Page();
        if (page == nullptr) return {};
        if (kind == QAccessible::Name) return ToQt(page->Shown().Title);
        if (kind != QAccessible::Description) return {};
        QStringList lines;
        for (const std::string& line : picture::Describe(page->Shown()))
            lines.append(ToQt(line));
        return lines.join(QLatin1Char('\n'));
    }
    [[nodiscard]] int childCount() const override { return static_cast<int>(canvas_->Items().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount()) return nullptr;
        auto& id = children_[index];
        if (id == 0)
            id = QAccessible::registerAccessibleInterface(
                new ItemAccess(*canvas_, static_cast<std::size_t>(index)));
        return QAccessible::accessibleInterface(id);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (const auto& [number, id] : children_)
            if (QAccessible::accessibleInterface(id) == child) return number;
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        const auto item = canvas_->ItemAt(canvas_->mapFromGlobal(QPoint(x, y)));
        return item ? child(static_cast<int>(*item)) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return canvas_->hasFocus() && canvas_->FocusItem() ? child(static_cast<int>(*canvas_->FocusItem()))
                                                           : nullptr;
    }

private:
    PictureCanvas* canvas_;
    mutable std::map<int, QAccessible::Id> children_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object)
{
    auto* canvas = qobject_cast<PictureCanvas*>(object);
    return canvas == nullptr ? nullptr : new CanvasAccess(canvas);
}

}  // namespace

void TellScreenReadersOfPictures()
{
    static const bool told = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    Q_UNUSED(told);
}

}  // namespace qt
