#include "qt/style.h"

#include <QPainter>

#include "qt/colors.h"

namespace qt {
namespace {

constexpr float kRingShare = 0.6F;  // of the text's colour in that of a ring
constexpr float kBoxShare = 0.4F;   // and in the frame of a text box

// The styles draw rings and the frames of boxes darker than the window: in a dark palette they vanish.
void DrawRing(const QStyleOption& option, QPainter& painter, bool round, float share)
{
    const QPalette& colors = option.palette;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Mixed(colors.color(QPalette::WindowText), colors.color(QPalette::Window), share));
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

// The styles make frames of shades of the ground; a palette for high contrast has none.
bool HasHighContrast(const QPalette& colors)
{
    constexpr double kHigh = 20;
    return Contrast(colors.color(QPalette::Window), colors.color(QPalette::WindowText)) > kHigh;
}

// A window inside the main window keeps the colours of its title bar from when it was made.
QPalette ColorsOfBar(const QStyleOptionTitleBar& bar, const QWidget* widget)
{
    return widget == nullptr ? bar.palette : widget->palette();
}

}  // namespace

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool strong = HasHighContrast(option->palette);
    if (!strong && !IsDark(option->palette)) return;
    const bool focused = option->state.testFlag(State_HasFocus);
    if (element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox)
        DrawRing(*option, *painter, element == PE_IndicatorRadioButton, strong ? 1 : kRingShare);
    else if (element == PE_FrameLineEdit && !focused)
        DrawRing(*option, *painter, false, strong ? 1 : kBoxShare);
    else if (strong && (element == PE_PanelButtonCommand || element == PE_Frame))
        DrawRing(*option, *painter, false, 1);
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
    const QPalette colors = ColorsOfBar(bar, widget);
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
    const QPalette colors = ColorsOfBar(bar, widget);
    const bool under = (bar.activeSubControls & SC_TitleBarCloseButton) != 0;
    if (under) painter.fillRect(button, colors.color(QPalette::Highlight));
    const QRect cross =
        button.adjusted(button.width() / 3, button.height() / 3, -button.width() / 3, -button.height() / 3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.color(under ? QPalette::HighlightedText : QPalette::WindowText), kThickness));
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
