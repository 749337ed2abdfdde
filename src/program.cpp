#include "program.h"

#include <QApplication>

#include "desktop/desktop.h"
#include "forms.h"
#include "qt/application.h"
#include "qt/icon.h"
#include "qt/style.h"
#include "qt/text.h"
#include "shell/commands.h"

Program::Program(std::unique_ptr<qt::QtDialogs> dialogs) : dialogs_(std::move(dialogs))
{
    QApplication::setApplicationName("Vantrel");
    QApplication::setApplicationVersion("6.0");
    QApplication::setDesktopFileName("vantrel");
    QApplication::setStyle(new qt::Style);  // the application owns it
    QApplication::setWindowIcon(qt::ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);  // Exit ends the program
    RegisterForms(forms_);
    desktop::Install({.dialogs = dialogs_.get(), .screen = &screen_, .forms = &forms_, .printer = &printer_});
    if (auto* application = qobject_cast<qt::Application*>(qApp)) application->Help = Commands::Help;
    SetProgramFolder(qt::FromQt(QApplication::applicationDirPath()));
}

void Program::Start()
{
    forms_.Show("frmStartup");
}
