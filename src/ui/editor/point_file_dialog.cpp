// The filters read as they always did, in their order. What they really match stands in a second
// bracket, which is not shown: "*.*" would hide every file without a dot on most systems.
#include "ui/editor/point_file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QUrl>
#include <utility>

#include "resources/samples.h"
#include "ui/parts/file_dialogs.h"
#include "ui/parts/qt_text.h"

namespace kalvex {

void OpenPointFileDialog(QWidget* parent, const QString& folder,
                         std::function<void(const QString& path)> chosen) {
    auto* const dialog = new QFileDialog(parent, TextOf(StringId::OpenFileTitle), folder);
    dialog->setObjectName("openFileDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters({TextOf(StringId::FilterAll) + " (*)",
                            TextOf(StringId::FilterTxt) + " (*.txt)",
                            TextOf(StringId::FilterKalvex) + " (*.kx)"});
    const QString sample = QString::fromStdString(SamplePath(kPeakSample));
    if (!sample.isEmpty()) {
        const QUrl samples = QUrl::fromLocalFile(QFileInfo(sample).absolutePath());
        dialog->setSidebarUrls(dialog->sidebarUrls() << samples);
    }
    WhenChosen(*dialog, [chosen = std::move(chosen)](const QString& path) {
        chosen(QDir::toNativeSeparators(path));
    });
    FitFileDialog(*dialog, dialog->screen()->availableGeometry().size());
    dialog->open();
}

}  // namespace kalvex
