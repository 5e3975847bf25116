// The texts and the order of the filters are fixed. The pattern that a filter applies stands in a
// second bracket, which the dialog does not show: with the pattern "*.*" most systems would hide
// every file without a dot.
#include "ui/editor/point_file_dialog.h"

#include <QDir>
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
    auto* const dialog = new FileDialog(parent, TextOf(StringId::OpenFileTitle), folder);
    dialog->setObjectName("openFileDialog");
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
