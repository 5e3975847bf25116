// Only the toolkit's own dialog has these parts; the system's own ones know their screens.
#include "ui/file_dialog_size.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>

namespace kalvex {
namespace {

constexpr int kNarrow = 700;  // logical pixels
constexpr int kFrame = 12;
constexpr int kTitle = 40;

}  // namespace

void FitFileDialog(QFileDialog& dialog, const QSize& room) {
    if (room.width() < kNarrow) {
        if (auto* const places = dialog.findChild<QWidget*>("sidebar")) places->hide();
        if (auto* const files = dialog.findChild<QTreeView*>("treeView")) {
            for (int column = 1; column < files->header()->count(); ++column)
                files->hideColumn(column);
        }
    }
    dialog.resize(dialog.size().boundedTo(room - QSize(kFrame, kTitle)));
}

}  // namespace kalvex
