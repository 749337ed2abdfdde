#include "qt/savepicture.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QPrinter>
#ifdef VANTREL_WITH_SVG
#include <QSvgGenerator>
#endif
#include <algorithm>

#include "basic/error.h"
#include "basic/files.h"
#include "qt/pictureview.h"
#include "qt/printerdialog.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr double kWidth = 170;  // mm
constexpr double kMillimetresPerInch = 25.4;
constexpr double kDotsPerInch = 96;  // that a paper look is measured in
constexpr double kPageWidth = kWidth / kMillimetresPerInch * kDotsPerInch;
constexpr double kLeastShare = 0.62;  // height by width of a picture that would be lower
constexpr int kImageScale = 2;

// The page of a picture, in dots of the paper look; a wider one than 170 mm is made smaller as a whole.
class PaperPage {
public:
    explicit PaperPage(const picture::Picture& picture) : page_(picture), look_(Look::OnPaper())
    {
        const QSizeF least = page_.Least(look_, kPageWidth);
        size_ = {std::max(least.width(), kPageWidth), 0};
        const bool diagram = std::holds_alternative<picture::Diagram>(picture.Body);
        size_.setHeight(
            std::max(least.height(), diagram && least.width() > kPageWidth ? 0 : kLeastShare * kPageWidth));
        // Painted once for nobody, so that the notes know what has no place.
        QPicture nobody;
        QPainter painter(&nobody);
        page_.Paint(painter, Area(), look_);
    }

    [[nodiscard]] QRectF Area() const { return {QPointF(), size_}; }
    [[nodiscard]] QSizeF Millimetres() const { return {kWidth, kWidth * size_.height() / size_.width()}; }

    // Into a device whose painted width is so many of its units.
    void Paint(QPainter& painter, double width)
    {
        painter.save();
        painter.scale(width / size_.width(), width / size_.width());
        painter.fillRect(Area(), look_.Ground);
        page_.Paint(painter, Area(), look_);
        painter.restore();
    }

private:
    PicturePage page_;
    Look look_;
    QSizeF size_;
};

void WritePage(QPagedPaintDevice& device, PaperPage& page, double width)
{
    QPainter painter;
    if (!painter.begin(&device)) Raise(ErrorNumber::PathFileAccess);
    page.Paint(painter, width);
    if (!painter.end()) Raise(ErrorNumber::PathFileAccess);
}

std::string Pdf(const picture::Picture& picture)
{
    PaperPage page(picture);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(ToQt(picture.Title));
    writer.setPageLayout(
        QPageLayout(QPageSize(page.Millimetres(), QPageSize::Millimeter, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    WritePage(writer, page, writer.width());
    return buffer.data().toStdString();
}

// In the size that it is saved in, or smaller where the paper is.
void PrintOn(QPagedPaintDevice& device, const picture::Picture& picture)
{
    PaperPage page(picture);
    const double dots = device.logicalDpiX() / kMillimetresPerInch;
    const QSizeF room = device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
    const QSizeF wanted = page.Millimetres() * dots;
    const double scale = std::min({1.0, room.width() / wanted.width(), room.height() / wanted.height()});
    WritePage(device, page, scale * wanted.width());
}

std::string PrintedPdf(const picture::Picture& picture, const QPageLayout& layout)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(ToQt(picture.Title));
    writer.setPageLayout(layout);
    PrintOn(writer, picture);
    return buffer.data().toStdString();
}

#ifdef VANTREL_WITH_SVG
std::string Svg(const picture::Picture& picture)
{
    PaperPage page(picture);
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(ToQt(picture.Title));
    QStringList lines;
    for (const std::string& line : picture::Describe(picture))
        lines.append(ToQt(line));
    generator.setDescription(lines.join(QLatin1Char('\n')));
    generator.setResolution(static_cast<int>(kDotsPerInch));
    const QSizeF size = page.Millimetres() / kMillimetresPerInch * kDotsPerInch;
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(), size));
    QPainter painter(&generator);
    page.Paint(painter, size.width());
    painter.end();
    return buffer.data().toStdString();
}
#endif

std::string Png(const picture::Picture& picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!ImageOf(picture).save(&buffer, "PNG")) Raise(ErrorNumber::PathFileAccess);
    return buffer.data().toStdString();
}

}  // namespace

QImage ImageOf(const picture::Picture& picture)
{
    PaperPage page(picture);
    const QSizeF size = page.Area().size() * (kImageScale * kPageWidth / page.Area().width());
    QImage image(qRound(size.width()), qRound(size.height()), QImage::Format_RGB32);
    constexpr double kMillimetresPerMetre = 1000;
    const int dots = qRound(kImageScale * kDotsPerInch / kMillimetresPerInch * kMillimetresPerMetre);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    image.fill(Qt::white);
    QPainter painter(&image);
    page.Paint(painter, size.width());
    return image;
}

std::string PictureFilter()
{
#ifdef VANTREL_WITH_SVG
    return "SVG File|*.SVG|PDF File|*.PDF|PNG File|*.PNG";
#else
    return "PDF File|*.PDF|PNG File|*.PNG";
#endif
}

void SavePicture(const picture::Picture& picture, const QString& path)
{
    if (path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        ReplaceFile(FromQt(path), Pdf(picture));
        return;
    }
#ifdef VANTREL_WITH_SVG
    if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        ReplaceFile(FromQt(path), Svg(picture));
        return;
    }
#endif
    ReplaceFile(FromQt(path), Png(picture));
}

void PrintPicture(const picture::Picture& picture)
{
    QPrinter printer(QPrinter::HighResolution);
    if (!AskPrinter(printer)) return;
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        ReplaceFile(FromQt(printer.outputFileName()), PrintedPdf(picture, printer.pageLayout()));
        return;
    }
    PrintOn(printer, picture);
    if (printer.printerState() == QPrinter::Error) Raise(ErrorNumber::PathFileAccess);
}

}  // namespace qt
