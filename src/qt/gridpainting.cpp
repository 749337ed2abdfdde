// How the cells of an entry grid and its corner are drawn.
#include <QAbstractButton>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>

#include "qt/colors.h"
#include "qt/entrygrid.h"
#include "qt/gridmodel.h"

namespace qt {
namespace {

// Between a text and the edge of its cell, less the width of a caret.
int TextMargin(const QWidget& grid)
{
    return grid.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &grid);
}

}  // namespace

// Draws a cell with the lines around it. The grid that has the focus fills its current cell; without the
// focus the one that the keys go to has a strong frame there, another one a faint one. A cell in edit has a
// caret.
class EntryGrid::CellPainter : public QStyledItemDelegate {
public:
    explicit CellPainter(EntryGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool current = index == grid_.currentIndex();
        const bool filled = current && grid_.hasFocus();
        QStyleOptionViewItem cell = option;
        const bool marked = !filled && option.state.testFlag(QStyle::State_Selected);
        cell.state.setFlag(QStyle::State_Selected, filled);
        cell.state.setFlag(QStyle::State_HasFocus, false);
        if (marked) painter->fillRect(option.rect, Mixed(cell.palette, QPalette::Highlight, kMarked));
        cell.palette.setColor(QPalette::HighlightedText, TextOnFilled(cell.palette));
        QStyledItemDelegate::paint(painter, cell, index);
        DrawLines(*painter, option);
        if (current && !filled) DrawFrame(*painter, option, grid_.IsInUse());
        if (filled && grid_.editing_) DrawCaret(*painter, cell, grid_.typed_.mid(grid_.caret_));
    }

private:
    static QColor TextOnFilled(const QPalette& palette)
    {
        return ReadableOn(palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText));
    }

    static constexpr float kLine = 0.25F;
    static constexpr float kMarked = 0.25F;

    // Between a colour and the ground, so that it shows in a dark palette as well.
    static QColor Mixed(const QPalette& palette, QPalette::ColorRole role, float share)
    {
        const QColor colour = palette.color(role);
        const QColor base = palette.color(QPalette::Base);
        const auto mix = [share](float a, float b) { return share * a + (1 - share) * b; };
        return QColor::fromRgbF(mix(colour.redF(), base.redF()), mix(colour.greenF(), base.greenF()),
                                mix(colour.blueF(), base.blueF()));
    }

    static void DrawLines(QPainter& painter, const QStyleOptionViewItem& cell)
    {
        painter.setPen(Mixed(cell.palette, QPalette::Text, kLine));
        painter.drawLine(cell.rect.bottomLeft(), cell.rect.bottomRight());
        painter.drawLine(cell.rect.topRight(), cell.rect.bottomRight());
    }

    static void DrawFrame(QPainter& painter, const QStyleOptionViewItem& cell, bool strong)
    {
        constexpr int kWidth = 2;
        if (!strong) {
            painter.setPen(QPen(Mixed(cell.palette, QPalette::Text, 2 * kLine), 1, Qt::DotLine));
            painter.drawRect(cell.rect.adjusted(0, 0, -1, -1));
            return;
        }
        const QColor wanted = cell.palette.color(QPalette::Highlight);
        const bool seen = Contrast(wanted, cell.palette.color(QPalette::Base)) >= kVisible;
        painter.setPen(QPen(seen ? wanted : cell.palette.color(QPalette::Text), kWidth));
        painter.drawRect(cell.rect.adjusted(1, 1, -1, -1));
    }

    // In front of `behind`, the end of the cell's text, which stands at the right edge.
    void DrawCaret(QPainter& painter, const QStyleOptionViewItem& cell, const QString& behind) const
    {
        constexpr int kInset = 3;
        const int x = cell.rect.right() - TextMargin(grid_) - cell.fontMetrics.horizontalAdvance(behind);
        painter.setPen(cell.palette.color(QPalette::HighlightedText));
        painter.drawLine(x, cell.rect.top() + kInset, x, cell.rect.bottom() - kInset);
    }

    EntryGrid& grid_;
};

void EntryGrid::InstallPainter()
{
    setItemDelegate(new CellPainter(*this));
}

// ---- the corner: the toolkit leaves it blank ----

bool EntryGrid::eventFilter(QObject* watched, QEvent* event)
{
    auto* corner = qobject_cast<QAbstractButton*>(watched);
    if (corner == nullptr || event->type() != QEvent::Paint) return QTableView::eventFilter(watched, event);
    PaintCorner(*corner);
    return true;
}

void EntryGrid::PaintCorner(QWidget& corner) const
{
    QStyleOptionHeader option;
    option.initFrom(this);
    option.rect = corner.rect();
    option.position = QStyleOptionHeader::OnlyOneSection;
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.text = model_->HeadingOf(0);
    QPainter painter(&corner);
    style()->drawControl(QStyle::CE_Header, &option, &painter, &corner);
}

}  // namespace qt
