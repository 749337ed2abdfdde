#include "lp/frmIP.h"

#include <QItemSelectionModel>

#include "qt/fields.h"
#include "qt/text.h"

namespace {

QListWidget* AddVariableList(QLayout* lists, const char* labelName, const char* name, const char* caption)
{
    auto* column = new QVBoxLayout;
    static_cast<QHBoxLayout*>(lists)->addLayout(column);
    QLabel* label = qt::AddLabel(column, labelName, caption);
    label->setWordWrap(false);  // the two lists stand side by side
    QListWidget* list = qt::AddList(column, name, caption);
    label->setBuddy(list);
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    for (const std::string& variable : VtLP::TheIntegerChoice.Question().Names)
        list->addItem(qt::ToQt(variable));
    return list;
}

// What becomes selected in `list` is taken out of `other`.
void LetExclude(QListWidget* list, QListWidget* other)
{
    QObject::connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, other,
                     [other](const QItemSelection& selected) {
                         for (const QModelIndex& index : selected.indexes())
                             other->item(index.row())->setSelected(false);
                     });
}

std::vector<bool> SelectionOf(const QListWidget* list)
{
    std::vector<bool> selected(static_cast<std::size_t>(list->count()));
    for (int row = 0; row < list->count(); ++row)
        selected[static_cast<std::size_t>(row)] = list->item(row)->isSelected();
    return selected;
}

void Select(QListWidget* list, const std::vector<bool>& selected)
{
    for (int row = 0; row < list->count(); ++row)
        list->item(row)->setSelected(selected[static_cast<std::size_t>(row)]);
}

}  // namespace

frmIP::frmIP(QWidget* parent) : qt::ModalForm(parent)
{
    setObjectName("frmIP");
    setWindowTitle(" Integer Variable Identification");
    auto* page = new QVBoxLayout(this);
    AddOptions(page);
    AddLists(page);
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "CmdSolve", "Solve", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { VtLP::TheIntegerChoice.Cancel(); });
    ShowChoice(VtLP::TheIntegerChoice.Question().Stored);
}

void frmIP::AddOptions(QLayout* page)
{
    QLayout* frame = qt::AddFrame(page, "Frame1", "")->layout();
    optbinary = qt::AddOption(frame, "optbinary", "All Variables Are 0/1 (Binary)");
    optgeneral = qt::AddOption(frame, "optgeneral", "All Variables Are General Integer");
    optMultiple = qt::AddOption(frame, "optMultiple", "Multiple Types Of Variables");
}

void frmIP::AddLists(QLayout* page)
{
    auto* lists = new QHBoxLayout;
    static_cast<QVBoxLayout*>(page)->addLayout(lists);
    lstBinary = AddVariableList(lists, "lblBinary", "lstBinary", "Select 0/1 Variables:");
    lstGeneral = AddVariableList(lists, "lblGeneral", "lstGeneral", "Select General Integer Variables:");
    LetExclude(lstBinary, lstGeneral);
    LetExclude(lstGeneral, lstBinary);

    const auto choose = [this](QRadioButton* option, const std::function<void()>& select) {
        connect(option, &QRadioButton::toggled, this, [select](bool chosen) {
            if (chosen) select();
        });
    };
    choose(optbinary, [this] { lstBinary->selectAll(); });
    choose(optgeneral, [this] { lstGeneral->selectAll(); });
    choose(optMultiple, [this] {
        lstBinary->clearSelection();
        lstGeneral->clearSelection();
    });
}

void frmIP::ShowChoice(const VtLP::IntegerChoice& choice)
{
    using VtLP::IntegerKind;
    if (choice.Kind == IntegerKind::AllBinary) optbinary->setChecked(true);
    if (choice.Kind == IntegerKind::AllGeneral) optgeneral->setChecked(true);
    if (choice.Kind != IntegerKind::Multiple) return;
    optMultiple->setChecked(true);
    Select(lstBinary, choice.Binary);
    Select(lstGeneral, choice.General);
}

VtLP::IntegerChoice frmIP::Choice() const
{
    using VtLP::IntegerKind;
    IntegerKind kind = IntegerKind::Multiple;
    if (optbinary->isChecked()) kind = IntegerKind::AllBinary;
    if (optgeneral->isChecked()) kind = IntegerKind::AllGeneral;
    return {.Kind = kind, .Binary = SelectionOf(lstBinary), .General = SelectionOf(lstGeneral)};
}

void frmIP::Accept()
{
    VtLP::TheIntegerChoice.Give(Choice());
}
