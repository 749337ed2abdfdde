// A picture in a window: title, drawing, notes; it scrolls where the window is smaller than the picture's
// smallest size. Each item can be pointed at and reached by keys.
#pragma once

#include <QScrollArea>
#include <memory>
#include <optional>
#include <set>

#include "qt/drawing.h"

namespace qt {

// A picture laid out on a page of some size: what the view, the printer and the saved files paint.
class PicturePage {
public:
    explicit PicturePage(const picture::Picture& picture);

    [[nodiscard]] QSizeF Least(const Look& look, double width);  // all of it readable, notes broken to fit
    std::vector<Item> Paint(QPainter& painter, const QRectF& page, const Look& look);
    // Title and notes are broken at this width where the page is wider: they are read without scrolling.
    void SetTextWidth(double width) { textWidth_ = width; }
    void SetFocus(const QString& id) { drawing_->SetFocus(id); }
    [[nodiscard]] QPointF Start() const;
    [[nodiscard]] int LeftOut() const { return leftOut_; }
    [[nodiscard]] std::pair<int, int> AddedNotes() const { return {leftOut_, tooThin_}; }
    [[nodiscard]] const picture::Picture& Shown() const { return picture_; }

private:
    [[nodiscard]] QStringList Notes() const;
    [[nodiscard]] double NotesHeight(const Look& look, double width) const;
    [[nodiscard]] double TitleHeight(const Look& look, double width) const;
    [[nodiscard]] double TextWidth(double width) const;

    picture::Picture picture_;
    std::unique_ptr<Drawing> drawing_;
    QPointF body_;
    double textWidth_ = 0;  // 0: that of the page
    int leftOut_ = 0;       // labels, of the last painting; the notes tell of them
    int tooThin_ = 0;       // lines, likewise
};

// What is painted, inside of the scroll area.
class PictureCanvas : public QWidget {
    Q_OBJECT

public:
    explicit PictureCanvas(QWidget* parent);

    void SetPicture(const picture::Picture* picture);  // null: none
    void SetMarked(const std::vector<std::string>& ids);
    [[nodiscard]] PicturePage* Page() const { return page_.get(); }
    void FitTo(const QSize& viewport);  // as large as the viewport, or as the picture needs
    const std::vector<Item>& Items();
    [[nodiscard]] std::optional<std::size_t> FocusItem() const { return focus_; }
    [[nodiscard]] QRectF MarkedArea();
    [[nodiscard]] Look ScreenLook() const;
    [[nodiscard]] std::optional<std::size_t> ItemAt(const QPointF& point) const;
    void SetFocusItem(std::size_t item);

signals:
    void FocusMoved(const QRect& area);
    void Dragged(const QPoint& by);
    void MenuWanted(const QPoint& screenPoint);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void MoveFocus(int by);
    void TellFocus();
    [[nodiscard]] std::optional<std::size_t> StartItem() const;
    void TakeNote();
    void DrawFrame(QPainter& painter, const Item& item, bool focus) const;

    std::unique_ptr<PicturePage> page_;
    std::vector<Item> items_;
    std::set<QString> marked_;
    std::optional<std::size_t> focus_;
    QPoint drag_;       // where the mouse was last, on the screen
    int repaints_ = 0;  // that may still follow from a change of the notes
};

class PictureView : public QScrollArea {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent);

    void SetPicture(const picture::Picture* picture);
    void SetMarked(const std::vector<std::string>& ids);
    [[nodiscard]] PictureCanvas& Canvas() { return *canvas_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Fit();

    PictureCanvas* canvas_;
};

}  // namespace qt
