// The pictures are made by scripts/make-icons and built into the program, so that its windows have
// their icon even when the program is not installed.
#include "ui/program_icon.h"

namespace kalvex {

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(QString(":/icons/kalvex-%1.png").arg(size), QSize(size, size));
    return icon;
}

}  // namespace kalvex
