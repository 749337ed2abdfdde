// The icon of the program's windows, in the sizes that a desktop asks for.
#pragma once

#include <QIcon>

namespace qt {

QIcon ProgramIcon();

}  // namespace qt
