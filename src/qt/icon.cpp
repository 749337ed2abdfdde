#include "qt/icon.h"

#include <QString>

namespace qt {

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/vantrel-%1.png").arg(size));
    return icon;
}

}  // namespace qt
