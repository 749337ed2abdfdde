#include "forms.h"

void RegisterForms(qt::QtForms& forms)
{
    using qt::Place;
    (void)forms;
}
