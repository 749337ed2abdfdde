#include "qt/printer.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "basic/error.h"
#include "basic/records.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kColumns = 80;
constexpr double kPointsPerInch = 72;
constexpr double kSideMargin = 7;  // points; 80 columns of 12 point type are 576 points of A4's 595
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

}  // namespace

QtPrinter::QtPrinter() = default;

QtPrinter::~QtPrinter()
{
    GiveUpDocument();
}

bool QtPrinter::Ask()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("DialogPrinter"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile);
    if (dialog.exec() != QDialog::Accepted) return false;
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
    if (!painter_.isActive()) return;
    if (auto* printer = dynamic_cast<QPrinter*>(device_.get())) printer->abort();
    painter_.end();
}

void QtPrinter::Begin(std::string_view fontName, int pointSize)
{
    if (device_ == nullptr) Raise(ErrorNumber::InvalidProcedureCall);
    GiveUpDocument();
    pdf_.close();
    pdf_.open(QIODevice::WriteOnly | QIODevice::Truncate);
    SetMargins(*device_);
    if (!painter_.begin(device_.get())) Raise(ErrorNumber::PathFileAccess);
    const QFont font = FittingFont(fontName, pointSize, *device_);
    painter_.setFont(font);
    const QRectF page = PrintedArea(*device_);
    typeSize_ = font.pointSizeF() * device_->logicalDpiY() / kPointsPerInch;
    pageHeight_ = page.height();
    columns_ = qMax<qsizetype>(kColumns, static_cast<qsizetype>(page.width() / PitchOf(font, *device_)));
    top_ = 0;
}

// A line that is longer than the page is wide goes on below: nothing is cut.
void QtPrinter::Line(std::string_view text)
{
    QString rest = ToQt(text);
    do {
        PutLine(rest.left(columns_));
        rest = rest.mid(columns_);
    } while (!rest.isEmpty());
}

void QtPrinter::PutLine(const QString& text)
{
    const double lineHeight = kLineSpacing * typeSize_;
    if (top_ + lineHeight > pageHeight_) NewPage();
    painter_.drawText(QPointF(0, top_ + kBaseline * typeSize_), text);
    top_ += lineHeight;
}

void QtPrinter::NewPage()
{
    if (!device_->newPage()) Raise(ErrorNumber::PathFileAccess);
    top_ = 0;
}

void QtPrinter::EndDoc()
{
    const bool ended = painter_.end();
    const auto* printer = dynamic_cast<const QPrinter*>(device_.get());
    const bool failed = !ended || (printer != nullptr && printer->printerState() == QPrinter::Error);
    device_.reset();
    if (failed) Raise(ErrorNumber::PathFileAccess);
    if (!pdfPath_.isEmpty()) ReplaceFile(FromQt(pdfPath_), pdf_.data().toStdString());
}

}  // namespace qt
