#include "qt/besidesplitter.h"

#include <QMainWindow>
#include <QShortcut>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>

#include "desktop/desktop.h"

namespace qt {
namespace {

constexpr int kLeastProblem = 420;  // width that a problem keeps
constexpr int kMostBesideProblem = 480;
constexpr int kNoLimit = 1 << 20;

}  // namespace

BesideSplitter::BesideSplitter(QWidget* inside, QMainWindow* window)
    : QSplitter(Qt::Horizontal), window_(window), pane_(new SidePane(this)), button_(new QToolButton)
{
    setChildrenCollapsible(false);
    addWidget(inside);
    addWidget(pane_);
    pane_->setObjectName(QStringLiteral("paneBeside"));
    pane_->hide();
    MakeButton();
    MakeKeys();
    connect(this, &QSplitter::splitterMoved, this, [this] { chosenWidth_ = pane_->width(); });
}

void BesideSplitter::MakeButton()
{
    button_->setObjectName(QStringLiteral("cmdBeside"));
    button_->setAutoRaise(true);
    button_->setFocusPolicy(Qt::NoFocus);
    button_->hide();
    window_->statusBar()->addPermanentWidget(button_);
    connect(button_, &QToolButton::clicked, this, [this] { Toggle(); });
}

void BesideSplitter::MakeKeys()
{
    const auto key = [this](const QKeySequence& keys, QWidget* where, Qt::ShortcutContext context, auto run) {
        auto* made = new QShortcut(keys, where);
        made->setContext(context);
        connect(made, &QShortcut::activated, this, run);
    };
    key(Qt::Key_F6, window_, Qt::WindowShortcut, [this] { MoveFocus(); });
    key(Qt::CTRL | Qt::Key_Tab, pane_, Qt::WidgetWithChildrenShortcut, [this] { pane_->NextTab(1); });
    key(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, pane_, Qt::WidgetWithChildrenShortcut,
        [this] { pane_->NextTab(-1); });
}

void BesideSplitter::ShowBesideReport(PaneSources sources, int reportWidth)
{
    insideWidth_ = reportWidth;
    mostWidth_ = kNoLimit;
    pane_->SetSources(std::move(sources));
    Arrange();
}

void BesideSplitter::ShowBesideProblem(PaneSources sources)
{
    insideWidth_ = kLeastProblem;
    mostWidth_ = kMostBesideProblem;
    pane_->SetSources(std::move(sources));
    const bool pictures = !pane_->Pictures().empty();
    const bool steps = !pane_->Steps().empty();
    const bool meaning = !pane_->Meaning().empty();
    if (!pictures && !steps && !meaning) pane_->Clear();
    Arrange();
}

void BesideSplitter::Remove()
{
    if (HasFocusInPane()) desktop::TheForms().FocusMenu();
    pane_->Clear();
    Arrange();
}

bool BesideSplitter::HasFocusInPane() const
{
    const QWidget* focus = window_->focusWidget();
    return focus != nullptr && pane_->isAncestorOf(focus) && focus->hasFocus();
}

bool BesideSplitter::FitsBoth() const
{
    return width() >= insideWidth_ + handleWidth() + SidePane::kLeastWidth;
}

void BesideSplitter::Arrange()
{
    const bool filled = pane_->HasSources();
    const bool open = filled && (choice_ == Choice::Open || (choice_ == Choice::AsFits && FitsBoth()));
    button_->setVisible(filled);
    button_->setText(open ? tr("Beside \u25B8") : tr("\u25C2 Beside"));
    button_->setToolTip(open ? tr("Folds away what stands beside the report. F6 moves into it and back.")
                             : tr("Shows what stands beside the report: picture, steps and meaning."));
    button_->setAccessibleName(open ? tr("Fold the side pane away") : tr("Show the side pane"));
    pane_->setVisible(open);
    if (!open) return;
    const int room = width() - handleWidth();
    int wanted = std::min(room - insideWidth_, mostWidth_);
    if (chosenWidth_ > 0) wanted = std::min(chosenWidth_, wanted);
    wanted = std::max(wanted, SidePane::kLeastWidth);
    setSizes({room - wanted, wanted});
}

void BesideSplitter::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    if (pane_->HasSources()) Arrange();
}

void BesideSplitter::Toggle()
{
    const bool open = pane_->isVisible();
    if (open && HasFocusInPane()) desktop::TheForms().FocusMenu();
    choice_ = open ? Choice::Folded : FitsBoth() ? Choice::AsFits : Choice::Open;
    Arrange();
}

void BesideSplitter::MoveFocus()
{
    if (!pane_->HasSources()) return;
    if (HasFocusInPane()) {
        desktop::TheForms().FocusMenu();
        return;
    }
    if (!pane_->isVisible()) Toggle();
    pane_->TakeFocus();
}

}  // namespace qt
