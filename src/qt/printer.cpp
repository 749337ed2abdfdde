#include "qt/printer.h"

#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <utility>

#include "basic/error.h"
#include "basic/files.h"
#include "qt/printerdialog.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kColumns = 80;  // always fit, whatever the paper
constexpr int kLines = 56;    // the longest page that a report counts up
constexpr double kPointsPerInch = 72;
constexpr double kSideMargin = 7;         // points; 80 columns of 12 point type are 576 points of A4's 595
constexpr double kWantedSideMargin = 36;  // half an inch, which leaves room for 72 columns
constexpr double kTopMargin = 36;
constexpr double kLineSpacing = 1.15;  // of the type size, whatever font stands in for a missing one
constexpr double kBaseline = 0.85;

// A printer that cannot print so near to the edge keeps its own margin.
void SetMargins(QPagedPaintDevice& printer)
{
    QPageLayout layout = printer.pageLayout();
    layout.setUnits(QPageLayout::Point);
    const QMarginsF least = layout.minimumMargins();
    layout.setMargins({qMax(kSideMargin, least.left()), qMax(kTopMargin, least.top()),
                       qMax(kSideMargin, least.right()), qMax(kTopMargin, least.bottom())});
    printer.setPageLayout(layout);
}

QFont FixedFont(std::string_view name, double points)
{
    QFont font(ToQt(name));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(points);
    return font;
}

double PitchOf(const QFont& font, QPagedPaintDevice& printer)
{
    return QFontMetricsF(font, &printer).horizontalAdvance(QLatin1Char('0'));
}

// In device dots.
QRectF PrintedArea(const QPagedPaintDevice& printer)
{
    return printer.pageLayout().paintRectPixels(printer.logicalDpiX());
}

// The font in the size that was asked for, or smaller where 80 columns would not fit the page.
QFont FittingFont(std::string_view name, int points, QPagedPaintDevice& printer)
{
    const double width = PrintedArea(printer).width();
    QFont font = FixedFont(name, points);
    const double needed = kColumns * PitchOf(font, printer);
    if (needed > width) font = FixedFont(name, points * width / needed);
    while (kColumns * PitchOf(font, printer) > width && font.pointSizeF() > 4)
        font.setPointSizeF(font.pointSizeF() - 0.1);
    return font;
}

// How a document stands on its sheets, in device dots.
struct Sheet {
    double Left = 0;
    double LineHeight = 0;
    double TypeSize = 0;
    int Lines = 0;
    qsizetype Columns = 0;
};

// The lines stand closer where the usual spacing would not let the longest page on the paper, but never so
// close that they touch.
double LineHeight(double typeSize, double pageHeight)
{
    return qMax(typeSize, qMin(kLineSpacing * typeSize, pageHeight / kLines));
}

// A narrow report has wide margins; a wide one stands in the middle of what is left.
Sheet LayOut(const QFont& font, QPagedPaintDevice& printer, qsizetype widest)
{
    constexpr double kRounding = 1e-6;
    const QRectF area = PrintedArea(printer);
    const double pitch = PitchOf(font, printer);
    const double dots = printer.logicalDpiX() / kPointsPerInch;
    Sheet sheet;
    sheet.TypeSize = font.pointSizeF() * printer.logicalDpiY() / kPointsPerInch;
    sheet.LineHeight = LineHeight(sheet.TypeSize, area.height());
    sheet.Lines = qMax(1, static_cast<int>(area.height() / sheet.LineHeight + kRounding));
    sheet.Columns = qMax<qsizetype>(kColumns, static_cast<qsizetype>(area.width() / pitch));
    const double text = pitch * static_cast<double>(qMin(widest, sheet.Columns));
    const double wanted = kWantedSideMargin * dots - area.left();
    sheet.Left = qBound(0.0, qMin(wanted, (area.width() - text) / 2), area.width());
    return sheet;
}

qsizetype WidthOf(const QString& line)
{
    qsizetype width = line.size();
    while (width > 0 && line[width - 1] == QLatin1Char(' '))
        --width;
    return width;
}

qsizetype WidestOf(const std::vector<QStringList>& pages)
{
    qsizetype widest = 0;
    for (const QStringList& page : pages)
        for (const QString& line : page)
            widest = qMax(widest, WidthOf(line));
    return widest;
}

// A line that is longer than the page is wide goes on below: nothing is cut.
QStringList Broken(const QStringList& lines, qsizetype columns)
{
    QStringList pieces;
    for (QString rest : lines) {
        for (; rest.size() > columns; rest = rest.mid(columns))
            pieces.append(rest.left(columns));
        pieces.append(rest);
    }
    return pieces;
}

}  // namespace

QtPrinter::QtPrinter() = default;

QtPrinter::~QtPrinter() = default;

bool QtPrinter::Ask()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!AskPrinter(*printer)) return false;
    if (printer->outputFormat() == QPrinter::PdfFormat) {
        PrintToFile(printer->outputFileName(), printer->pageLayout());
        return true;
    }
    GiveUpDocument();
    device_ = std::move(printer);
    pdfPath_.clear();
    return true;
}

void QtPrinter::PrintToFile(const QString& path, const QPageLayout& layout)
{
    GiveUpDocument();
    device_ = std::make_unique<QPdfWriter>(&pdf_);
    device_->setPageLayout(layout);
    pdfPath_ = path;
}

void QtPrinter::GiveUpDocument()
{
    pages_.clear();
    breakWaits_ = false;
    open_ = false;
}

void QtPrinter::Begin(std::string_view fontName, int pointSize)
{
    if (device_ == nullptr) Raise(ErrorNumber::InvalidProcedureCall);
    GiveUpDocument();
    SetMargins(*device_);
    font_ = FittingFont(fontName, pointSize, *device_);
    pages_.emplace_back();
    open_ = true;
}

void QtPrinter::Line(std::string_view text)
{
    if (!open_) Raise(ErrorNumber::InvalidProcedureCall);
    if (std::exchange(breakWaits_, false)) pages_.emplace_back();
    pages_.back().append(ToQt(text));
}

void QtPrinter::NewPage()
{
    if (!open_) Raise(ErrorNumber::InvalidProcedureCall);
    breakWaits_ = true;
}

void QtPrinter::PrintPages(QPainter& painter)
{
    const Sheet sheet = LayOut(font_, *device_, WidestOf(pages_));
    painter.setFont(font_);
    bool first = true;
    for (const Page& page : pages_) {
        int row = sheet.Lines;  // each page begins a sheet
        for (const QString& line : Broken(page, sheet.Columns)) {
            if (row == sheet.Lines) {
                if (!std::exchange(first, false) && !device_->newPage()) Raise(ErrorNumber::PathFileAccess);
                row = 0;
            }
            const double top = row++ * sheet.LineHeight;
            painter.drawText(QPointF(sheet.Left, top + kBaseline * sheet.TypeSize), line);
        }
    }
}

void QtPrinter::EndDoc()
{
    if (!open_) Raise(ErrorNumber::InvalidProcedureCall);
    pdf_.close();
    pdf_.open(QIODevice::WriteOnly | QIODevice::Truncate);
    QPainter painter;
    if (!painter.begin(device_.get())) Raise(ErrorNumber::PathFileAccess);
    PrintPages(painter);
    const bool ended = painter.end();
    const auto* printer = dynamic_cast<const QPrinter*>(device_.get());
    const bool failed = !ended || (printer != nullptr && printer->printerState() == QPrinter::Error);
    GiveUpDocument();
    device_.reset();
    if (failed) Raise(ErrorNumber::PathFileAccess);
    if (!pdfPath_.isEmpty()) ReplaceFile(FromQt(pdfPath_), pdf_.data().toStdString());
}

}  // namespace qt
