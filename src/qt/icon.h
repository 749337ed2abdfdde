// The icon of the program's windows, in the sizes that a desktop asks for, and those of the modules.
#pragma once

#include <QIcon>

namespace qt {

QIcon ProgramIcon();
QIcon ModuleIcon(int module);  // 1 to 12

}  // namespace qt
