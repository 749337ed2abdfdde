// How large an entry grid and its columns are, and what of it is in sight.
#include <QHeaderView>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "qt/entrygrid.h"
#include "qt/gridmodel.h"

namespace qt {
namespace {

constexpr int kCellPadding = 14;  // beside a text, both sides together

}  // namespace

// Blanks that set a heading off in a listing need no room.
int EntryGrid::WidthOf(const QString& text) const
{
    return text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(text.trimmed()) + kCellPadding;
}

int EntryGrid::AskedWidth(int column) const
{
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    return characters_[static_cast<std::size_t>(column)] * digit + kCellPadding;
}

void EntryGrid::Measure()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    for (int column = 0; column < model_->Columns(); ++column)
        FitColumn(column);
    updateGeometry();
}

int EntryGrid::TextWidth(int column) const
{
    int width = 0;
    for (int row = 0; row < model_->Rows(); ++row)
        width = qMax(width, WidthOf(model_->Text(row, column)));
    return width;
}

// As wide as was asked for, or as the texts of the column need.
int EntryGrid::NeededWidth(int column) const
{
    return qMax(AskedWidth(column), TextWidth(column));
}

void EntryGrid::FillWidthWith(int column)
{
    filling_ = column;
    setSizePolicy(QSizePolicy::Expanding, sizePolicy().verticalPolicy());
    FillWidth();
}

void EntryGrid::FillWidth()
{
    if (filling_ < 0 || filling_ >= model_->Columns()) return;
    const int others = horizontalHeader()->length() - columnWidth(filling_);
    setColumnWidth(filling_, qMax(TextWidth(filling_), viewport()->width() - others));
}

void EntryGrid::FitColumn(int column)
{
    const bool shared = partner_ != nullptr && partner_->model_->Has(0, column);
    SetWidth(column, shared ? qMax(NeededWidth(column), partner_->NeededWidth(column)) : NeededWidth(column));
}

void EntryGrid::AlignWith(EntryGrid& other)
{
    partner_ = &other;
    other.partner_ = this;
    FollowScrollingOf(other);
    other.FollowScrollingOf(*this);
}

// The grid with more columns scrolls further; the other one stays at its end then and does not pull it back.
void EntryGrid::FollowScrollingOf(const EntryGrid& other)
{
    connect(other.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this, &other](int value) {
        if (other.following_) return;
        const QScopedValueRollback<bool> following(following_, true);
        horizontalScrollBar()->setValue(value);
    });
}

// Typing makes a column wider where it must, never narrower.
void EntryGrid::Widen(int column, const QString& text)
{
    const bool fixed = column < model_->FixedColumns();
    const int width = WidthOf(text);
    if (width > (fixed ? verticalHeader()->minimumWidth() : columnWidth(column))) SetWidth(column, width);
}

void EntryGrid::SetWidth(int column, int width)
{
    ApplyWidth(column, width);
    if (partner_ != nullptr && partner_->model_->Has(0, column)) partner_->ApplyWidth(column, width);
}

void EntryGrid::ApplyWidth(int column, int width)
{
    if (column < model_->FixedColumns())
        verticalHeader()->setFixedWidth(width);
    else
        setColumnWidth(column, width);
    if (isVisible()) FillWidth();
    updateGeometry();
}

void EntryGrid::ShowRows(int most)
{
    shownRows_ = most;
    updateGeometry();
}

// A header counts before the grid is on screen, too.
int EntryGrid::HeightOfRows(int rows) const
{
    const int heading = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    return heading + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

// As large as its cells; where there is less room, a scroll bar takes none from them.
QSize EntryGrid::sizeHint() const
{
    const int captions = verticalHeader()->isHidden() ? 0 : verticalHeader()->minimumWidth();
    const int rows = model_->Rows() - model_->FixedRows();
    const int slack = filling_ < 0 ? 0 : NeededWidth(filling_) - columnWidth(filling_);
    const int width = captions + horizontalHeader()->length() + slack + 2 * frameWidth();
    const int height = HeightOfRows(shownRows_ > 0 ? qMin(rows, shownRows_) : rows);
    const int bottomBar = this->width() < width ? horizontalScrollBar()->sizeHint().height() : 0;
    const int sideBar = this->height() < HeightOfRows(rows) ? verticalScrollBar()->sizeHint().width() : 0;
    return {width + sideBar, height + bottomBar};
}

QSize EntryGrid::minimumSizeHint() const
{
    constexpr int kLeastRows = 2;
    return {QTableView::minimumSizeHint().width(),
            HeightOfRows(qMin(kLeastRows, model_->Rows() - model_->FixedRows()))};
}

// The cells of the headers lie outside of the viewport.
QRect EntryGrid::visualRect(const QModelIndex& index) const
{
    if (!index.isValid() || !model_->IsFixed(index.row(), index.column()))
        return QTableView::visualRect(index);
    const QPoint outside(-verticalHeader()->width(), -horizontalHeader()->height());
    return {index.column() < model_->FixedColumns() ? outside.x() : columnViewportPosition(index.column()),
            index.row() < model_->FixedRows() ? outside.y() : rowViewportPosition(index.row()), 1, 1};
}

// Another size scrolls nothing, but a current cell that was in sight stays there.
void EntryGrid::resizeEvent(QResizeEvent* event)
{
    const bool shown = QRect(QPoint(), event->oldSize()).contains(visualRect(currentIndex()));
    QTableView::resizeEvent(event);
    FillWidth();
    if (shown) scrollTo(currentIndex());
    updateGeometry();
}

void EntryGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

}  // namespace qt
