#include "qt/blocktext.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>

namespace qt {
namespace {

constexpr QLatin1Char kTab('\t');
constexpr QLatin1Char kLineEnd('\n');
constexpr QLatin1Char kReturn('\r');
constexpr QLatin1Char kQuote('"');

// Takes a text apart from its first character to its last.
class BlockReader {
public:
    explicit BlockReader(const QString& text) : text_(text) {}

    BlockText Read()
    {
        BlockText block;
        while (at_ < text_.size())
            block.append(ReadRow());
        return block;
    }

private:
    QStringList ReadRow()
    {
        QStringList row;
        for (;;) {
            row.append(IsAt(kQuote, at_) ? ReadQuoted() : ReadPlain());
            if (!Passes(kTab)) break;
        }
        Passes(kReturn);
        Passes(kLineEnd);
        return row;
    }

    [[nodiscard]] bool IsAt(QLatin1Char character, qsizetype place) const
    {
        return place < text_.size() && text_[place] == character;
    }

    bool Passes(QLatin1Char character)
    {
        if (!IsAt(character, at_)) return false;
        ++at_;
        return true;
    }

    [[nodiscard]] bool IsAtEndOfCell() const
    {
        return at_ >= text_.size() || text_[at_] == kTab || text_[at_] == kLineEnd || text_[at_] == kReturn;
    }

    QString ReadPlain()
    {
        const qsizetype begin = at_;
        while (!IsAtEndOfCell())
            ++at_;
        return text_.mid(begin, at_ - begin);
    }

    // A quote that nothing closes is a character like others.
    QString ReadQuoted()
    {
        const qsizetype begin = at_;
        QString cell;
        for (++at_; at_ < text_.size();) {
            if (text_[at_] != kQuote)
                cell += text_[at_++];
            else if (IsAt(kQuote, at_ + 1)) {
                cell += kQuote;
                at_ += 2;
            } else {
                ++at_;
                return cell + ReadPlain();
            }
        }
        at_ = begin;
        return ReadPlain();
    }

    const QString& text_;
    qsizetype at_ = 0;
};

QString Quoted(const QString& cell)
{
    const bool plain = !cell.contains(kTab) && !cell.contains(kLineEnd) && !cell.contains(kReturn) &&
                       !cell.startsWith(kQuote);
    if (plain) return cell;
    QString inside = cell;
    return kQuote + inside.replace(kQuote, QLatin1String("\"\"")) + kQuote;
}

std::string Counted(int count, const std::string& one)
{
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string SizeText(int rows, int columns)
{
    return Counted(rows, "row") + " and " + Counted(columns, "column");
}

}  // namespace

BlockText ReadBlock(const QString& text)
{
    return BlockReader(text).Read();
}

// A row of its own has no line end, so that it can be pasted into a text box.
QString WriteBlock(const BlockText& block)
{
    QString text;
    for (const QStringList& row : block) {
        QStringList cells;
        for (const QString& cell : row)
            cells.append(Quoted(cell));
        text += cells.join(kTab) + kLineEnd;
    }
    if (block.size() == 1 && text.size() > 1) text.chop(1);
    return text;
}

QString WriteHtml(const BlockText& block)
{
    QString html = QStringLiteral("<table>");
    for (const QStringList& row : block) {
        html += QLatin1String("<tr>");
        for (const QString& cell : row)
            html += QLatin1String("<td>") + cell.toHtmlEscaped() + QLatin1String("</td>");
        html += QLatin1String("</tr>");
    }
    return html + QLatin1String("</table>");
}

void PutOnClipboard(const BlockText& block)
{
    auto* copied = new QMimeData;  // the clipboard takes it over
    copied->setText(WriteBlock(block));
    copied->setHtml(WriteHtml(block));
    QGuiApplication::clipboard()->setMimeData(copied);
}

int ColumnsOf(const BlockText& block)
{
    qsizetype columns = 0;
    for (const QStringList& row : block)
        columns = std::max(columns, row.size());
    return static_cast<int>(columns);
}

std::string TooLargeText(const BlockText& block, int rows, int columns)
{
    const int neededRows = static_cast<int>(block.size());
    const int neededColumns = ColumnsOf(block);
    if (neededRows <= rows && neededColumns <= columns) return {};
    return "The clipboard holds " + SizeText(neededRows, neededColumns) +
           ".  From this cell on the table has room for " + SizeText(rows, columns) + ".";
}

}  // namespace qt
