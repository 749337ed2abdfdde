#include "shell/frmModuleSelection.h"

#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/desktop.h"
#include "qt/fields.h"
#include "qt/icon.h"
#include "shell/commands.h"
#include "shell/module.h"

namespace {

// The option that the keys go to shows it before it has the focus.
class ModuleOption : public QRadioButton {
public:
    explicit ModuleOption(const std::string& caption) : QRadioButton(QString::fromStdString(caption))
    {
        connect(qApp, &QApplication::focusChanged, this, qOverload<>(&QWidget::update));
    }

protected:
    void initStyleOption(QStyleOptionButton* option) const override
    {
        QRadioButton::initStyleOption(option);
        if (qt::GetsKeys(*this)) option->state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    }
};

// How far an arrow key goes in the list of modules.
int StepOf(const QKeyEvent& key)
{
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Left:
            return -1;
        case Qt::Key_Down:
        case Qt::Key_Right:
            return 1;
        default:
            return 0;
    }
}

}  // namespace

frmModuleSelection::frmModuleSelection(QWidget* parent) : qt::ChildForm(parent)
{
    constexpr int kDescriptionLines = 8;  // fewer in a low window
    constexpr int kLeastLines = 2;
    setObjectName("frmModuleSelection");
    setWindowTitle("  Select A Module");

    auto* page = new QVBoxLayout(this);
    page->addWidget(MakeOptions());
    const auto last = static_cast<std::size_t>(std::max(1, Commands::LastModule()));
    setFocusProxy(options[last - 1]);  // nothing is chosen, but the keys begin there

    txtprobsel = new QTextBrowser;
    txtprobsel->setObjectName("txtprobsel");
    txtprobsel->setAccessibleName("What the module does");
    txtprobsel->setFocusPolicy(Qt::NoFocus);
    txtprobsel->setPlaceholderText("Choose a module to see what it does.");
    ShadePlaceholder();
    const int line = txtprobsel->fontMetrics().lineSpacing();
    txtprobsel->setMinimumHeight(line * kLeastLines);
    txtprobsel->setMaximumHeight(line * kDescriptionLines);
    page->addWidget(txtprobsel);

    auto* ok = new QPushButton("OK");
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    page->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QPushButton::clicked, this, [] { Commands::ChooseModule(); });
}

QWidget* frmModuleSelection::MakeOptions()
{
    constexpr int kRows = (kModuleCount + 1) / 2;
    constexpr int kColumnGap = 32;
    constexpr int kIconSize = 24;
    auto* frame = new QGroupBox("Module");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(kColumnGap);
    for (int number = 1; number <= kModuleCount; ++number) {
        auto* option = new ModuleOption(ModuleOf(number).Option);
        option->setObjectName(QStringLiteral("optProblemType(%1)").arg(number));
        option->setIcon(qt::ModuleIcon(number));
        option->setIconSize(QSize(kIconSize, kIconSize));
        option->installEventFilter(this);
        options.push_back(option);
        connect(option, &QRadioButton::toggled, this, [this, number](bool on) {
            if (on) Select(number);
        });
        grid->addWidget(option, (number - 1) % kRows, (number - 1) / kRows);
    }
    return frame;
}

void frmModuleSelection::Select(int number)
{
    Commands::SelectModule(number);
    txtprobsel->setPlainText(QString::fromStdString(ModuleOf(number).Description));
}

void frmModuleSelection::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Commands::ChooseModule();
    else
        ChildForm::keyPressEvent(event);
}

// A double click on an option is the click and OK in one; the arrow keys go through the modules by number.
bool frmModuleSelection::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        Commands::ChooseModule();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if ((key.modifiers() & Qt::AltModifier) != 0) desktop::TheForms().FocusMenu();
        const int step = StepOf(key);
        if (step != 0) {
            const auto at = std::find(options.begin(), options.end(), watched) - options.begin();
            Choose(static_cast<int>(at) + step);
            return true;
        }
    }
    return ChildForm::eventFilter(watched, event);
}

// Paler than what a module does, and still to be read.
void frmModuleSelection::ShadePlaceholder()
{
    constexpr float kShare = 0.75F;
    QPalette colors;
    QColor text = palette().color(QPalette::Text);
    text.setAlphaF(kShare);
    colors.setColor(QPalette::PlaceholderText, text);
    txtprobsel->setPalette(colors);
}

void frmModuleSelection::changeEvent(QEvent* event)
{
    ChildForm::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && txtprobsel != nullptr) ShadePlaceholder();
}

// Around both ends.
void frmModuleSelection::Choose(int index)
{
    QRadioButton* option = options[static_cast<std::size_t>((index + kModuleCount) % kModuleCount)];
    option->setFocus(Qt::TabFocusReason);
    option->setChecked(true);
}
