#include "play/listener.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>

#include "play/hands.h"

namespace play {
namespace {

std::string Quoted(const QString& text)
{
    return Quote(text.toStdString());
}

const char* IconName(QMessageBox::Icon icon)
{
    switch (icon) {
        case QMessageBox::Critical:
            return "critical";
        case QMessageBox::Question:
            return "question";
        case QMessageBox::Warning:
            return "exclamation";
        case QMessageBox::Information:
            return "information";
        default:
            return "none";
    }
}

const char* ButtonNames(QMessageBox::StandardButtons buttons)
{
    if (buttons == (QMessageBox::Ok | QMessageBox::Cancel)) return "OKCancel";
    if (buttons == (QMessageBox::Yes | QMessageBox::No)) return "YesNo";
    return "OK";
}

std::string Announce(const QMessageBox& box)
{
    return std::string("msgbox ") + IconName(box.icon()) + " " + ButtonNames(box.standardButtons()) + " " +
           Quoted(box.windowTitle()) + " " + Quoted(box.text());
}

// As the program stated them; the dialog itself has them in its own form.
std::string Announce(const QFileDialog& dialog)
{
    const char* way = dialog.acceptMode() == QFileDialog::AcceptSave ? "save " : "open ";
    return std::string("filedialog ") + way + Quoted(dialog.windowTitle()) + " " +
           Quoted(dialog.property("filter").toString()) + " " + Quoted(dialog.property("folder").toString());
}

}  // namespace

std::string Announcement(const QWidget* window)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(window)) return Announce(*box);
    if (const auto* input = qobject_cast<const QInputDialog*>(window))
        return "inputbox " + Quoted(input->windowTitle()) + " " + Quoted(input->labelText());
    if (const auto* dialog = qobject_cast<const QFileDialog*>(window)) return Announce(*dialog);
    if (qobject_cast<const QPrintDialog*>(window) != nullptr) return "printerdialog";
    if (window->objectName().startsWith("frm"))
        return "modal " + window->objectName().toStdString() + " " + Quoted(window->windowTitle());
    return {};
}

Listener::Listener(Transcript& transcript) : transcript_(transcript)
{
    qApp->installEventFilter(this);
}

bool Listener::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != ignored_) ++events_;
    if (event->type() != QEvent::Show || event->spontaneous()) return false;
    const auto* window = qobject_cast<QWidget*>(watched);
    if (window == nullptr || !window->isWindow() || !window->isModal()) return false;
    CountDialog();
    if (const std::string line = Announcement(window); !line.empty()) transcript_.Line(line);
    return false;
}

void OverheardDialogs::Beep()
{
    transcript_.Line("beep");
    QtDialogs::Beep();
}

void OverheardDialogs::OpenGuide(std::string_view page)
{
    transcript_.Line("guide " + Quoted(QString::fromStdString(std::string(page))));
}

}  // namespace play
