#include "qt/card.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QPainter>

#include "qt/colors.h"

namespace qt {
namespace {

constexpr int kMargin = 24;
constexpr int kIconSize = 64;
constexpr int kLeastWidth = 300;
constexpr int kMostWidth = 600;

// Its ground and its outline follow the palette.
class Frame : public QFrame {
public:
    Frame()
    {
        setMinimumWidth(kLeastWidth);
        setMaximumWidth(kMostWidth);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        constexpr double kCorner = 10;
        constexpr float kOutline = 0.2F;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor base = palette().color(QPalette::Base);
        painter.setBrush(base);
        painter.setPen(Mixed(palette().color(QPalette::Text), base, kOutline));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    }
};

// What surrounds the card; it is there as long as something on the card is.
class Surroundings : public QWidget {
public:
    explicit Surroundings(const QIcon& icon)
    {
        auto* across = new QHBoxLayout(this);
        across->setContentsMargins(0, 0, 0, 0);
        card_ = new Frame;
        card_->installEventFilter(this);
        across->addStretch(1);
        across->addWidget(card_, 100, Qt::AlignVCenter);
        across->addStretch(1);
        auto* parts = new QHBoxLayout(card_);
        parts->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
        parts->setSpacing(kMargin);
        auto* picture = new QLabel;
        picture->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
        parts->addWidget(picture, 0, Qt::AlignTop);
        texts_ = new QVBoxLayout;
        texts_->setSpacing(kMargin / 2);
        parts->addLayout(texts_, 1);
    }

    [[nodiscard]] QBoxLayout* Texts() const { return texts_; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == card_ && event->type() == QEvent::ChildAdded) {
            auto* child = qobject_cast<QWidget*>(static_cast<const QChildEvent*>(event)->child());
            if (child != nullptr) child->installEventFilter(this);
        }
        if (watched != card_ && event->type() == QEvent::HideToParent && NothingIsShown()) hide();
        return QWidget::eventFilter(watched, event);
    }

private:
    [[nodiscard]] bool NothingIsShown() const
    {
        for (int i = 0; i < texts_->count(); ++i)
            if (const QWidget* text = texts_->itemAt(i)->widget(); text != nullptr && !text->isHidden())
                return false;
        return true;
    }

    QFrame* card_;
    QBoxLayout* texts_;
};

}  // namespace

QBoxLayout* AddCard(QBoxLayout* page, const QIcon& icon)
{
    auto* surroundings = new Surroundings(icon);
    page->addWidget(surroundings, 1);
    return surroundings->Texts();
}

}  // namespace qt
