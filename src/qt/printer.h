// The printer of the platform, or a PDF file in its place.
#pragma once

#include <QBuffer>
#include <QFont>
#include <QPainter>
#include <memory>

#include "desktop/printer.h"

class QPageLayout;
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
    void PutLine(const QString& text);
    void GiveUpDocument();  // one that an error has left unfinished

    QString pdfPath_;  // empty for a printer
    QBuffer pdf_;
    std::unique_ptr<QPagedPaintDevice> device_;  // a printer, or the writer of pdf_
    QPainter painter_;
    double typeSize_ = 0;  // in device dots, like the two below
    double pageHeight_ = 0;
    double top_ = 0;         // of the next line
    qsizetype columns_ = 0;  // characters that fit on a line
};

}  // namespace qt
