// How the roles of a picture look: colour, weight, dash and mark, on the screen and on paper.
#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPen>

#include "picture/picture.h"

class QPalette;

namespace qt {

enum class MarkForm { Round, Filled, Open, Triangle };

struct RoleLook {
    QColor Stroke = {};
    QColor Text = {};
    QColor Fill = {};
    double Width = 1.5;
    Qt::PenStyle Style = Qt::SolidLine;
    QList<qreal> Dashes = {};  // in pixels
    MarkForm Mark = MarkForm::Round;
    bool Bold = false;
    bool Hatched = false;
    bool Crossed = false;
};

class Look {
public:
    static Look OnScreen(const QPalette& palette, double dotsPerInch);
    static Look OnPaper();  // black on white, as printed and saved

    QColor Ground;
    QColor Text;
    QColor Quiet;
    QColor Axis;
    QColor Grid;
    QFont Plain;  // 9 point
    QFont Bold;
    QFont Title;  // 10 point, bold
    bool Dark = false;

    [[nodiscard]] RoleLook Of(picture::Role role) const;
    [[nodiscard]] QPen Pen(picture::Role role) const;
    [[nodiscard]] QPen Pen(const RoleLook& look, double width) const;
    [[nodiscard]] const QFont& FontOf(picture::Role role) const;
    // Of an area: its fill, or strokes at 45 degrees in the role's colour.
    [[nodiscard]] QBrush Brush(picture::Role role, bool hatched = false) const;

private:
    Look() = default;
    void MakeFonts(double dotsPerInch);
    void MakeReadable(const QColor& ground, const QColor& text);

    bool ownColors_ = false;  // of a palette with a ground of its own: colours are checked against it
};

}  // namespace qt
