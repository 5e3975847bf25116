// As for point files, the filters read as they always did; what they match stands in a second
// bracket, which is not shown.
#include "ui/report/result_export.h"

#include <QFileDialog>
#include <QScreen>
#include <utility>

#include "resources/strings.h"
#include "settings/complete_file.h"
#include "ui/parts/file_dialogs.h"

namespace kalvex {

void OpenSaveResultDialog(QWidget* parent, const QString& folder,
                          std::function<void(const QString& path)> chosen) {
    auto* const dialog = new QFileDialog(parent, "Save File As", StartFolder(folder));
    dialog->setObjectName("saveResultDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters({"Text (*.txt) (*.txt)", "Kalvex files (*.kx) (*.kx)"});
    dialog->setDefaultSuffix("txt");
    // KEEP: the proposed name is of the second kind while the first one is selected.
    dialog->selectFile("result.kx");
    WhenChosen(*dialog, std::move(chosen));
    FitFileDialog(*dialog, dialog->screen()->availableGeometry().size());
    dialog->open();
}

bool SaveResult(const QString& path, std::string_view bytes, const ShowMessage& show) {
    const bool written = WriteCompleteFile(path, bytes);
    if (!written) {
        show({std::u16string(Text(StringId::FileErrorCaption)),
              std::u16string(Text(StringId::FileErrorText)), MessageIcon::None,
              MessageButtons::Ok});
    }
    // KEEP: shown after an error too, which the box before it has told.
    const std::u16string saved(Text(StringId::Saved));
    show({saved, saved, MessageIcon::Information, MessageButtons::Ok});
    return written;
}

}  // namespace kalvex
