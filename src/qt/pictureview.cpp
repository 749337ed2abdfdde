#include "qt/pictureview.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "picture/words.h"
#include "qt/pictureaccess.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr double kMargin = 8;
constexpr double kGap = 6;
constexpr double kEndless = 1e6;

double HeightOf(const QString& text, const QFont& font, double width)
{
    return QFontMetricsF(font).boundingRect(QRectF(0, 0, width, kEndless), Qt::TextWordWrap, text).height();
}

}  // namespace

// ---- the page ----

PicturePage::PicturePage(const picture::Picture& picture) : picture_(picture), drawing_(DrawingOf(picture))
{
}

QStringList PicturePage::Notes() const
{
    QStringList notes;
    for (const std::string& note : picture_.Notes)
        if (!note.empty()) notes.append(ToQt(note));
    if (leftOut_ > 0)
        notes.append(ToQt(
            picture::Counted(leftOut_, "label") + std::string(picture::OneOrMany(leftOut_, " has", " have")) +
            " no place in a picture of this size; pointing or the keys tell what is left out."));
    if (tooThin_ > 0)
        notes.append(ToQt(picture::Counted(tooThin_, "line") +
                          std::string(picture::OneOrMany(tooThin_, " is dashed: it", " are dashed: they")) +
                          " would be thinner than a pixel in proportion."));
    return notes;
}

double PicturePage::TextWidth(double width) const
{
    return textWidth_ > 0 ? std::min(width, textWidth_) : width;
}

double PicturePage::NotesHeight(const Look& look, double width) const
{
    double height = 0;
    for (const QString& note : Notes())
        height += HeightOf(note, look.Plain, TextWidth(width)) + 2;
    return height == 0 ? 0 : height + kGap;
}

double PicturePage::TitleHeight(const Look& look, double width) const
{
    return picture_.Title.empty() ? 0 : HeightOf(ToQt(picture_.Title), look.Title, TextWidth(width)) + kGap;
}

QSizeF PicturePage::Least(const Look& look, double width)
{
    const QSizeF body = drawing_->Least(look);
    tooThin_ = std::max(tooThin_, drawing_->MostTooThin());  // the note has its room at every size
    const double inside = std::max(width - 2 * kMargin, body.width());
    return {body.width() + 2 * kMargin,
            body.height() + TitleHeight(look, inside) + NotesHeight(look, inside) + 2 * kMargin};
}

std::vector<Item> PicturePage::Paint(QPainter& painter, const QRectF& page, const Look& look)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QRectF room = page.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    painter.setFont(look.Title);
    painter.setPen(look.Text);
    painter.drawText(QRectF(room.topLeft(), QSizeF(TextWidth(room.width()), room.height())),
                     Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, ToQt(picture_.Title));
    room.setTop(room.top() + TitleHeight(look, room.width()));
    QRectF body(room.topLeft(), QPointF(room.right(), room.bottom() - NotesHeight(look, room.width())));
    body.setHeight(drawing_->HeightIn(body.size(), look));
    body_ = body.topLeft();
    painter.setClipRect(page, Qt::IntersectClip);
    std::vector<Item> items = drawing_->Paint(painter, body, look);
    leftOut_ = drawing_->LeftOut();
    tooThin_ = drawing_->TooThin();
    painter.setFont(look.Plain);
    painter.setPen(look.Quiet);
    double top = body.bottom() + kGap;
    const QStringList notes = Notes();
    for (const QString& note : notes) {
        const double width = TextWidth(room.width());
        const double height = HeightOf(note, look.Plain, width);
        painter.drawText(QRectF(room.left(), top, width, height), Qt::TextWordWrap, note);
        top += height + 2;
    }
    return items;
}

QPointF PicturePage::Start() const
{
    const QPointF start = drawing_->Start();
    return start.isNull() ? start : start + body_;
}

// ---- the canvas ----

PictureCanvas::PictureCanvas(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    TellScreenReadersOfPictures();
}

Look PictureCanvas::ScreenLook() const
{
    return Look::OnScreen(palette(), logicalDpiY());
}

void PictureCanvas::SetPicture(const picture::Picture* picture)
{
    page_ = picture == nullptr ? nullptr : std::make_unique<PicturePage>(*picture);
    items_.clear();
    marked_.clear();
    focus_.reset();
    update();
}

void PictureCanvas::SetMarked(const std::vector<std::string>& ids)
{
    marked_.clear();
    for (const std::string& id : ids)
        marked_.insert(ToQt(id));
    update();
}

void PictureCanvas::FitTo(const QSize& viewport)
{
    QSize size = viewport;
    if (page_ != nullptr) page_->SetTextWidth(std::max(viewport.width() - 2 * kMargin, 4 * kMargin));
    if (page_ != nullptr) size = size.expandedTo(page_->Least(ScreenLook(), viewport.width()).toSize());
    resize(size);
    repaints_ = 3;
}

// As the last painting left them; a picture that has not been painted yet is painted for nobody.
const std::vector<Item>& PictureCanvas::Items()
{
    if (items_.empty() && page_ != nullptr && !size().isEmpty()) {
        QPixmap nobody(1, 1);
        QPainter painter(&nobody);
        painter.setClipRect(nobody.rect());
        items_ = page_->Paint(painter, rect(), ScreenLook());
    }
    return items_;
}

QRectF PictureCanvas::MarkedArea()
{
    QRectF area;
    for (const Item& item : Items())
        if (marked_.contains(item.Id)) area |= item.Shape.boundingRect();
    return area;
}

void PictureCanvas::paintEvent(QPaintEvent* event)
{
    const Look look = ScreenLook();
    QPainter painter(this);
    painter.setClipRect(event->rect());
    painter.fillRect(event->rect(), look.Ground);
    if (page_ == nullptr) return;
    painter.save();
    const auto added = page_->AddedNotes();
    const bool shown = hasFocus() && focus_ && *focus_ < items_.size();
    page_->SetFocus(shown ? items_[*focus_].Id : QString());
    items_ = page_->Paint(painter, rect(), look);
    painter.restore();
    if (page_->AddedNotes() != added && --repaints_ > 0) TakeNote();
    for (const Item& item : items_)
        if (!item.Id.isEmpty() && marked_.contains(item.Id)) DrawFrame(painter, item, false);
    if (hasFocus() && focus_ && *focus_ < items_.size()) DrawFrame(painter, items_[*focus_], true);
}

// A note more, which may need more room, or one less. A painting cannot change the size at once.
void PictureCanvas::TakeNote()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (page_ == nullptr) return;
            resize(size().expandedTo(page_->Least(ScreenLook(), width()).toSize()));
            update();
        },
        Qt::QueuedConnection);
}

// What a step marks has a frame of its own; what has the focus a dotted one.
void PictureCanvas::DrawFrame(QPainter& painter, const Item& item, bool focus) const
{
    const Look look = ScreenLook();
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(look.Text, focus ? 1.5 : 2);
    if (focus) pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    QPainterPathStroker wide;
    wide.setWidth(focus ? 7 : 5);
    QPainterPath frame = wide.createStroke(item.Shape).united(item.Shape).simplified();
    if (!item.Aside.isEmpty()) frame = frame.subtracted(wide.createStroke(item.Aside).united(item.Aside));
    painter.drawPath(frame);
}

// The smallest item at the place: a corner before the region that it belongs to.
std::optional<std::size_t> PictureCanvas::ItemAt(const QPointF& point) const
{
    std::optional<std::size_t> found;
    double least = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const QRectF around = items_[i].Shape.boundingRect();
        if (!around.contains(point) || !items_[i].Shape.contains(point)) continue;
        const double area = around.width() * around.height();
        if (found && area >= least) continue;
        found = i;
        least = area;
    }
    return found;
}

bool PictureCanvas::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const auto item = ItemAt(help->pos()))
        QToolTip::showText(help->globalPos(), items_[*item].Tip, this,
                           items_[*item].Shape.boundingRect().toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}

void PictureCanvas::mousePressEvent(QMouseEvent* event)
{
    if (const auto item = ItemAt(event->position())) SetFocusItem(*item);
    drag_ = event->globalPosition().toPoint();
    QWidget::mousePressEvent(event);
}

// A picture larger than its window is moved with the mouse as well.
void PictureCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) {
        const QPoint at = event->globalPosition().toPoint();
        emit Dragged(at - drag_);
        drag_ = at;
    }
    QWidget::mouseMoveEvent(event);
}

void PictureCanvas::contextMenuEvent(QContextMenuEvent* event)
{
    const bool keyboard = event->reason() == QContextMenuEvent::Keyboard;
    QPoint at = event->globalPos();
    if (keyboard && focus_ && *focus_ < items_.size())
        at = mapToGlobal(items_[*focus_].Shape.boundingRect().center().toPoint());
    if (page_ != nullptr) emit MenuWanted(at);
}

void PictureCanvas::SetFocusItem(std::size_t item)
{
    focus_ = item;
    const QRect area = items_[item].Shape.boundingRect().toAlignedRect();
    emit FocusMoved(area);
    QAccessibleEvent told(this, QAccessible::Focus);
    told.setChild(static_cast<int>(item));
    QAccessible::updateAccessibility(&told);
    update();
}

void PictureCanvas::MoveFocus(int by)
{
    const auto count = static_cast<int>(Items().size());
    if (count == 0) return;
    if (const auto start = StartItem(); start && !focus_) {
        SetFocusItem(*start);
        TellFocus();
        return;
    }
    const int now = focus_ ? static_cast<int>(*focus_) : (by > 0 ? -1 : 0);
    SetFocusItem(static_cast<std::size_t>((now + by + count) % count));
    TellFocus();
}

void PictureCanvas::TellFocus()
{
    const QRectF area = items_[*focus_].Shape.boundingRect();
    QToolTip::showText(mapToGlobal(area.bottomRight().toPoint()), items_[*focus_].Tip, this);
}

std::optional<std::size_t> PictureCanvas::StartItem() const
{
    const auto* chart = page_ == nullptr ? nullptr : std::get_if<picture::Chart>(&page_->Shown().Body);
    if (chart == nullptr || chart->Start.empty()) return std::nullopt;
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (items_[i].Id == ToQt(chart->Start)) return i;
    return std::nullopt;
}

void PictureCanvas::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Right:
        case Qt::Key_Down:
        case Qt::Key_Tab:
            MoveFocus(1);
            return;
        case Qt::Key_Left:
        case Qt::Key_Up:
        case Qt::Key_Backtab:
            MoveFocus(-1);
            return;
        case Qt::Key_Home:
            focus_ = Items().size() - 1;
            MoveFocus(1);
            return;
        case Qt::Key_End:
            focus_ = 0;
            MoveFocus(-1);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void PictureCanvas::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void PictureCanvas::focusOutEvent(QFocusEvent* event)
{
    QToolTip::hideText();
    QWidget::focusOutEvent(event);
    update();
}

// ---- the view ----

PictureView::PictureView(QWidget* parent) : QScrollArea(parent), canvas_(new PictureCanvas(this))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setBackgroundRole(QPalette::Base);
    setWidget(canvas_);
    connect(canvas_, &PictureCanvas::FocusMoved, this, [this](const QRect& area) {
        ensureVisible(area.center().x(), area.center().y(), area.width() / 2 + 10, area.height() / 2 + 10);
    });
    connect(canvas_, &PictureCanvas::Dragged, this, [this](const QPoint& by) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
    });
}

void PictureView::SetPicture(const picture::Picture* picture)
{
    canvas_->SetPicture(picture);
    Fit();
    if (canvas_->Page() == nullptr) return;
    const auto* diagram = std::get_if<picture::Diagram>(&picture->Body);
    if (diagram == nullptr || diagram->Start.empty() || canvas_->width() <= viewport()->width()) return;
    canvas_->Items();  // places everything
    const QPointF start = canvas_->Page()->Start();
    if (!start.isNull())
        ensureVisible(qRound(start.x()), qRound(start.y()), viewport()->width() / 3,
                      viewport()->height() / 3);
}

void PictureView::SetMarked(const std::vector<std::string>& ids)
{
    canvas_->SetMarked(ids);
    const QRect area = canvas_->MarkedArea().toAlignedRect();
    if (!area.isEmpty())
        ensureVisible(area.center().x(), area.center().y(), area.width() / 2, area.height() / 2);
}

void PictureView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    Fit();
}

// A scroll bar takes from the room of the other direction.
void PictureView::Fit()
{
    const QSize room = maximumViewportSize();
    canvas_->FitTo(room);
    const bool tooHigh = canvas_->height() > room.height();
    const bool tooWide = canvas_->width() > room.width();
    if (!tooHigh && !tooWide) return;
    canvas_->FitTo({room.width() - (tooHigh ? verticalScrollBar()->sizeHint().width() : 0),
                    room.height() - (tooWide ? horizontalScrollBar()->sizeHint().height() : 0)});
}

// Tab goes from item to item inside of the canvas.
bool PictureView::focusNextPrevChild(bool /*next*/)
{
    return false;
}

}  // namespace qt
