#include "shell/frmMenu.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <algorithm>
#include <array>
#include <string_view>

#include "qt/besidesplitter.h"
#include "shell/beside.h"
#include "shell/commands.h"
#include "shell/frmSolution.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/solution.h"

namespace {

using Command = void (*)();

const std::map<std::string, Command>& PlainCommands()
{
    static const std::map<std::string, Command> commands{
        {"mnuFileNew", Commands::New},
        {"mnuFileOpen", Commands::Open},
        {"mnuFileSave", Commands::Save},
        {"mnuFileChangeModules", Commands::ChangeModules},
        {"mnuFileExit", [] { QApplication::exit(0); }},
        {"mnuSolutionSolve", Commands::Solve},
        {"mnuSolutionPrinttoPrinter", Commands::Print},
        {"mnuSolutionPrinttoText", Commands::SaveAsText},
    };
    return commands;
}

// What everyone's fingers know, beside the access keys. Exit asks nothing and has none.
const std::map<std::string, const char*>& Shortcuts()
{
    static const std::map<std::string, const char*> shortcuts{
        {"mnuFileNew", "Ctrl+N"},   {"mnuFileOpen", "Ctrl+O"},
        {"mnuFileSave", "Ctrl+S"},  {"mnuSolutionPrinttoPrinter", "Ctrl+P"},
        {"mnuSolutionSolve", "F5"},
    };
    return shortcuts;
}

// What an item does, for the strip below.
struct ItemTip {
    std::string_view Item;
    const char* Text;
};

QString TipOf(std::string_view name)
{
    static constexpr std::array tips = {
        ItemTip{.Item = "mnuFileNew", .Text = "Begins a new problem of this module."},
        ItemTip{.Item = "mnuFileOpen", .Text = "Opens a problem that was saved."},
        ItemTip{.Item = "mnuFileSave", .Text = "Saves the problem to a file."},
        ItemTip{.Item = "mnuFileChangeModules", .Text = "Leads back to the choice of a module."},
        ItemTip{.Item = "mnuFileExit", .Text = "Ends the program. Nothing is asked, and nothing is saved."},
        ItemTip{.Item = "mnudispeditsubs(0)", .Text = "Puts the report away and shows the problem."},
        ItemTip{.Item = "mnuSolutionSolve", .Text = "Checks the problem, solves it and shows the report."},
        ItemTip{.Item = "mnuSolutionPrinttoPrinter", .Text = "Prints the problem and the report."},
        ItemTip{.Item = "mnuSolutionPrinttoText",
                .Text = "Writes the problem and the report to a text file."},
    };
    for (const ItemTip& tip : tips)
        if (tip.Item == name) return QString::fromUtf8(tip.Text);
    return {};
}

constexpr int kStripGap = 8;  // between the parts of the strip

// The number in "mnudispeditsubs(3)".
int IndexIn(const std::string& name)
{
    return std::stoi(name.substr(name.find('(') + 1));
}

void RunItem(const std::string& name)
{
    if (const auto plain = PlainCommands().find(name); plain != PlainCommands().end())
        plain->second();
    else if (name.starts_with("mnudispeditsubslower("))
        Commands::LowerItem(IndexIn(name));
    else
        Commands::EditItem(IndexIn(name));
}

TopMenu TopMenuOf(const std::string& name)
{
    if (name == "mnuFile") return TopMenu::File;
    return name == "mnudispedit" ? TopMenu::Edit : TopMenu::Solution;
}

bool IsBarMenu(const MenuItem& item)
{
    return item.Parent.empty();
}

// Who hears a picture told hears of which problem.
std::function<std::vector<picture::Picture>()> NamingTheProblem(
    const std::function<std::vector<picture::Picture>()>& make)
{
    if (!make) return {};
    return [make, name = NameOf(CurrentModule())] {
        std::vector<picture::Picture> pictures = make();
        for (picture::Picture& picture : pictures)
            picture.Problem = name;
        return pictures;
    };
}

qt::PaneSources SourcesOfModule()
{
    if (Session.CurrentModule == 0 || CurrentModule().Routines == nullptr) return {};
    const ModuleRoutines& routines = *CurrentModule().Routines;
    return {.Pictures = NamingTheProblem(routines.Pictures),
            .Steps = routines.Steps,
            .Meaning = routines.Meaning,
            .Opinion = routines.Opinion};
}

// The widest line with the frame and the scroll bar of its page, in pixels.
int WidthOfReport(const QPlainTextEdit& page)
{
    constexpr int kAround = 44;  // frames, and the margins of the text
    std::size_t most = 0;
    for (const std::string& line : SolutionLines())
        most = std::max(most, line.size());
    return page.fontMetrics().horizontalAdvance(QString(static_cast<qsizetype>(most), '0')) +
           page.verticalScrollBar()->sizeHint().width() + kAround;
}

// A module is chosen, and there is nothing yet to be saved.
bool AProblemIsMissing()
{
    return Menus.Item("mnuFile").Enabled && Menus.Item("mnuFileNew").Enabled &&
           !Menus.Item("mnuFileSave").Enabled;
}

bool HoldsItems(const MenuItem& item)
{
    return item.Name == EditItemName(2);
}

}  // namespace

frmMenu::frmMenu(QWidget* parent) : QMainWindow(parent)
{
    constexpr QSize kFirstSize(1100, 720);  // a table of ten columns fits
    constexpr int kStripMargin = 6;
    setObjectName("frmMenu");
    setWindowTitle("Vantrel Version 6.0");
    setFocusPolicy(Qt::TabFocus);

    auto* area = new QMdiArea;
    area->setObjectName("mdiArea");
    area->setFocusPolicy(Qt::NoFocus);

    indicator_ = new QLabel;
    indicator_->setObjectName("lblmoduleindicator");
    indicator_->setAccessibleName("Current module");
    indicator_->setContentsMargins(kStripMargin, 0, 0, 0);
    statusBar()->addWidget(indicator_, 1);
    hint_ = new QLabel("Select 'File' and click 'New' or 'Open' to work with a problem.");
    hint_->setObjectName("statusHint");
    hint_->setContentsMargins(0, 0, kStripMargin, 0);
    statusBar()->addPermanentWidget(hint_);
    tip_ = new QLabel;
    tip_->setObjectName("statusTip");
    tip_->setContentsMargins(0, 0, kStripMargin, 0);
    tip_->hide();
    statusBar()->addPermanentWidget(tip_);
    statusBar()->setSizeGripEnabled(false);
    beside_ = new qt::BesideSplitter(area, this);
    beside_->Pane().SetFolder([] { return Session.ProblemFolder; });
    setCentralWidget(beside_);
    TheLastSolve.Changed = [this] { SolveEnded(); };

    resize(kFirstSize);
    Menus.Changed = [this] { ShowMenus(); };
    ShowMenus();
}

frmMenu::~frmMenu()
{
    Menus.Changed = {};
    TheLastSolve.Changed = {};
}

// The pane is filled later, when it is looked at; beside a problem, once the command is over.
void frmMenu::SolveEnded()
{
    if (TheLastSolve.End() == SolveEnd::Report) {
        const auto* page = findChild<QPlainTextEdit*>("gridSolution");
        beside_->ShowBesideReport(SourcesOfModule(), page == nullptr ? 0 : WidthOfReport(*page));
        return;
    }
    beside_->Remove();
    if (TheLastSolve.End() == SolveEnd::None) return;
    QMetaObject::invokeMethod(
        this,
        [this, solve = TheLastSolve.Number()] {
            if (TheLastSolve.End() == SolveEnd::WithoutReport && TheLastSolve.Number() == solve)
                beside_->ShowBesideProblem(SourcesOfModule());
        },
        Qt::QueuedConnection);
}

QMenu* frmMenu::MenuFor(const std::string& name, const std::string& parent)
{
    QMenu*& menu = menus_[name];
    if (menu != nullptr) return menu;
    menu = new QMenu(this);
    menu->setObjectName(QString::fromStdString(name));
    menu->menuAction()->setObjectName(QString::fromStdString(name));
    if (parent.empty()) {
        connect(menu, &QMenu::aboutToShow, this, [name] { Commands::OpenMenu(TopMenuOf(name)); });
        menuBar()->addMenu(menu);
    }
    actions_[name] = menu->menuAction();
    return menu;
}

QAction* frmMenu::ActionFor(const std::string& name, bool separator)
{
    QAction*& action = actions_[name];
    if (action != nullptr) return action;
    action = new QAction(this);
    action->setObjectName(QString::fromStdString(name));
    action->setSeparator(separator);
    if (const auto keys = Shortcuts().find(name); keys != Shortcuts().end()) {
        action->setShortcut(QKeySequence(keys->second));
        action->installEventFilter(this);
    }
    action->setStatusTip(TipOf(name));
    connect(action, &QAction::triggered, this, [name] { RunItem(name); });
    return action;
}

// Which items there are changes with the problem form; the actions are kept and put into the menus again.
void frmMenu::MakeMenus()
{
    for (const auto& [name, menu] : menus_) {
        const auto held = menu->actions();
        for (QAction* action : held)
            menu->removeAction(action);
    }
    for (const MenuItem& item : Menus.Items()) {
        if (IsBarMenu(item) || HoldsItems(item)) MenuFor(item.Name, item.Parent);
        if (!IsBarMenu(item)) menus_.at(item.Parent)->addAction(ActionFor(item.Name, item.Separator));
    }
}

void frmMenu::ShowMenus()
{
    std::vector<std::string> names;
    for (const MenuItem& item : Menus.Items())
        names.push_back(item.Name);
    if (names != shownItems_) {
        shownItems_ = names;
        MakeMenus();
    }
    for (const MenuItem& item : Menus.Items()) {
        QAction* action = actions_.at(item.Name);
        if (!item.Separator) action->setText(QString::fromStdString(item.Caption));
        action->setEnabled(item.Enabled);
        action->setVisible(item.Visible && !item.Caption.empty());
    }
    hint_->setVisible(AProblemIsMissing());
}

// The module's text stays in the strip; a tip stands beside it while the hint does not.
bool frmMenu::event(QEvent* event)
{
    if (event->type() != QEvent::StatusTip) return QMainWindow::event(event);
    const QString tip = static_cast<const QStatusTipEvent&>(*event).tip();
    tip_->setText(tip);
    const bool shown = !tip.isEmpty() && !AProblemIsMissing();
    tip_->setVisible(shown);
    indicator_->setVisible(!shown || HasRoomForTip());
    return true;
}

// Beside the module's text, which gives way to a tip in a narrow window.
bool frmMenu::HasRoomForTip() const
{
    int needed = 0;
    const auto labels = statusBar()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* part : labels)
        if (part == indicator_ || part->isVisible()) needed += part->sizeHint().width() + kStripGap;
    return needed <= statusBar()->width();
}

// Closing the window is Exit: no question, no saving.
void frmMenu::closeEvent(QCloseEvent* event)
{
    event->accept();
    QApplication::exit(0);
}

// Behind a report stands its problem: Tab does not go there.
bool frmMenu::focusNextPrevChild(bool next)
{
    const auto* page = findChild<QWidget*>("gridSolution");
    return (page == nullptr || !page->isVisible()) && QMainWindow::focusNextPrevChild(next);
}

// A menu that is opened finishes what is being typed; a shortcut goes past the menus.
bool frmMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Shortcut)
        Commands::OpenMenu(TopMenuOf(Menus.Item(watched->objectName().toStdString()).Parent));
    return QMainWindow::eventFilter(watched, event);
}

// The report page never has the focus; its keys arrive here.
void frmMenu::keyPressEvent(QKeyEvent* event)
{
    auto* report = findChild<frmSolution*>();
    if (report != nullptr && report->isVisible() && report->TakeKey(*event)) return;
    QMainWindow::keyPressEvent(event);
}
