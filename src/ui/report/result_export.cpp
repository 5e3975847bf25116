// As in the dialog of the point files, the texts of the filters are fixed, and the pattern that a
// filter applies stands in a second bracket, which the dialog does not show.
#include "ui/report/result_export.h"

#include <QScreen>
#include <utility>

#include "base/complete_file.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "ui/parts/file_dialogs.h"
#include "ui/parts/file_name.h"
#include "ui/parts/qt_text.h"

namespace kalvex {

void OpenSaveResultDialog(QWidget* parent, const QString& folder,
                          std::function<void(const QString& path)> chosen) {
    auto* const dialog =
        new FileDialog(parent, TextOf(StringId::SaveResultTitle), StartFolder(folder));
    dialog->setObjectName("saveResultDialog");
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

Flow SaveResult(QString path, std::string bytes, ShowBox show, std::function<void()> written) {
    const bool isThere = static_cast<bool>(WriteCompleteFile(FileNameOf(path), bytes));
    if (!isThere) {
        const MessageBox failure =
            BoxOf(StringId::FileErrorCaption, Text(StringId::FileErrorText), MessageIcon::None);
        co_await show(failure);
    }
    // KEEP: shown after an error too, which the box before this one has reported.
    const MessageBox saved =
        BoxOf(StringId::Saved, Text(StringId::Saved), MessageIcon::Information);
    co_await show(saved);
    if (isThere && written) written();
}

}  // namespace kalvex
