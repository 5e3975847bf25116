// What all file dialogs share.
#pragma once

#include <QFileDialog>
#include <QString>
#include <functional>

#include "ui/parts/asking_dialog.h"

class QSize;

namespace kalvex {

/// A file dialog that deletes itself. It asks "replace it?" and opens menus by itself.
using FileDialog = AskingDialog<QFileDialog>;

/// Gives a dialog no more than the room of a screen; in a narrow one it does without the places at
/// the side and all columns but the names.
void FitFileDialog(QFileDialog& dialog, const QSize& room);

/// Hands the chosen path over when the dialog has left the screen: a message that follows would
/// share the keyboard with it otherwise. A dialog that was cancelled hands nothing over, whatever
/// becomes of a question that it asked itself and that is still open.
void WhenChosen(QFileDialog& dialog, std::function<void(const QString& path)> chosen);

/// Where a dialog starts: in the last folder; without one in the user's documents, or the home
/// folder when there are none.
[[nodiscard]] QString StartFolder(const QString& last);

}  // namespace kalvex
