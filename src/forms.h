// The table of all screens: the only place that knows them all.
#pragma once

#include "qt/forms.h"

void RegisterForms(qt::QtForms& forms);
