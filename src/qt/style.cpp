#include "qt/style.h"

#include <QPainter>

#include "qt/colors.h"

namespace qt {
namespace {

constexpr float kRingShare = 0.6F;  // of the text's colour in that of a ring

// The styles draw rings darker than the window: in a dark palette they vanish.
void DrawRing(const QStyleOption& option, QPainter& painter, bool round)
{
    const QPalette& colors = option.palette;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Mixed(colors.color(QPalette::WindowText), colors.color(QPalette::Window), kRingShare));
    const QRectF ring = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    constexpr double kCorner = 2;
    if (round)
        painter.drawEllipse(ring);
    else
        painter.drawRoundedRect(ring, kCorner, kCorner);
    painter.restore();
}

bool IsDark(const QPalette& colors)
{
    return colors.color(QPalette::Window).lightness() < colors.color(QPalette::WindowText).lightness();
}

}  // namespace

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorRadioButton && element != PE_IndicatorCheckBox) return;
    if (IsDark(option->palette)) DrawRing(*option, *painter, element == PE_IndicatorRadioButton);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control == CC_TitleBar && bar != nullptr)
        DrawTitleBar(*bar, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void Style::DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const
{
    const QPalette& colors = bar.palette;
    painter.fillRect(bar.rect, colors.color(QPalette::Window));
    painter.setPen(Mixed(colors.color(QPalette::WindowText), colors.color(QPalette::Window), 0.2F));
    painter.drawLine(bar.rect.bottomLeft(), bar.rect.bottomRight());
    painter.setPen(colors.color(QPalette::WindowText));
    painter.drawText(proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget),
                     Qt::AlignCenter | Qt::TextSingleLine, bar.text.trimmed());
    if ((bar.titleBarFlags & Qt::WindowCloseButtonHint) != 0) DrawCloseButton(bar, painter, widget);
}

void Style::DrawCloseButton(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const
{
    constexpr double kThickness = 1.5;
    const QRect button = proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarCloseButton, widget);
    if (!button.isValid()) return;
    const bool under = (bar.activeSubControls & SC_TitleBarCloseButton) != 0;
    if (under) painter.fillRect(button, bar.palette.color(QPalette::Highlight));
    const QRect cross =
        button.adjusted(button.width() / 3, button.height() / 3, -button.width() / 3, -button.height() / 3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(bar.palette.color(under ? QPalette::HighlightedText : QPalette::WindowText), kThickness));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
    painter.restore();
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace qt
