#include "qt/sidepane.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimerEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <chrono>

#include "basic/error.h"
#include "basic/files.h"
#include "desktop/desktop.h"
#include "qt/fields.h"
#include "qt/pictureview.h"
#include "qt/savepicture.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kOpinionPoll = 50;  // milliseconds

enum Tab { kPictureTab, kStepsTab, kMeaningTab };

// A result that cannot be shown has no contents; the report stands all the same.
template <typename T>
std::vector<T> Made(const std::function<std::vector<T>()>& source)
{
    if (!source) return {};
    try {
        return source();
    } catch (const RuntimeError&) {
        return {};
    }
}

QFont FixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setPointSize(9);
    return font;
}

// A text over several lines that is never cut off.
class WholeText : public QLabel {
public:
    WholeText()
    {
        setWordWrap(true);
        setTextFormat(Qt::PlainText);
    }

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        return {QLabel::minimumSizeHint().width(), heightForWidth(width())};
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QLabel::resizeEvent(event);
        if (event->oldSize().width() != width()) updateGeometry();
    }
};

}  // namespace

SidePane::SidePane(QWidget* parent) : QWidget(parent)
{
    setMinimumWidth(kLeastWidth);
}

void SidePane::Build()
{
    if (tabs_ != nullptr) return;
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    tabs_ = new QTabWidget;
    tabs_->setFocusPolicy(Qt::NoFocus);
    tabs_->tabBar()->setFocusPolicy(Qt::ClickFocus);
    tabs_->setDocumentMode(true);
    tabs_->addTab(MakePicturePage(), tr("Picture"));
    tabs_->addTab(MakeStepsPage(), tr("Steps"));
    tabs_->addTab(MakeMeaningPage(), tr("Meaning"));
    page->addWidget(tabs_);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { Look(); });
    ConnectMenu(*view_);
    ConnectMenu(*stepView_);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { ShowStepsMenu(list_->viewport()->mapToGlobal(at)); });
}

SidePane::~SidePane()
{
    DropOpinion();
    for (auto& [thread, run] : threads_)
        thread.join();
}

// ---- menus ----

void SidePane::ConnectMenu(PictureView& view)
{
    connect(&view.Canvas(), &PictureCanvas::MenuWanted, this,
            [this, &view](const QPoint& at) { ShowPictureMenu(view, at); });
    auto* copy = new QShortcut(QKeySequence::Copy, &view.Canvas());
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [&view] {
        if (const PicturePage* page = view.Canvas().Page())
            QApplication::clipboard()->setImage(ImageOf(page->Shown()));
    });
}

void SidePane::ShowPictureMenu(PictureView& view, const QPoint& at)
{
    const PicturePage* page = view.Canvas().Page();
    if (page == nullptr) return;
    const picture::Picture picture = page->Shown();
    QMenu menu(this);
    menu.addAction(tr("&Copy"), &menu, [&picture] { QApplication::clipboard()->setImage(ImageOf(picture)); })
        ->setShortcut(QKeySequence::Copy);
    menu.addAction(tr("&Save Picture As..."), &menu, [&] { SavePictureAs(picture); });
    menu.addAction(tr("&Print Picture..."), &menu, [&] { Trap([&] { PrintPicture(picture); }); });
    menu.exec(at);
}

void SidePane::ShowStepsMenu(const QPoint& at)
{
    if (Steps().empty()) return;
    QMenu menu(this);
    menu.addAction(tr("&Copy"), &menu, [this] {
        const int row = list_->currentRow();
        if (row >= 0) CopyText(TextOfStep(Steps()[static_cast<std::size_t>(row)]));
    });
    menu.addAction(tr("&Save Steps As..."), &menu, [this] { SaveStepsAs(); });
    menu.exec(at);
}

void SidePane::SavePictureAs(const picture::Picture& picture)
{
    Trap([&] {
        const auto path = desktop::TheDialogs().AskFile({.Saving = true,
                                                         .Title = "Save Picture As",
                                                         .Extension = PictureFilter().substr(0, 3),
                                                         .Filter = PictureFilter(),
                                                         .Folder = folder_ ? folder_() : std::string()});
        if (path) SavePicture(picture, ToQt(*path));
    });
}

void SidePane::SaveStepsAs()
{
    Trap([&] {
        const auto path = desktop::TheDialogs().AskFile({.Saving = true,
                                                         .Title = "Save Steps As",
                                                         .Extension = "TXT",
                                                         .Filter = "Text File|*.TXT|All Files (*.*)|*.*",
                                                         .Folder = folder_ ? folder_() : std::string()});
        if (!path) return;
        QString text;
        for (const picture::Step& step : Steps())
            text += TextOfStep(step) + QLatin1Char('\n');
        ReplaceFile(*path, FromQt(text));
    });
}

void SidePane::CopyText(const QString& text)
{
    QApplication::clipboard()->setText(text);
}

QString SidePane::TextOfStep(const picture::Step& step) const
{
    QStringList lines{ToQt(step.Heading)};
    for (const auto* part : {&step.Figures, &step.Arithmetic})
        for (const std::string& line : *part)
            lines.append(ToQt(line));
    if (!step.Why.empty()) lines.append(ToQt(step.Why));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

// ---- contents ----

QWidget* SidePane::MakePicturePage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    buttonRow_ = new QWidget;
    buttons_ = new QHBoxLayout(buttonRow_);
    buttons_->setContentsMargins(6, 4, 6, 2);
    buttons_->setSpacing(4);
    group_ = new QButtonGroup(this);
    connect(group_, &QButtonGroup::idClicked, this,
            [this](int id) { ShowPicture(static_cast<std::size_t>(id)); });
    layout->addWidget(buttonRow_);
    view_ = new PictureView(page);
    layout->addWidget(view_, 1);
    return page;
}

QWidget* SidePane::MakeStepsPage()
{
    stepParts_ = new QSplitter(Qt::Vertical);
    auto* parts = stepParts_;
    parts->setChildrenCollapsible(false);
    connect(parts, &QSplitter::splitterMoved, this, [this] { partedByHand_ = true; });
    list_ = new QListWidget;
    list_->setFocusPolicy(Qt::ClickFocus);
    list_->setAccessibleName(tr("Steps"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setWordWrap(true);  // a heading is read whole, without a scroll bar below the list
    list_->setTextElideMode(Qt::ElideNone);
    list_->setResizeMode(QListView::Adjust);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { ShowStep(row); });
    parts->addWidget(list_);

    auto* details = new QWidget;
    auto* layout = new QVBoxLayout(details);
    layout->setContentsMargins(6, 4, 6, 4);
    why_ = new WholeText;
    layout->addWidget(why_);
    figures_ = new QPlainTextEdit;
    figures_->setReadOnly(true);
    figures_->setFocusPolicy(Qt::ClickFocus);
    figures_->setLineWrapMode(QPlainTextEdit::NoWrap);
    figures_->setFont(FixedFont());
    figures_->setAccessibleName(tr("Figures of the step"));
    layout->addWidget(figures_, 1);
    arithmetic_ = new QToolButton;
    arithmetic_->setObjectName(QStringLiteral("cmdArithmetic"));
    arithmetic_->setText(tr("Arithmetic"));
    arithmetic_->setCheckable(true);
    arithmetic_->setFocusPolicy(Qt::ClickFocus);
    connect(arithmetic_, &QToolButton::toggled, this, [this] { ShowStep(list_->currentRow()); });
    layout->addWidget(arithmetic_);
    parts->addWidget(details);

    stepView_ = new PictureView(parts);
    stepView_->hide();
    parts->addWidget(stepView_);
    parts->setStretchFactor(0, 2);
    parts->setStretchFactor(1, 3);
    parts->setStretchFactor(2, 4);
    auto* page = new QScrollArea;  // in a window too low for all of them
    page->setFrameShape(QFrame::NoFrame);
    page->setFocusPolicy(Qt::NoFocus);
    page->setWidgetResizable(true);
    page->setWidget(parts);
    return page;
}

QWidget* SidePane::MakeMeaningPage()
{
    meaningText_ = new QTextEdit;
    meaningText_->setReadOnly(true);
    meaningText_->setFocusPolicy(Qt::ClickFocus);
    meaningText_->setFrameShape(QFrame::NoFrame);
    meaningText_->setAccessibleName(tr("Meaning"));
    return meaningText_;
}

void SidePane::SetSources(PaneSources sources)
{
    sources_ = std::move(sources);
    pictures_.reset();
    steps_.reset();
    meaning_.reset();
    DropOpinion();
    asked_ = false;
    for (bool& filled : filled_)
        filled = false;
    if (tabs_ != nullptr) {
        view_->SetPicture(nullptr);
        stepView_->SetPicture(nullptr);
    }
    if (isVisible()) Look();
}

void SidePane::Clear()
{
    SetSources({});
    look_.stop();
    hide();
}

const std::vector<picture::Picture>& SidePane::Pictures()
{
    if (!pictures_) pictures_ = Made(sources_.Pictures);
    return *pictures_;
}

const std::vector<picture::Step>& SidePane::Steps()
{
    if (!steps_) steps_ = picture::Kept(Made(sources_.Steps));
    return *steps_;
}

const std::vector<picture::Sentence>& SidePane::Meaning()
{
    if (!meaning_) meaning_ = Made(sources_.Meaning);
    return *meaning_;
}

const std::vector<picture::Sentence>& SidePane::WholeMeaning()
{
    Meaning();
    AskOpinion();
    while (opinion_ && !opinion_->Done)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    TellOpinion();
    return *meaning_;
}

void SidePane::DropOpinion()
{
    wait_.stop();
    if (opinion_) opinion_->Stop.request_stop();
    opinion_.reset();
}

void SidePane::AskOpinion()
{
    if (asked_ || !sources_.Opinion) return;
    asked_ = true;
    auto inquiry = sources_.Opinion();
    if (!inquiry) return;
    for (auto& [thread, run] : threads_)
        if (run->Done && thread.joinable()) thread.join();
    std::erase_if(threads_, [](const auto& old) { return !old.first.joinable(); });
    opinion_ = std::make_shared<BesideRun>();
    threads_.emplace_back(std::thread([run = opinion_, inquiry = std::move(inquiry)] {
                              try {
                                  run->Tell = inquiry(run->Stop.get_token());
                              } catch (const RuntimeError&) {
                                  run->Tell = {};  // nothing came of it
                              }
                              run->Done = true;
                          }),
                          opinion_);
    wait_.start(kOpinionPoll, this);
}

void SidePane::TellOpinion()
{
    if (!opinion_ || !opinion_->Done) return;
    wait_.stop();
    const std::vector<picture::Sentence> told = Made(opinion_->Tell);
    meaning_->insert(meaning_->end(), told.begin(), told.end());
    opinion_.reset();
    if (filled_.at(kMeaningTab)) ShowMeaning();
}

void SidePane::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Look();
}

// A timer comes behind what is waiting to be painted: the report is on the screen first.
void SidePane::Look()
{
    if (HasSources()) look_.start(0, this);
}

void SidePane::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == wait_.timerId()) TellOpinion();
    if (event->timerId() != look_.timerId()) return;
    look_.stop();
    if (isVisible() && HasSources()) FillTab();
}

void SidePane::FillTab()
{
    Build();
    const int tab = tabs_->currentIndex();
    if (tab < 0 || filled_.at(static_cast<std::size_t>(tab))) return;
    filled_.at(static_cast<std::size_t>(tab)) = true;
    if (tab == kPictureTab) FillPictures();
    if (tab == kStepsTab) FillSteps();
    if (tab == kMeaningTab) FillMeaning();
}

void SidePane::FillPictures()
{
    for (QAbstractButton* button : group_->buttons())
        delete button;
    while (QLayoutItem* item = buttons_->takeAt(0))
        delete item;
    int id = 0;
    for (const picture::Picture& picture : Pictures()) {
        auto* button = new QToolButton;
        button->setObjectName(QStringLiteral("cmdPicture(%1)").arg(id));
        button->setText(ToQt(picture.Title));
        button->setCheckable(true);
        button->setFocusPolicy(Qt::ClickFocus);
        button->setAutoRaise(true);
        group_->addButton(button, id++);
        buttons_->addWidget(button);
    }
    buttons_->addStretch(1);
    buttonRow_->setVisible(id > 1);
    if (id > 0) group_->button(0)->setChecked(true);
    ShowPicture(0);
}

void SidePane::ShowPicture(std::size_t number)
{
    view_->SetPicture(number < Pictures().size() ? &Pictures()[number] : nullptr);
}

void SidePane::FillSteps()
{
    list_->clear();
    int number = 0;
    for (const picture::Step& step : Steps())
        list_->addItem(QString::number(++number) + QLatin1String(". ") + ToQt(step.Heading));
    stepView_->hide();
    ShareHeight();
    if (number > 0) list_->setCurrentRow(0);
    if (number == 0) ShowStep(-1);
}

// The list has no more than its steps need, a picture about half; as the user parts them, so they stay.
void SidePane::ShareHeight()
{
    if (partedByHand_) return;
    constexpr int kFrame = 4;
    const bool pictured = !stepView_->isHidden();
    const int part = stepParts_->height() / 10;
    const int most = (pictured ? 2 : 4) * part;
    int rows = kFrame;
    for (int row = 0; row < list_->count() && rows < most; ++row)
        rows += list_->visualItemRect(list_->item(row)).height();
    const int list = std::min(rows, most);
    const int details = pictured ? 3 * part : stepParts_->height() - list;
    stepParts_->setSizes({list, details, stepParts_->height() - list - details});
}

void SidePane::ShowStep(int row)
{
    if (row < 0 || static_cast<std::size_t>(row) >= Steps().size()) {
        why_->clear();
        figures_->clear();
        arithmetic_->hide();
        stepView_->hide();
        return;
    }
    const picture::Step& step = Steps()[static_cast<std::size_t>(row)];
    why_->setText(ToQt(step.Why));
    QStringList lines;
    for (const std::string& line : step.Figures)
        lines.append(ToQt(line));
    arithmetic_->setVisible(!step.Arithmetic.empty());
    if (arithmetic_->isChecked())
        for (const std::string& line : step.Arithmetic)
            lines.append(ToQt(line));
    figures_->setPlainText(lines.join(QLatin1Char('\n')));
    figures_->setVisible(!lines.isEmpty());
    ShowStepPicture(step);
}

// The picture that the step belongs to, with its part marked; it takes the lower half.
void SidePane::ShowStepPicture(const picture::Step& step)
{
    const picture::Picture* shown = nullptr;
    if (!step.Picture.empty())
        for (const picture::Picture& picture : Pictures())
            if (picture.Title == step.Picture) shown = &picture;
    if (stepView_->isHidden() != (shown == nullptr)) {
        stepView_->setVisible(shown != nullptr);
        ShareHeight();
    }
    if (shown == nullptr) return;
    stepView_->SetPicture(shown);
    stepView_->SetMarked(step.Marks);
}

void SidePane::FillMeaning()
{
    Meaning();
    ShowMeaning();
    AskOpinion();
}

void SidePane::ShowMeaning()
{
    QString html;
    for (const picture::Sentence& sentence : Meaning()) {
        const QString text = ToQt(sentence.Text).toHtmlEscaped();
        const bool caution = sentence.Kind == picture::SentenceKind::Caution;
        const bool result = sentence.Kind == picture::SentenceKind::Result;
        html += QLatin1String("<p style=\"margin:6px 4px\">") +
                (caution  ? QLatin1String("<b>Caution:</b> ") + text
                 : result ? QLatin1String("<b>") + text + QLatin1String("</b>")
                          : text) +
                QLatin1String("</p>");
    }
    meaningText_->setHtml(html);
}

void SidePane::TakeFocus()
{
    FillTab();
    switch (tabs_->currentIndex()) {
        case kPictureTab:
            view_->Canvas().setFocus(Qt::OtherFocusReason);
            break;
        case kStepsTab:
            list_->setFocus(Qt::OtherFocusReason);
            break;
        default:
            meaningText_->setFocus(Qt::OtherFocusReason);
            break;
    }
}

// The focus waits on the tabs: a page that is hidden with it would give it to whatever comes next.
void SidePane::NextTab(int by)
{
    Build();
    tabs_->tabBar()->setFocus(Qt::OtherFocusReason);
    tabs_->setCurrentIndex((tabs_->currentIndex() + by + tabs_->count()) % tabs_->count());
    TakeFocus();
}

}  // namespace qt
