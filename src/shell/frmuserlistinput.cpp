#include "shell/frmuserlistinput.h"

#include <QEvent>

#include "qt/fields.h"
#include "shell/userinput.h"

frmuserlistinput::frmuserlistinput(QWidget* parent) : qt::ModalForm(parent)
{
    constexpr int kRoom = 48;  // beside the longest item: frame, margins, scroll bar
    const ListDialog& dialog = UserInput::List.Question();
    setObjectName("frmuserlistinput");
    setWindowTitle(QString::fromStdString(dialog.Caption));

    auto* page = new QVBoxLayout(this);
    qt::AddLabel(page, "lblMainTitle", " Problem Features");
    QLabel* label = qt::AddLabel(page, "lblModel", "Select A Model:");
    lstModelSelection = qt::AddList(page, "lstModelSelection", "Select A Model:");
    label->setBuddy(lstModelSelection);
    for (const std::string& item : dialog.Items)
        lstModelSelection->addItem(QString::fromStdString(item));
    lstModelSelection->setMinimumWidth(lstModelSelection->sizeHintForColumn(0) + kRoom);
    lstModelSelection->viewport()->installEventFilter(this);

    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { UserInput::List.Cancel(); });
}

// A double click is OK, on an item and beside them.
bool frmuserlistinput::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonDblClick) return ModalForm::eventFilter(watched, event);
    qt::Trap([this] { Accept(); });
    return true;
}

void frmuserlistinput::Accept()
{
    const auto chosen = lstModelSelection->selectedItems();
    UserInput::TakeListItem(chosen.isEmpty() ? 0 : lstModelSelection->row(chosen.first()) + 1);
}
