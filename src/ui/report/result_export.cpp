// As in the dialog of the point files, the texts of the filters are fixed, and the pattern that a
// filter applies stands in a second bracket, which the dialog does not show.
#include "ui/report/result_export.h"

#include <QFileDialog>
#include <QScreen>
#include <utility>

#include "base/complete_file.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "ui/parts/file_dialogs.h"
#include "ui/parts/qt_text.h"

namespace kalvex {

void OpenSaveResultDialog(QWidget* parent, const QString& folder,
                          std::function<void(const QString& path)> chosen) {
    auto* const dialog =
        new QFileDialog(parent, TextOf(StringId::SaveResultTitle), StartFolder(folder));
    dialog->setObjectName("saveResultDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters(
        {TextOf(StringId::FilterText) + " (*.txt)", TextOf(StringId::FilterKalvex) + " (*.kx)"});
    dialog->setDefaultSuffix("txt");
    // KEEP: the proposed name has the ending of the second filter while the first is selected.
    dialog->selectFile("result.kx");
    WhenChosen(*dialog, std::move(chosen));
    FitFileDialog(*dialog, dialog->screen()->availableGeometry().size());
    dialog->open();
}

bool SaveResult(const QString& path, std::string_view bytes, const ShowMessage& show) {
    const WriteResult written = WriteCompleteFile(path.toStdString(), bytes);
    if (!written) {
        show(BoxOf(StringId::FileErrorCaption, Text(StringId::FileErrorText), MessageIcon::None));
    }
    // KEEP: shown after an error too, which the box before this one has reported.
    show(BoxOf(StringId::Saved, Text(StringId::Saved), MessageIcon::Information));
    return static_cast<bool>(written);
}

}  // namespace kalvex
