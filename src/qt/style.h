// What the desktop's own style leaves to be wished: indicators that can be seen in every palette, flat title
// bars inside the main window, buttons without icons everywhere.
#pragma once

#include <QProxyStyle>
#include <QStyleOption>

namespace qt {

class Style : public QProxyStyle {
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

private:
    void DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
    void DrawCloseButton(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace qt
