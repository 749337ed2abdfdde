#include "shell/modaldialog.h"

#include "desktop/desktop.h"
#include "shell/session.h"

void ModalDialogForm::Show(std::string_view form)
{
    form_ = form;
    desktop::TheForms().ShowModal(form);
}

void ModalDialogForm::Leave(bool cancelled) const
{
    if (habits_.TellsSession) Session.DialogCancelled = cancelled;
    if (habits_.StaysLoaded)
        desktop::TheForms().Hide(form_);
    else
        desktop::TheForms().Unload(form_);
}
