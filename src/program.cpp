#include "program.h"

#include <QCoreApplication>

#include "desktop/desktop.h"
#include "forms.h"
#include "qt/text.h"
#include "shell/commands.h"

Program::Program(std::unique_ptr<qt::QtDialogs> dialogs) : dialogs_(std::move(dialogs))
{
    RegisterForms(forms_);
    desktop::Install({.dialogs = dialogs_.get(), .screen = &screen_, .forms = &forms_, .printer = &printer_});
    SetProgramFolder(qt::FromQt(QCoreApplication::applicationDirPath()));
}

void Program::Start()
{
    forms_.Show("frmStartup");
}
