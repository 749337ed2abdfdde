#include "qt/chartview.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "basic/format.h"
#include "picture/axis.h"
#include "qt/labels.h"
#include "qt/text.h"

namespace qt {
namespace {

using picture::Chart;
using picture::Direction;
using picture::Interval;
using picture::Mark;
using picture::Point;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using picture::Side;

constexpr double kGap = 6;         // between a text and what it belongs to
constexpr double kTick = 4;        // the length of a tick
constexpr double kRowHeight = 22;  // of a named row
constexpr double kBar = 12;
constexpr double kThinBar = 4;
constexpr double kMarkSize = 7;
constexpr double kDiamond = 7;      // from its middle to a corner
constexpr double kRing = 8;         // about a mark, its radius
constexpr double kLeastPlot = 120;  // the smallest height and width of a chart's inside
constexpr double kMostOfWidth = 0.4;

bool Bounds(const Series& series)  // a line with a forbidden side: its window is exact
{
    return series.Forbidden != Side::None;
}

bool IsExact(const Chart& chart)
{
    return std::any_of(chart.Curves.begin(), chart.Curves.end(), Bounds);
}

QString NumberText(double value)
{
    return ToQt(PlainText(std::round(value * 1e6) / 1e6));
}

// Names that have no place of their own stand in a legend: those of bars, of areas and of points, where there
// are several.
std::vector<const Series*> LegendOf(const Chart& chart)
{
    std::vector<const Series*> named;
    std::set<std::string> told;
    for (const Series& series : chart.Curves) {
        const bool own = series.Kind == SeriesKind::Line || series.Kind == SeriesKind::Steps;
        if (!own && !series.Name.empty() && told.insert(series.Name).second) named.push_back(&series);
    }
    if (named.size() < 2 && chart.Curves.size() < 2) named.clear();
    // What the picture is about first, then what else is there, then what is thin.
    const auto rank = [](const Series& series) {
        const bool chosen =
            series.As == Role::Chosen || series.As == Role::Critical || series.As == Role::Best;
        return chosen ? 0 : !series.Thin ? 1 : series.Hatched ? 3 : 2;
    };
    std::stable_sort(named.begin(), named.end(),
                     [&rank](const Series* a, const Series* b) { return rank(*a) < rank(*b); });
    return named;
}

double LegendWidth(const Series& entry, const QFontMetricsF& metrics)
{
    return 18 + kGap + metrics.horizontalAdvance(ToQt(entry.Name)) + 2 * kGap;
}

double LegendHeight(const Chart& chart, double room, const QFontMetricsF& metrics)
{
    const auto entries = LegendOf(chart);
    if (entries.empty()) return 0;
    double rows = 1;
    double x = 0;
    for (const Series* entry : entries) {
        const double width = LegendWidth(*entry, metrics);
        if (x > 0 && x + width > room) {
            ++rows;
            x = 0;
        }
        x += width;
    }
    return rows * (metrics.height() + 2) + kGap;
}

QPainterPath MarkPath(const QPointF& at, MarkForm form, double size)
{
    QPainterPath path;
    if (form == MarkForm::Triangle) {
        path.moveTo(at + QPointF(0, -size * 0.6));
        path.lineTo(at + QPointF(size * 0.6, size * 0.5));
        path.lineTo(at + QPointF(-size * 0.6, size * 0.5));
        path.closeSubpath();
    } else {
        path.addEllipse(at, size / 2, size / 2);
    }
    return path;
}

// In pieces of a few corners: the time that one long line with many corners takes grows with their square.
void StrokeInPieces(QPainter& painter, const QPainterPath& path, QPen pen)
{
    constexpr int kCorners = 12;
    const double unit = std::max(1.0, pen.widthF());  // dashes are counted in widths
    const bool dashed = pen.style() == Qt::CustomDashLine;
    if (!dashed) pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    double before = 0;
    for (const QPolygonF& line : path.toSubpathPolygons())
        for (qsizetype from = 0; from + 1 < line.size(); from += kCorners) {
            const QPolygonF piece(line.mid(from, kCorners + 1));
            if (dashed) pen.setDashOffset(before / unit);
            painter.setPen(pen);
            painter.drawPolyline(piece);
            for (qsizetype i = 1; i < piece.size(); ++i)
                before += QLineF(piece[i - 1], piece[i]).length();
        }
}

// One painting of a chart.
class Sheet {
public:
    Sheet(const Chart& chart, QPainter& painter, const QRectF& room, const Look& look, QString focus)
        : chart_(chart),
          painter_(painter),
          room_(room),
          look_(look),
          focus_(std::move(focus)),
          metrics_(look.Plain),
          labels_(look)
    {
    }

    std::vector<Item> Paint()
    {
        SetRanges();
        MakeRoom();
        labels_.SetRoom(room_, plot_);
        KeepAxesFree();
        DrawLegend();
        DrawBands();
        DrawGrid();
        for (const SeriesKind kind : {SeriesKind::Area, SeriesKind::Bars, SeriesKind::Interval,
                                      SeriesKind::Steps, SeriesKind::Line, SeriesKind::Points})
            for (const bool strong : {false, true})
                for (const Series& series : chart_.Curves)
                    if (series.Kind == kind && look_.Of(series.As).Bold == strong) Draw(series);
        DrawAxes();
        DrawRules();
        DrawMarks();
        DrawFocusArrows();
        PlaceNames();
        labels_.Draw(painter_);
        return std::move(items_);
    }

    [[nodiscard]] int LeftOut() const { return labels_.LeftOut(); }

private:
    void SetRanges()
    {
        x_ = {chart_.X.From, chart_.X.To};
        y_ = {chart_.Y.From, chart_.Y.To};
        if (!chart_.X.Names.empty()) x_ = {0.5, static_cast<double>(chart_.X.Names.size()) + 0.5};
        if (!chart_.Y.Names.empty()) y_ = {0.5, static_cast<double>(chart_.Y.Names.size()) + 0.5};
        if (!(x_.To > x_.From)) x_ = picture::RoundedOut(x_.From, x_.From, chart_.X.Counts);
        if (!(y_.To > y_.From)) y_ = picture::RoundedOut(y_.From, y_.From, chart_.Y.Counts);
        if (IsExact(chart_)) return;
        if (chart_.Y.Names.empty())
            y_ = picture::RoundedOut(y_.From, y_.To, chart_.Y.Counts);
        else if (chart_.X.Names.empty() && !chart_.OwnScales)
            x_ = picture::RoundedOut(x_.From, x_.To, chart_.X.Counts);
    }

    // They leave no place for the text of a rule across them but behind its end.
    [[nodiscard]] bool HasUprightBars() const
    {
        return !RowsAcross() &&
               std::any_of(chart_.Curves.begin(), chart_.Curves.end(),
                           [](const Series& series) { return series.Kind == SeriesKind::Bars; });
    }

    // Of a single point with its figure.
    static QString NameOf(const Series& series)
    {
        if (series.Points.size() != 1 || series.Texts.empty()) return ToQt(series.Name);
        return ToQt(series.Name + " " + series.Texts.front());
    }

    // The widest name at the end of a line that runs to the right edge.
    [[nodiscard]] double EndNames() const
    {
        double widest = 0;
        for (const Series& series : chart_.Curves) {
            if ((series.Kind != SeriesKind::Line && series.Kind != SeriesKind::Steps) ||
                series.Points.empty() || series.Forbidden != Side::None)
                continue;
            if (series.Points.back().X < x_.From + 0.9 * (x_.To - x_.From)) continue;
            widest = std::max(widest, SizeOf(NameOf(series), look_.FontOf(series.As)).width());
        }
        if (HasUprightBars())
            for (const picture::Rule& rule : chart_.Rules)
                if (rule.Across == Direction::Y)
                    widest = std::max(widest, SizeOf(ToQt(rule.Text), look_.FontOf(rule.As)).width());
        for (const Mark& mark : chart_.Marks)
            if (RowsAcross() && !chart_.OwnScales && mark.At.X >= x_.From + 0.85 * (x_.To - x_.From))
                widest = std::max(widest, SizeOf(ToQt(mark.Text), look_.FontOf(mark.As)).width());
        for (const Series& series : chart_.Curves)
            for (const Interval& interval : series.Intervals)
                if (RowsAcross() && !chart_.OwnScales && interval.To &&
                    *interval.To >= x_.From + 0.85 * (x_.To - x_.From))
                    widest = std::max(widest, SizeOf(ToQt(interval.ToText), look_.Plain).width());
        return widest == 0 ? 0 : widest + kGap;
    }

    [[nodiscard]] double HalfOfLastTick() const
    {
        if (!chart_.X.Names.empty() || chart_.OwnScales) return 0;
        const picture::Ticks ticks = picture::TicksOf(x_.From, x_.To, chart_.X.Counts);
        return metrics_.horizontalAdvance(ToQt(ticks.Text(ticks.Last))) / 2;
    }

    void MakeRoom()
    {
        const double line = metrics_.height();
        double top = room_.top() + LegendHeight();
        if (!chart_.Y.Title.empty()) top += line + kGap / 2;
        top += line / 2;  // half of the uppermost tick's text, and what stands above a bar
        double bottom = room_.bottom();
        if (!chart_.X.Title.empty()) bottom -= line + kGap / 2;
        if (!chart_.OwnScales) bottom -= line + kTick + kGap / 2;
        yTicks_ = FittingTicks(y_, chart_.Y.Counts, [&](const picture::Ticks& ticks) {
            return static_cast<double>(ticks.Count()) * line * 1.3 <= bottom - top;
        });
        const double left = room_.left() + LeftTexts() + kTick + kGap;
        const double right =
            room_.right() - std::max(std::min(EndNames(), 0.35 * room_.width()) + kGap, HalfOfLastTick());
        plot_ = QRectF(QPointF(left, top), QPointF(std::max(right, left + 10), std::max(bottom, top + 10)));
        xTicks_ =
            FittingTicks(x_, chart_.X.Counts, [&](const picture::Ticks& ticks) { return XTextsFit(ticks); });
    }

    // No label covers the texts beside and below the axes, or the title of the upright one.
    void KeepAxesFree()
    {
        labels_.Avoid(QRectF(room_.topLeft(), QPointF(plot_.left() - 1, room_.bottom())));
        labels_.Avoid(QRectF(QPointF(room_.left(), plot_.bottom() + 1), room_.bottomRight()));
        const double title = metrics_.horizontalAdvance(ToQt(chart_.Y.Title));
        labels_.Avoid(QRectF(room_.left(), room_.top(), title + kGap, LegendHeight() + metrics_.height()));
        if (LegendHeight() > 0) labels_.Avoid(QRectF(room_.topLeft(), QSizeF(room_.width(), LegendHeight())));
    }

    template <typename Fits>
    static picture::Ticks FittingTicks(const picture::Range& range, bool counts, Fits fits)
    {
        constexpr int kMost = 8;
        picture::Ticks ticks;
        for (int most = kMost; most > 0; --most) {
            ticks = picture::TicksOf(range.From, range.To, counts, most);
            if (fits(ticks)) break;
        }
        return ticks;
    }

    [[nodiscard]] bool XTextsFit(const picture::Ticks& ticks) const
    {
        double before = -1e9;
        for (auto i = ticks.First; i <= ticks.Last; ++i) {
            const double width = metrics_.horizontalAdvance(ToQt(ticks.Text(i)));
            if (AtX(ticks.At(i)) - width / 2 < before + kGap) return false;
            before = AtX(ticks.At(i)) + width / 2;
        }
        return true;
    }

    [[nodiscard]] double LeftTexts() const
    {
        double widest = 0;
        if (!chart_.Y.Names.empty()) {
            for (const std::string& name : chart_.Y.Names)
                widest = std::max(widest, SizeOf(ToQt(name), look_.Plain).width());
            return std::min(widest, kMostOfWidth * room_.width()) + (HasDiamondAtEdge() ? kDiamond : 0);
        }
        for (auto i = yTicks_.First; i <= yTicks_.Last; ++i)
            widest = std::max(widest, metrics_.horizontalAdvance(ToQt(yTicks_.Text(i))));
        return widest;
    }

    // It would cover the end of its row's name.
    [[nodiscard]] bool HasDiamondAtEdge() const
    {
        return std::any_of(chart_.Marks.begin(), chart_.Marks.end(),
                           [this](const Mark& mark) { return mark.Diamond && mark.At.X <= x_.From; });
    }

    [[nodiscard]] double AtX(double x) const
    {
        return plot_.left() + (x - x_.From) / (x_.To - x_.From) * plot_.width();
    }

    [[nodiscard]] double AtY(double y) const
    {
        const double share = (y - y_.From) / (y_.To - y_.From) * plot_.height();
        return chart_.Y.Names.empty() ? plot_.bottom() - share : plot_.top() + share;
    }

    [[nodiscard]] QPointF At(const Point& point) const { return {AtX(point.X), AtY(point.Y)}; }

    [[nodiscard]] bool RowsAcross() const { return !chart_.Y.Names.empty(); }

    // ---- legend ----

    [[nodiscard]] double LegendHeight() const { return qt::LegendHeight(chart_, room_.width(), metrics_); }

    void DrawLegend()
    {
        QPointF at = room_.topLeft();
        const double line = metrics_.height();
        for (const Series* entry : LegendOf(chart_)) {
            const double width = LegendWidth(*entry, metrics_);
            if (at.x() > room_.left() && at.x() + width > room_.right())
                at = {room_.left(), at.y() + line + 2};
            const double high = entry->Thin ? kThinBar : 10;
            const QRectF sample(at.x(), at.y() + (line - high) / 2, 18, high);
            if (entry->Kind == SeriesKind::Points) {
                DrawMark(sample.center(), entry->As);
            } else {
                DrawBlock(sample, *entry);
            }
            painter_.setFont(look_.Plain);
            painter_.setPen(look_.Text);
            painter_.drawText(QPointF(sample.right() + kGap, at.y() + metrics_.ascent()), ToQt(entry->Name));
            at.rx() += width;
        }
    }

    // ---- axes ----

    [[nodiscard]] QRectF AreaOf(const picture::Band& band) const
    {
        const bool across = band.Across == Direction::X;
        const auto end = [&](const std::optional<double>& value, double edge) {
            if (!value) return edge;
            return across ? std::clamp(AtX(*value), plot_.left(), plot_.right())
                          : std::clamp(AtY(*value), plot_.top(), plot_.bottom());
        };
        QRectF area = plot_;
        if (across) {
            area.setLeft(end(band.From, plot_.left()));
            area.setRight(end(band.To, plot_.right()));
        } else {
            area.setBottom(end(band.From, plot_.bottom()));
            area.setTop(end(band.To, plot_.top()));
        }
        return area.normalized();
    }

    // An open end has no edge.
    void DrawEdges(const picture::Band& band, const QRectF& area)
    {
        painter_.setPen(QPen(look_.Of(band.As).Stroke, 1));
        const bool across = band.Across == Direction::X;
        if (band.From) painter_.drawLine(area.bottomLeft(), across ? area.topLeft() : area.bottomRight());
        if (band.To) painter_.drawLine(area.topRight(), across ? area.bottomRight() : area.topLeft());
    }

    // What cannot be has strokes through which the rest is still seen.
    void HatchLightly(const QRectF& area, Role role)
    {
        QColor stroke = look_.Of(role).Stroke;
        stroke.setAlphaF(0.45F);
        painter_.fillRect(area, QBrush(stroke, Qt::BDiagPattern));
    }

    void DrawBands()
    {
        for (const picture::Band& band : chart_.Bands) {
            const QRectF area = AreaOf(band);
            painter_.fillRect(area, look_.Of(band.As).Fill);
            if (look_.Of(band.As).Hatched) painter_.fillRect(area, look_.Brush(band.As));
            if (look_.Of(band.As).Crossed) HatchLightly(area, band.As);
            DrawEdges(band, area);
            AddItem(RectPath(area), BandTip(band), {});
            labels_.Add({.Text = ToQt(band.Text),
                         .As = band.As,
                         .Candidates = labels_.Inside(ToQt(band.Text), band.As, area)});
        }
    }

    static std::string BandTip(const picture::Band& band)
    {
        const auto text = [](const std::optional<double>& end) {
            return end ? PlainText(std::round(*end * 1e6) / 1e6) : std::string("open");
        };
        return band.Text + (band.Text.empty() ? "" : ": ") + text(band.From) + " to " + text(band.To);
    }

    void DrawGrid()
    {
        painter_.setPen(QPen(look_.Grid, 1));
        if (RowsAcross()) {
            if (chart_.OwnScales) {
                for (std::size_t row = 0; row < chart_.Y.Names.size(); ++row)
                    painter_.drawLine(QPointF(plot_.left(), AtY(static_cast<double>(row) + 1.5)),
                                      QPointF(plot_.right(), AtY(static_cast<double>(row) + 1.5)));
                return;
            }
            for (auto i = xTicks_.First; i <= xTicks_.Last; ++i)
                painter_.drawLine(QPointF(AtX(xTicks_.At(i)), plot_.top()),
                                  QPointF(AtX(xTicks_.At(i)), plot_.bottom()));
            return;
        }
        for (auto i = yTicks_.First; i <= yTicks_.Last; ++i)
            painter_.drawLine(QPointF(plot_.left(), AtY(yTicks_.At(i))),
                              QPointF(plot_.right(), AtY(yTicks_.At(i))));
    }

    // Where the axis lines stand: at the edges, the value axis of bars below zero at zero.
    [[nodiscard]] double BaseLine() const
    {
        if (RowsAcross()) return plot_.bottom();
        return std::clamp(AtY(chart_.BarsFrom), plot_.top(), plot_.bottom());
    }

    void DrawAxes()
    {
        painter_.setPen(QPen(look_.Axis, 1));
        if (!chart_.OwnScales) painter_.drawLine(plot_.bottomLeft(), plot_.bottomRight());
        const bool inside = !RowsAcross() && BaseLine() < plot_.bottom() - 1 && y_.From < 0;
        if (inside) painter_.drawLine(QPointF(plot_.left(), BaseLine()), QPointF(plot_.right(), BaseLine()));
        painter_.drawLine(plot_.topLeft(), plot_.bottomLeft());
        if (RowsAcross() && x_.From < chart_.BarsFrom && !chart_.OwnScales)
            painter_.drawLine(QPointF(AtX(chart_.BarsFrom), plot_.top()),
                              QPointF(AtX(chart_.BarsFrom), plot_.bottom()));
        painter_.setFont(look_.Plain);
        DrawXTexts();
        DrawYTexts();
        DrawTitles();
    }

    void DrawXTexts()
    {
        if (chart_.OwnScales) return;
        const double y = plot_.bottom() + kTick + metrics_.ascent() + 1;
        if (!chart_.X.Names.empty()) {
            DrawNames(y);
            return;
        }
        for (auto i = xTicks_.First; i <= xTicks_.Last; ++i) {
            const double x = AtX(xTicks_.At(i));
            const QString text = ToQt(xTicks_.Text(i));
            painter_.setPen(QPen(look_.Axis, 1));
            painter_.drawLine(QPointF(x, plot_.bottom()), QPointF(x, plot_.bottom() + kTick));
            painter_.setPen(look_.Quiet);
            painter_.drawText(QPointF(x - metrics_.horizontalAdvance(text) / 2, y), text);
        }
    }

    // Names thin out before they touch.
    void DrawNames(double y)
    {
        const auto& names = chart_.X.Names;
        std::size_t every = 1;
        for (bool touches = true; touches && every < names.size(); every += touches ? 1 : 0) {
            double before = -1e9;
            touches = false;
            for (std::size_t i = 0; i < names.size() && !touches; i += every) {
                const double width = metrics_.horizontalAdvance(ToQt(names[i]));
                const double x = AtX(static_cast<double>(i) + 1);
                touches = x - width / 2 < before + kGap;
                before = x + width / 2;
            }
        }
        painter_.setPen(look_.Quiet);
        for (std::size_t i = 0; i < names.size(); i += every) {
            const QString name = ToQt(names[i]);
            painter_.drawText(
                QPointF(AtX(static_cast<double>(i) + 1) - metrics_.horizontalAdvance(name) / 2, y), name);
        }
    }

    void DrawYTexts()
    {
        const double half = metrics_.ascent() / 2 - 1;
        painter_.setPen(look_.Quiet);
        if (RowsAcross()) {
            const double gap = kGap + (HasDiamondAtEdge() ? kDiamond : 0);
            const double wide = plot_.left() - room_.left() - gap;
            painter_.setPen(look_.Text);
            for (std::size_t i = 0; i < chart_.Y.Names.size(); ++i) {
                const QString name = metrics_.elidedText(ToQt(chart_.Y.Names[i]), Qt::ElideRight, wide);
                painter_.drawText(QPointF(plot_.left() - gap - metrics_.horizontalAdvance(name),
                                          AtY(static_cast<double>(i) + 1) + half),
                                  name);
            }
            return;
        }
        for (auto i = yTicks_.First; i <= yTicks_.Last; ++i) {
            const QString text = ToQt(yTicks_.Text(i));
            const double y = AtY(yTicks_.At(i));
            painter_.setPen(QPen(look_.Axis, 1));
            painter_.drawLine(QPointF(plot_.left() - kTick, y), QPointF(plot_.left(), y));
            painter_.setPen(look_.Quiet);
            painter_.drawText(
                QPointF(plot_.left() - kTick - kGap / 2 - metrics_.horizontalAdvance(text), y + half), text);
        }
    }

    void DrawTitles()
    {
        painter_.setPen(look_.Quiet);
        if (!chart_.X.Title.empty()) {
            const QString title = metrics_.elidedText(ToQt(chart_.X.Title), Qt::ElideRight, room_.width());
            const double width = metrics_.horizontalAdvance(title);
            const double x = std::max(room_.left(), plot_.right() - width);
            painter_.drawText(QPointF(x, room_.bottom() - metrics_.descent()), title);
        }
        if (!chart_.Y.Title.empty()) {
            const QString title = metrics_.elidedText(ToQt(chart_.Y.Title), Qt::ElideRight, room_.width());
            painter_.drawText(QPointF(room_.left(), room_.top() + LegendHeight() + metrics_.ascent()), title);
        }
    }

    // ---- series ----

    void Draw(const Series& series)
    {
        switch (series.Kind) {
            case SeriesKind::Area:
                DrawArea(series);
                break;
            case SeriesKind::Bars:
                DrawBars(series);
                break;
            case SeriesKind::Interval:
                DrawIntervals(series);
                break;
            case SeriesKind::Line:
            case SeriesKind::Steps:
                DrawLine(series);
                break;
            case SeriesKind::Points:
                DrawPoints(series);
                break;
        }
    }

    // Its outline runs everywhere but along the edges of the window, where the area goes on.
    void DrawArea(const Series& series)
    {
        if (series.Points.empty()) return;
        QPolygonF polygon;
        for (const Point& point : series.Points)
            polygon.append(At(point));
        QPainterPath path;
        path.addPolygon(polygon);
        path.closeSubpath();
        painter_.save();
        painter_.setClipRect(plot_.adjusted(-1, -1, 1, 1));
        painter_.fillPath(path, look_.Brush(series.As, series.Hatched));
        painter_.setPen(QPen(look_.Of(series.As).Stroke, 1.5));
        for (qsizetype i = 0; i < polygon.size(); ++i) {
            const QPointF& from = polygon[i];
            const QPointF& to = polygon[(i + 1) % polygon.size()];
            if (!AlongEdge(from, to)) painter_.drawLine(from, to);
        }
        painter_.restore();
        const bool whole = plot_.adjusted(-1, -1, 1, 1).contains(path.boundingRect());
        AddItem(whole ? path : path.intersected(RectPath(plot_)), TipOf(series, 0), series.Id);
    }

    [[nodiscard]] bool AlongEdge(const QPointF& a, const QPointF& b) const
    {
        constexpr double kNear = 0.5;
        const auto both = [](double p, double q, double edge) {
            return std::abs(p - edge) < kNear && std::abs(q - edge) < kNear;
        };
        return both(a.x(), b.x(), plot_.right()) || both(a.y(), b.y(), plot_.top()) ||
               both(a.x(), b.x(), plot_.left()) || both(a.y(), b.y(), plot_.bottom());
    }

    void DrawBlock(const QRectF& block, const Series& series)
    {
        const RoleLook look = look_.Of(series.As);
        painter_.fillRect(block, look_.Ground);
        if (look.Bold && !series.Hatched)
            painter_.fillRect(block, look.Stroke);
        else if (!look.Dashes.isEmpty() || series.Hatched || look.Hatched)
            painter_.fillRect(block, look_.Brush(series.As, series.Hatched));
        else
            painter_.fillRect(block, look.Fill);
        QPen pen = look_.Pen(look, look.Bold ? 1.5 : 1);
        if (series.Hatched || look.Hatched) pen.setStyle(Qt::SolidLine);
        painter_.setPen(pen);
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(block);
    }

    // The figure of a bar, beyond its end.
    void WriteAtEnd(const QRectF& bar, const Series& series, std::size_t i)
    {
        const Point& point = series.Points[i];
        const QString text = ToQt(series.Texts[i]);
        const QSizeF size = SizeOf(text, look_.Plain);
        const bool beyond = (RowsAcross() ? point.X : point.Y) >= chart_.BarsFrom;
        QPointF corner;
        if (RowsAcross())
            corner = {beyond ? bar.right() + 4 : bar.left() - size.width() - 4,
                      bar.center().y() - size.height() / 2};
        else
            corner = {bar.center().x() - size.width() / 2,
                      beyond ? bar.top() - size.height() - 2 : bar.bottom() + 2};
        labels_.Add({.Text = text, .As = Role::Plain, .Candidates = {QRectF(corner, size)}, .Quiet = true});
    }

    // Bars that stand at one position stand side by side.
    void DrawBars(const Series& series)
    {
        int before = 0;
        int count = 0;
        for (const Series& other : chart_.Curves) {
            if (other.Kind != SeriesKind::Bars || !SharesPlace(other, series)) continue;
            if (&other < &series) ++before;
            ++count;
        }
        const double slot = RowsAcross() ? plot_.height() / (y_.To - y_.From) : SlotWidth();
        const double most = RowsAcross() ? 2.0 * kBar : 56;
        const double width = std::max(1.0, std::min(0.72 * slot, most) / std::max(1, count));
        const double offset = (before - (count - 1) / 2.0) * width;
        for (std::size_t i = 0; i < series.Points.size(); ++i) {
            const Point& point = series.Points[i];
            QRectF bar;
            if (RowsAcross())
                bar = QRectF(QPointF(AtX(Clamped(chart_.BarsFrom, x_)), AtY(point.Y) + offset - width / 2),
                             QPointF(AtX(Clamped(point.X, x_)), AtY(point.Y) + offset + width / 2));
            else
                bar = QRectF(QPointF(AtX(point.X) + offset - width / 2, AtY(Clamped(chart_.BarsFrom, y_))),
                             QPointF(AtX(point.X) + offset + width / 2, AtY(Clamped(point.Y, y_))));
            bar = bar.normalized();
            DrawBlock(bar, series);
            labels_.Avoid(bar);
            if (i < series.Texts.size()) WriteAtEnd(bar, series, i);
            AddItem(RectPath(bar), TipOf(series, i), series.Id);
        }
    }

    static double Clamped(double value, const picture::Range& range)
    {
        return std::clamp(value, range.From, range.To);
    }

    [[nodiscard]] bool SharesPlace(const Series& a, const Series& b) const
    {
        const auto place = [this](const Point& point) { return RowsAcross() ? point.Y : point.X; };
        return std::any_of(a.Points.begin(), a.Points.end(), [&](const Point& p) {
            return std::any_of(b.Points.begin(), b.Points.end(),
                               [&](const Point& q) { return place(p) == place(q); });
        });
    }

    // The least distance of two bars.
    [[nodiscard]] double SlotWidth() const
    {
        std::set<double> places;
        for (const Series& series : chart_.Curves)
            if (series.Kind == SeriesKind::Bars)
                for (const Point& point : series.Points)
                    places.insert(point.X);
        double least = x_.To - x_.From;
        double before = 0;
        bool first = true;
        for (const double place : places) {
            if (!first) least = std::min(least, place - before);
            before = place;
            first = false;
        }
        return least / (x_.To - x_.From) * plot_.width();
    }

    // ---- intervals ----

    struct RowScale {
        double From = 0;
        double To = 1;
    };

    // Of a row that has a scale of its own: its interval and its marks, with a third more on each side.
    [[nodiscard]] RowScale ScaleOf(double row) const
    {
        auto [place, isNew] = scales_.try_emplace(row);
        if (isNew) place->second = MakeScale(row);
        return place->second;
    }

    [[nodiscard]] RowScale MakeScale(double row) const
    {
        std::vector<double> values;
        for (const Series& series : chart_.Curves)
            for (const Interval& interval : series.Intervals)
                if (interval.At == row) {
                    if (interval.From) values.push_back(*interval.From);
                    if (interval.To) values.push_back(*interval.To);
                }
        for (const Mark& mark : chart_.Marks)
            if (mark.At.Y == row) values.push_back(mark.At.X);
        for (const Series& series : chart_.Curves)
            for (const Point& point : series.Points)
                if (point.Y == row) values.push_back(point.X);
        if (values.empty()) return {};
        const auto [least, most] = std::minmax_element(values.begin(), values.end());
        double room = (*most - *least) / 3;
        if (room == 0) room = std::max(1.0, std::abs(*most) / 2);
        return {*least - room, *most + room};
    }

    [[nodiscard]] double AlongRow(double value, double row) const
    {
        if (!chart_.OwnScales) return AtX(value);
        const RowScale scale = ScaleOf(row);
        return plot_.left() + (value - scale.From) / (scale.To - scale.From) * plot_.width();
    }

    void DrawIntervals(const Series& series)
    {
        for (std::size_t i = 0; i < series.Intervals.size(); ++i) {
            const Interval& interval = series.Intervals[i];
            const double thick = series.Thin ? kThinBar : kBar;
            QRectF bar;
            if (RowsAcross()) {
                const double from =
                    interval.From ? AlongRow(*interval.From, interval.At) : plot_.left() + kGap;
                const double to = interval.To ? AlongRow(*interval.To, interval.At) : plot_.right() - kGap;
                bar = QRectF(QPointF(from, AtY(interval.At) - thick / 2),
                             QPointF(to, AtY(interval.At) + thick / 2));
            } else {
                const double from = interval.From ? AtY(*interval.From) : plot_.bottom();
                const double to = interval.To ? AtY(*interval.To) : plot_.top();
                bar = QRectF(QPointF(AtX(interval.At) - thick / 2, to),
                             QPointF(AtX(interval.At) + thick / 2, from));
            }
            bar = Inside(bar.normalized());
            DrawInterval(bar, interval, series);
            labels_.Avoid(bar);
            AddItem(RectPath(bar.adjusted(-2, -3, 2, 3)), TipOf(series, i), series.Id);
        }
    }

    // What reaches beyond the window ends at its edge.
    [[nodiscard]] QRectF Inside(const QRectF& bar) const
    {
        const QRectF edges = plot_.adjusted(0, -kBar, 0, kBar);
        return {QPointF(std::clamp(bar.left(), edges.left(), edges.right()),
                        std::clamp(bar.top(), edges.top(), edges.bottom())),
                QPointF(std::clamp(bar.right(), edges.left(), edges.right()),
                        std::clamp(bar.bottom(), edges.top(), edges.bottom()))};
    }

    void DrawInterval(const QRectF& bar, const Interval& interval, const Series& series)
    {
        DrawBlock(bar, series);
        const QColor color = look_.Of(series.As).Stroke;
        const QPointF left(bar.left(), bar.center().y());
        const QPointF right(bar.right(), bar.center().y());
        const QPointF top(bar.center().x(), bar.top());
        const QPointF bottom(bar.center().x(), bar.bottom());
        const double width = 2;
        const auto head = [&](const QPointF& from, const QPointF& to) {
            const QPointF along =
                (to - from) / std::max(1.0, std::hypot(to.x() - from.x(), to.y() - from.y()));
            painter_.fillPath(Arrowhead(from, to + along * (3 * width + 5), width), color);
        };
        if (!interval.From) RowsAcross() ? head(right, left) : head(top, bottom);
        if (!interval.To) RowsAcross() ? head(left, right) : head(bottom, top);
        if (chart_.OwnScales || !interval.ToText.empty()) WriteEnds(bar, interval, series.As);
    }

    // A mark tells the figure itself.
    [[nodiscard]] bool HasMarkAt(double value, double row) const
    {
        return std::any_of(chart_.Marks.begin(), chart_.Marks.end(), [&](const Mark& mark) {
            return mark.At.X == value && mark.At.Y == row && !mark.Text.empty();
        });
    }

    void WriteEnds(const QRectF& bar, const Interval& interval, Role role)
    {
        const auto write = [&](const std::optional<double>& value, const std::string& told, bool left) {
            if (!value || HasMarkAt(*value, interval.At)) return;
            const QString text = told.empty() ? NumberText(*value) : ToQt(told);
            const QSizeF size = SizeOf(text, look_.Plain);
            const double x = left ? bar.left() - size.width() - 4 : bar.right() + 4;
            const double edge = chart_.OwnScales ? plot_.right() : room_.right();
            const QRectF place(QPointF(std::clamp(x, plot_.left(), edge - size.width()),
                                       bar.center().y() - size.height() / 2),
                               size);
            labels_.Add({.Text = text,
                         .As = role == Role::Best ? role : Role::Plain,
                         .Candidates = {place},
                         .Quiet = true});
        };
        if (chart_.OwnScales) write(interval.From, interval.FromText, true);
        if (interval.To && interval.From && *interval.To == *interval.From) return;
        write(interval.To, interval.ToText, false);
    }

    // ---- lines and points ----

    [[nodiscard]] std::vector<Point> Corners(const Series& series) const
    {
        if (series.Kind != SeriesKind::Steps) return series.Points;
        std::vector<Point> corners;
        for (const Point& point : series.Points) {
            if (!corners.empty()) corners.push_back({point.X, corners.back().Y});
            corners.push_back(point);
        }
        return corners;
    }

    [[nodiscard]] picture::Box PlotBox() const
    {
        return {plot_.left(), plot_.top(), plot_.width(), plot_.height()};
    }

    [[nodiscard]] QPainterPath Clipped(const std::vector<Point>& corners) const
    {
        QPainterPath path;
        for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
            const QPointF from = At(corners[i]);
            const QPointF to = At(corners[i + 1]);
            const auto part = picture::ClipSegment({{from.x(), from.y()}, {to.x(), to.y()}}, PlotBox());
            if (!part) continue;
            const QPointF begin = ToQt(part->From);
            if (path.elementCount() == 0 || path.currentPosition() != begin) path.moveTo(begin);
            path.lineTo(ToQt(part->To));
        }
        return path;
    }

    void DrawLine(const Series& series)
    {
        const RoleLook look = look_.Of(series.As);
        const std::vector<Point> corners = Corners(series);
        const QPainterPath path = Clipped(corners);
        RoleLook drawn = look;
        if (series.Thin) drawn.Dashes = {4, 4};
        const double width = series.Thin                       ? 1
                             : look.Bold || series.Strong      ? 3
                             : series.Kind == SeriesKind::Line ? look.Width
                                                               : 2;
        const QPen pen = look_.Pen(drawn, width);
        painter_.setBrush(Qt::NoBrush);
        StrokeInPieces(painter_, path, pen);
        if (series.Points.size() == 1 || HasOpenMarks(series)) DrawMarksOf(series);
        if (look.Crossed) Cross(path, look.Stroke);
        if (series.Forbidden != Side::None) {
            painter_.setPen(QPen(look.Stroke, 1));
            const bool left = series.Forbidden == Side::Left;
            const double apart = series.Thin ? 24 : 10;
            StrokesAlong(painter_, path, apart, left ? 6 : 0, left ? 0 : 6, left ? 0.8 : -0.8);
        }
        if (series.Arrow && corners.size() > 1 && plot_.adjusted(-1, -1, 1, 1).contains(At(corners.back())))
            painter_.fillPath(Arrowhead(At(corners[corners.size() - 2]), At(corners.back()), width),
                              look.Stroke);
        labels_.AvoidLine(path);
        WriteAtPoints(series);
        lines_.push_back({&series, path});
        AddLineItems(series, path);
    }

    void DrawMarksOf(const Series& series)
    {
        for (const Point& point : series.Points) {
            const QPointF at = At(point);
            if (!plot_.adjusted(-1, -1, 1, 1).contains(at)) continue;
            DrawMark(at, series.As, series.Strong ? StrongSize(series) : 0);
            labels_.Avoid(QRectF(at - QPointF(4, 4), QSizeF(8, 8)));
        }
    }

    void WriteAtPoints(const Series& series)
    {
        if (series.Points.size() == 1) return;  // its figure stands behind its name
        for (std::size_t i = 0; i < series.Texts.size(); ++i) {
            if (series.Texts[i].empty()) continue;
            const QString text = ToQt(series.Texts[i]);
            labels_.Add({.Text = text,
                         .As = series.As,
                         .Candidates = labels_.AroundPoint(text, series.As, At(series.Points[i]))});
        }
    }

    // A forecast has open marks as long as they do not touch; an arrow's way has marks of its own.
    [[nodiscard]] bool HasOpenMarks(const Series& series) const
    {
        if (series.Arrow || look_.Of(series.As).Mark != MarkForm::Open || series.Points.size() < 2)
            return false;
        return Apart(series) > (series.Strong ? 7 : 1.5 * kMarkSize);
    }

    [[nodiscard]] double Apart(const Series& series) const
    {
        return std::abs(AtX(series.Points[1].X) - AtX(series.Points[0].X));
    }

    // Larger than others, but never touching the next one.
    [[nodiscard]] double StrongSize(const Series& series) const
    {
        constexpr double kLargest = kMarkSize + 2;
        return series.Points.size() < 2 ? kLargest : std::min(kLargest, Apart(series) - 2.5);
    }

    void Cross(const QPainterPath& path, const QColor& color)
    {
        painter_.setPen(QPen(color, 1.5));
        StrokesAlong(painter_, path, 26, 4, 4, 1);
        StrokesAlong(painter_, path, 26, 4, 4, -1);
    }

    void AddLineItems(const Series& series, const QPainterPath& path)
    {
        if (series.Points.size() == 1 || series.Tips.size() == series.Points.size()) {
            for (std::size_t i = 0; i < series.Points.size(); ++i)
                if (plot_.adjusted(-1, -1, 1, 1).contains(At(series.Points[i])))
                    AddItem(MarkPath(At(series.Points[i]), MarkForm::Round, 2 * kMarkSize), TipOf(series, i),
                            series.Id);
            return;
        }
        QPainterPathStroker wide;
        wide.setWidth(8);
        AddItem(wide.createStroke(path), TipOf(series, 0), series.Id);
    }

    // Of its role's size where none is given; one that is given is drawn heavily.
    void DrawMark(const QPointF& at, Role role, double size = 0)
    {
        const RoleLook look = look_.Of(role);
        const QPainterPath path = MarkPath(at, look.Mark,
                                           size > 0    ? size
                                           : look.Bold ? kMarkSize + 2
                                                       : kMarkSize);
        painter_.strokePath(
            path, QPen(look_.Ground, size > 0 ? 3 : 5));  // a ring about it, also on a bar of its own colour
        painter_.fillPath(path, look.Mark == MarkForm::Filled ? look.Stroke : look_.Ground);
        if (look.Mark == MarkForm::Round) painter_.fillPath(path, look.Fill);
        painter_.strokePath(path, QPen(look.Stroke, size > 0 ? std::min(2.5, size / 3) : 1.5));
        if (look.Crossed) {
            painter_.setPen(QPen(look.Stroke, 1.5));
            painter_.drawLine(at + QPointF(-5, -5), at + QPointF(5, 5));
            painter_.drawLine(at + QPointF(-5, 5), at + QPointF(5, -5));
        }
    }

    void DrawPoints(const Series& series)
    {
        for (std::size_t i = 0; i < series.Points.size(); ++i) {
            const Point& point = series.Points[i];
            const QPointF at(chart_.OwnScales ? AlongRow(point.X, point.Y) : AtX(point.X), AtY(point.Y));
            if (!plot_.adjusted(-1, -1, 1, 1).contains(at)) continue;
            if (series.Points.size() > 400) {  // a grid of whole numbers: dots
                painter_.setPen(QPen(look_.Of(series.As).Stroke, 2));
                painter_.drawPoint(at);
            } else {
                DrawMark(at, series.As);
            }
            labels_.Avoid(QRectF(at - QPointF(4, 4), QSizeF(8, 8)));
            if (series.Points.size() <= 400)
                AddItem(MarkPath(at, MarkForm::Round, 2 * kMarkSize), TipOf(series, i), series.Id);
        }
    }

    // ---- what is labelled ----

    void DrawRules()
    {
        for (const picture::Rule& rule : chart_.Rules) {
            const RoleLook look = look_.Of(rule.As);
            QPen pen(look.Stroke, 1);
            pen.setDashPattern({6, 4});
            const bool upright = rule.Across == Direction::X;
            const QLineF line = upright
                                    ? QLineF(AtX(rule.Value), plot_.top(), AtX(rule.Value), plot_.bottom())
                                    : QLineF(plot_.left(), AtY(rule.Value), plot_.right(), AtY(rule.Value));
            if (!plot_.adjusted(-1, -1, 1, 1).contains(line.center())) continue;
            painter_.setPen(pen);
            painter_.drawLine(line);
            QPainterPath path;
            path.moveTo(line.p1());
            path.lineTo(line.p2());
            QPainterPathStroker wide;
            wide.setWidth(8);
            AddItem(wide.createStroke(path), rule.Text.empty() ? PlainText(rule.Value) : rule.Text, {});
            const QString text = ToQt(rule.Text);
            labels_.Add({.Text = text, .As = rule.As, .Candidates = labels_.AtRule(text, rule.As, line)});
        }
    }

    // A mark at the end of a bar is its figure, written there without a dot.
    [[nodiscard]] bool EndsABar(const Mark& mark) const
    {
        return std::any_of(chart_.Curves.begin(), chart_.Curves.end(), [&mark](const Series& series) {
            return series.Kind == SeriesKind::Bars &&
                   std::any_of(series.Points.begin(), series.Points.end(), [&mark](const Point& point) {
                       return point.X == mark.At.X && point.Y == mark.At.Y;
                   });
        });
    }

    [[nodiscard]] std::vector<QRectF> BehindBar(const QString& text, Role role, const QPointF& at) const
    {
        const QSizeF size = SizeOf(text, look_.FontOf(role));
        if (!RowsAcross()) return labels_.AroundPoint(text, role, at);
        const double top = at.y() - size.height() / 2;
        return {QRectF(QPointF(at.x() + kTick + 1, top), size),
                QRectF(QPointF(at.x() - kTick - size.width(), top - kBar), size)};
    }

    // In its own row where nothing follows it there.
    [[nodiscard]] std::vector<QRectF> BehindDiamond(const QString& text, Role role, const QPointF& at) const
    {
        const QSizeF size = SizeOf(text, look_.FontOf(role));
        std::vector<QRectF> places = labels_.AroundPoint(text, role, at);
        places.insert(places.begin(), QRectF(at + QPointF(kDiamond + 2, -size.height() / 2), size));
        return places;
    }

    // The strong ones last: a corner that is best and on the way of the method is seen as the best.
    void DrawMarks()
    {
        for (const bool strong : {false, true})
            for (const Mark& mark : chart_.Marks)
                if (look_.Of(mark.As).Bold == strong) DrawDot(mark);
        for (const Mark& mark : chart_.Marks)
            NameMark(mark);
    }

    // Neither items nor obstacles: nothing else moves while they come and go.
    void DrawFocusArrows()
    {
        if (focus_.isEmpty()) return;
        for (const picture::FocusArrow& arrow : chart_.FocusArrows) {
            if (ToQt(arrow.FromId) != focus_ && ToQt(arrow.ToId) != focus_) continue;
            constexpr double kWidth = 1.5;
            const QPointF from = At(arrow.From);
            const QPointF to = At(arrow.To);
            QPen pen(look_.Text, kWidth);
            pen.setDashPattern({4, 3});
            painter_.setPen(pen);
            painter_.drawLine(from, to);
            painter_.fillPath(Arrowhead(from, to, kWidth), look_.Text);
        }
    }

    [[nodiscard]] QPointF PlaceOf(const Mark& mark) const
    {
        return {chart_.OwnScales ? AlongRow(mark.At.X, mark.At.Y) : AtX(mark.At.X), AtY(mark.At.Y)};
    }

    [[nodiscard]] bool IsShown(const Mark& mark) const
    {
        return plot_.adjusted(-2, -2, 2, 2).contains(PlaceOf(mark));
    }

    void DrawDot(const Mark& mark)
    {
        if (!IsShown(mark) || EndsABar(mark)) return;
        const QPointF at = PlaceOf(mark);
        if (mark.Diamond)
            DrawDiamond(at, mark.As);
        else
            DrawMark(at, mark.As);
        const double half = IsPicked(mark) ? kRing : 5;
        if (IsPicked(mark)) DrawRing(at, mark.As);
        labels_.Avoid(QRectF(at - QPointF(half, half), QSizeF(2 * half, 2 * half)));
    }

    // Of the marks on rows that share a scale the strong one is the figure that counts.
    [[nodiscard]] bool IsPicked(const Mark& mark) const
    {
        return look_.Of(mark.As).Bold && !mark.Diamond && RowsAcross() && !chart_.OwnScales &&
               std::any_of(chart_.Curves.begin(), chart_.Curves.end(),
                           [](const Series& series) { return series.Kind == SeriesKind::Interval; });
    }

    void DrawRing(const QPointF& at, Role role)
    {
        QPainterPath ring;
        ring.addEllipse(at, kRing - 1, kRing - 1);
        painter_.strokePath(ring, QPen(look_.Ground, 4));
        painter_.strokePath(ring, QPen(look_.Of(role).Stroke, 2));
    }

    void DrawDiamond(const QPointF& at, Role role)
    {
        const RoleLook look = look_.Of(role);
        const QPolygonF diamond({at + QPointF(0, -kDiamond), at + QPointF(kDiamond, 0),
                                 at + QPointF(0, kDiamond), at + QPointF(-kDiamond, 0)});
        painter_.setPen(QPen(look.Stroke, 1.5));
        painter_.setBrush(look.Bold ? look.Stroke : look.Fill);
        painter_.drawPolygon(diamond);
        painter_.setBrush(Qt::NoBrush);
    }

    void NameMark(const Mark& mark)
    {
        if (!IsShown(mark)) return;
        const QPointF at = PlaceOf(mark);
        const QString text = ToQt(mark.Text);
        AddItem(MarkPath(at, MarkForm::Round, 2 * kMarkSize), mark.Tip.empty() ? mark.Text : mark.Tip,
                mark.Id);
        const bool dot = !mark.Diamond && !EndsABar(mark);
        Label label{.Text = text,
                    .As = mark.As,
                    .Candidates = dot            ? labels_.AroundPoint(text, mark.As, at)
                                  : mark.Diamond ? BehindDiamond(text, mark.As, at)
                                                 : BehindBar(text, mark.As, at)};
        if (dot) label.Anchor = at;
        labels_.Add(std::move(label));
    }

    void PlaceNames()
    {
        for (const auto& [series, path] : lines_) {
            if (series->Name.empty() || series->Points.empty()) continue;
            const QString text = NameOf(*series);
            if (series->Points.size() == 1 && plot_.contains(At(series->Points.front()))) {
                labels_.Add(
                    {.Text = text,
                     .As = series->As,
                     .Candidates = labels_.AroundPoint(text, series->As, At(series->Points.front()))});
                continue;
            }
            if (path.elementCount() == 0) continue;
            labels_.Add(
                {.Text = text, .As = series->As, .Candidates = labels_.AlongLine(text, series->As, path)});
        }
    }

    // ---- items ----

    static QPainterPath RectPath(const QRectF& rect)
    {
        QPainterPath path;
        path.addRect(rect);
        return path;
    }

    [[nodiscard]] std::string TipOf(const Series& series, std::size_t i) const
    {
        if (i < series.Tips.size()) return series.Tips[i];
        return series.Name;
    }

    void AddItem(const QPainterPath& shape, const std::string& tip, const std::string& id)
    {
        const QRectF around = shape.boundingRect();
        const bool seen = around.left() <= room_.right() && around.right() >= room_.left() &&
                          around.top() <= room_.bottom() && around.bottom() >= room_.top();
        if ((tip.empty() && id.empty()) || shape.isEmpty() || !seen) return;
        items_.push_back({shape, ToQt(tip), ToQt(id)});
    }

    struct NamedLine {
        const Series* Of;
        QPainterPath Path;
    };

    const Chart& chart_;
    QPainter& painter_;
    QRectF room_;
    const Look& look_;
    QString focus_;
    QFontMetricsF metrics_;
    Labels labels_;
    picture::Range x_;
    picture::Range y_;
    picture::Ticks xTicks_;
    picture::Ticks yTicks_;
    QRectF plot_;
    std::vector<NamedLine> lines_;
    mutable std::map<double, RowScale> scales_;
    std::vector<Item> items_;
};

}  // namespace

ChartView::ChartView(picture::Chart chart) : chart_(std::move(chart))
{
}

const CellSizes& ChartView::Cells(const Look& look)
{
    if (!cells_ || cells_->Of != look.Bold) cells_ = SizesOfCells(chart_, look);
    return *cells_;
}

double ChartView::HeightIn(const QSizeF& room, const Look& look)
{
    return chart_.Cells ? std::min(room.height(), LeastOfCells(chart_, Cells(look)).height()) : room.height();
}

QSizeF ChartView::Least(const Look& look)
{
    if (chart_.Cells) return LeastOfCells(chart_, Cells(look));
    const QFontMetricsF metrics(look.Plain);
    double height = 1.5 * kLeastPlot;
    if (!chart_.Y.Names.empty())
        height = std::max(kRowHeight * static_cast<double>(chart_.Y.Names.size()) + 4 * metrics.height() +
                              LegendHeight(chart_, 2 * kLeastPlot, metrics),
                          kLeastPlot);
    double width = 2 * kLeastPlot;
    if (!chart_.X.Names.empty()) width = std::max(width, 8.0 * static_cast<double>(chart_.X.Names.size()));
    return {width, height};
}

std::vector<Item> ChartView::Paint(QPainter& painter, const QRectF& room, const Look& look)
{
    if (chart_.Cells) return PaintCells(chart_, Cells(look), painter, room, look);
    Sheet sheet(chart_, painter, room, look, focus_);
    std::vector<Item> items = sheet.Paint();
    leftOut_ = sheet.LeftOut();
    const auto isLeft = [](const Item& a, const Item& b) {
        return a.Shape.boundingRect().center().x() < b.Shape.boundingRect().center().x();
    };
    if (!chart_.Start.empty()) std::stable_sort(items.begin(), items.end(), isLeft);
    return items;
}

}  // namespace qt
