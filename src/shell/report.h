// The report channel: where the full report of a module goes, line by line. A report is written once; the
// printer and the text file are two channels.
#pragma once

#include <string>
#include <string_view>

class ReportChannel {
public:
    virtual ~ReportChannel() = default;
    void Line(std::string_view text = {}) { Write(text); }
    // Only paper has pages; in a text file nothing happens.
    virtual void NewPage() = 0;
    // Where screen and full report, or paper and file, differ in more than page breaks.
    [[nodiscard]] virtual bool OnScreen() const { return false; }
    [[nodiscard]] virtual bool OnPaper() const = 0;

private:
    virtual void Write(std::string_view text) = 0;
};

class PrinterChannel : public ReportChannel {
public:
    void NewPage() override;
    [[nodiscard]] bool OnPaper() const override { return true; }

private:
    void Write(std::string_view text) override;
};

// Gathers the lines, each ended by the platform's line end; Save puts the file in place.
class TextFileChannel : public ReportChannel {
public:
    void NewPage() override {}
    [[nodiscard]] bool OnPaper() const override { return false; }

    [[nodiscard]] const std::string& Text() const { return text_; }
    void Save(const std::string& path) const;  // run-time errors of the disk

private:
    void Write(std::string_view text) override;

    std::string text_;
};
