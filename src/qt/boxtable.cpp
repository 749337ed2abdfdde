#include "qt/boxtable.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>

#include "desktop/dialogs.h"
#include "qt/blocktext.h"
#include "qt/fields.h"

namespace qt {
namespace {

class BoxTable : public QObject {
public:
    BoxTable(QWidget* form, std::vector<std::vector<QLineEdit*>> columns)
        : QObject(form), columns_(std::move(columns))
    {
        for (const auto& column : columns_)
            for (QLineEdit* box : column)
                box->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress ||
            !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
            return false;
        const BlockText block = ReadBlock(QGuiApplication::clipboard()->text());
        if (block.size() <= 1 && ColumnsOf(block) <= 1) return false;
        for (std::size_t column = 0; column < columns_.size(); ++column)
            for (std::size_t row = 0; row < columns_[column].size(); ++row)
                if (columns_[column][row] == watched) Paste(block, row, column);
        return true;
    }

private:
    [[nodiscard]] int RowsFrom(std::size_t row, std::size_t column) const
    {
        int rows = 0;
        for (std::size_t i = row; i < columns_[column].size(); ++i)
            rows += columns_[column][i]->isVisible() ? 1 : 0;
        return rows;
    }

    void Paste(const BlockText& block, std::size_t row, std::size_t column) const
    {
        const auto columnsLeft = static_cast<int>(columns_.size() - column);
        if (const std::string told = TooLargeText(block, RowsFrom(row, column), columnsLeft); !told.empty()) {
            MsgBox(told, "Paste");
            return;
        }
        for (std::size_t i = 0; i < static_cast<std::size_t>(block.size()); ++i) {
            const QStringList& texts = block[static_cast<qsizetype>(i)];
            for (std::size_t j = 0; j < static_cast<std::size_t>(texts.size()); ++j)
                if (!Enter(*columns_[column + j][row + i], texts[static_cast<qsizetype>(j)].trimmed()))
                    return;
        }
    }

    // As if it were typed and left with Tab. False: the box has kept the focus.
    static bool Enter(QLineEdit& box, const QString& text)
    {
        SelectBox(&box);
        if (text.isEmpty())
            box.del();
        else
            box.insert(text);
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
        QCoreApplication::sendEvent(&box, &tab);
        return box.window()->focusWidget() != &box;  // its window may not be the active one yet, behind a box
    }

    std::vector<std::vector<QLineEdit*>> columns_;
};

}  // namespace

void TakeBlocks(QWidget* form, std::vector<std::vector<QLineEdit*>> columns)
{
    new BoxTable(form, std::move(columns));  // the form owns it
}

}  // namespace qt
