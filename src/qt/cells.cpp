#include "qt/cells.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "qt/text.h"

namespace qt {
namespace {

using picture::Chart;
using picture::Mark;

constexpr double kPad = 6;        // on both sides of a text
constexpr double kMostCell = 96;  // a cell need not be wider than this

double Widest(const std::vector<std::string>& texts, const QFont& font)
{
    double widest = 0;
    for (const std::string& text : texts)
        widest = std::max(widest, SizeOf(ToQt(text), font).width());
    return widest;
}

class Table {
public:
    Table(const Chart& chart, CellSizes sizes, QPainter& painter, const QRectF& room, const Look& look)
        : chart_(chart), painter_(painter), look_(look), measures_(std::move(sizes))
    {
        if (painter.hasClipping()) shown_ = painter.clipBoundingRect();
        const auto columns = static_cast<double>(std::max<std::size_t>(1, chart.X.Names.size()));
        measures_.Cell =
            std::max(measures_.Cell, std::min(kMostCell, (room.width() - measures_.Head) / columns));
        corner_ = room.topLeft() + QPointF(measures_.Head, measures_.Titles + measures_.Row);
        room_ = room;
    }

    std::vector<Item> Paint()
    {
        WriteHeads();
        for (const bool strong : {false, true})
            for (const Mark& mark : chart_.Marks)
                if (look_.Of(mark.As).Bold == strong) Draw(mark);
        return std::move(items_);
    }

private:
    [[nodiscard]] QRectF CellAt(double column, double row) const
    {
        return {corner_.x() + (column - 1) * measures_.Cell, corner_.y() + (row - 1) * measures_.Row,
                measures_.Cell, measures_.Row};
    }

    void WriteHeads()
    {
        painter_.setFont(look_.Plain);
        painter_.setPen(look_.Quiet);
        if (measures_.Titles > 0) {
            const QString both = ToQt(chart_.Y.Title) + QString::fromUtf8(" \u2193   ") +
                                 ToQt(chart_.X.Title) + QString::fromUtf8(" \u2192");
            painter_.drawText(QRectF(room_.topLeft(), QSizeF(room_.width(), measures_.Titles)),
                              Qt::AlignVCenter | Qt::AlignLeft, both);
        }
        for (std::size_t i = 0; i < chart_.X.Names.size(); ++i)
            painter_.drawText(CellAt(static_cast<double>(i) + 1, 0), Qt::AlignCenter,
                              ToQt(chart_.X.Names[i]));
        for (std::size_t i = 0; i < chart_.Y.Names.size(); ++i) {
            const QRectF cell = CellAt(1, static_cast<double>(i) + 1);
            painter_.drawText(QRectF(room_.left(), cell.top(), measures_.Head - kPad, measures_.Row),
                              Qt::AlignVCenter | Qt::AlignRight, ToQt(chart_.Y.Names[i]));
        }
        painter_.setPen(QPen(look_.Grid, 1));
        const auto columns = static_cast<int>(chart_.X.Names.size());
        const auto rows = static_cast<int>(chart_.Y.Names.size());
        for (int row = 1; row <= rows + 1; ++row)
            painter_.drawLine(CellAt(1, row).topLeft(), CellAt(columns + 1, row).topLeft());
        for (int column = 1; column <= columns + 1; ++column)
            painter_.drawLine(CellAt(column, 1).topLeft(), CellAt(column, rows + 1).topLeft());
    }

    void Draw(const Mark& mark)
    {
        const QRectF cell = CellAt(mark.At.X, mark.At.Y);
        const std::string& tip = mark.Tip.empty() ? mark.Text : mark.Tip;
        QPainterPath path;
        path.addRect(cell);
        if (!tip.empty() || !mark.Id.empty()) items_.push_back({path, ToQt(tip), ToQt(mark.Id)});
        if (shown_ && !shown_->intersects(cell)) return;
        const RoleLook look = look_.Of(mark.As);
        QColor ground = look_.Ground;
        if (mark.Shade > 0) ground = Mixed(look.Fill, std::clamp(mark.Shade, 0.0, 1.0));
        if (look.Bold) ground = look.Fill;
        painter_.fillRect(cell.adjusted(1, 1, 0, 0), ground);
        if (look.Bold || look.Crossed) {
            painter_.setPen(QPen(look.Stroke, 2));
            painter_.setBrush(Qt::NoBrush);
            painter_.drawRect(cell.adjusted(1, 1, -1, -1));
        }
        painter_.setFont(look_.FontOf(mark.As));
        painter_.setPen(look.Text);
        painter_.drawText(cell, Qt::AlignCenter, ToQt(mark.Text));
    }

    [[nodiscard]] QColor Mixed(const QColor& color, double share) const
    {
        const auto mix = [share](int ground, int full) { return qRound(ground + share * (full - ground)); };
        return {mix(look_.Ground.red(), color.red()), mix(look_.Ground.green(), color.green()),
                mix(look_.Ground.blue(), color.blue())};
    }

    const Chart& chart_;
    QPainter& painter_;
    const Look& look_;
    CellSizes measures_;
    QPointF corner_;
    QRectF room_;
    std::optional<QRectF> shown_;  // nothing: all of it
    std::vector<Item> items_;
};

}  // namespace

CellSizes SizesOfCells(const Chart& chart, const Look& look)
{
    CellSizes sizes{.Of = look.Bold};
    sizes.Head = Widest(chart.Y.Names, look.Plain) + 2 * kPad;
    sizes.Cell = Widest(chart.X.Names, look.Plain);
    const QFontMetricsF metrics(look.Bold);
    for (const Mark& mark : chart.Marks)
        sizes.Cell = std::max(sizes.Cell, std::ceil(metrics.horizontalAdvance(ToQt(mark.Text))));
    sizes.Cell += 2 * kPad;
    sizes.Row = SizeOf("0", look.Plain).height() + kPad;
    if (!chart.X.Title.empty() || !chart.Y.Title.empty()) sizes.Titles = sizes.Row;
    return sizes;
}

QSizeF LeastOfCells(const Chart& chart, const CellSizes& sizes)
{
    return {sizes.Head + sizes.Cell * static_cast<double>(chart.X.Names.size()) + 2,
            sizes.Titles + sizes.Row * static_cast<double>(chart.Y.Names.size() + 1) + 2};
}

std::vector<Item> PaintCells(const Chart& chart, const CellSizes& sizes, QPainter& painter,
                             const QRectF& room, const Look& look)
{
    return Table(chart, sizes, painter, room, look).Paint();
}

}  // namespace qt
