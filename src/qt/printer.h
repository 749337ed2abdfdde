// The printer of the platform, or a PDF file in its place.
#pragma once

#include <QBuffer>
#include <QFont>
#include <QStringList>
#include <memory>
#include <vector>

#include "desktop/printer.h"

class QPageLayout;
class QPainter;
class QPagedPaintDevice;

namespace qt {

class QtPrinter : public Printer {
public:
    QtPrinter();
    ~QtPrinter() override;
    QtPrinter(const QtPrinter&) = delete;
    QtPrinter& operator=(const QtPrinter&) = delete;

    bool Ask() override;
    void Begin(std::string_view fontName, int pointSize) override;
    void Line(std::string_view text) override;
    void NewPage() override;
    void EndDoc() override;

    // Prints to this PDF file from now on, without a dialog. The file is written when the document is whole,
    // and the old one stays where that fails.
    void PrintToFile(const QString& path, const QPageLayout& layout);

private:
    using Page = QStringList;

    void GiveUpDocument();  // one that an error has left unfinished
    void PrintPages(QPainter& painter);

    QString pdfPath_;  // empty for a printer
    QBuffer pdf_;
    std::unique_ptr<QPagedPaintDevice> device_;  // a printer, or the writer of pdf_
    QFont font_;
    std::vector<Page> pages_;  // the margins depend on the widest line of all
    bool breakWaits_ = false;  // a break with nothing behind it makes no sheet
    bool open_ = false;        // a document has been begun and not yet ended
};

}  // namespace qt
