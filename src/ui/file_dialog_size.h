// File dialogs on small screens.
#pragma once

class QFileDialog;
class QSize;

namespace kalvex {

/// Gives a dialog no more than the room of a screen; in a narrow one it does without the places at
/// the side and all columns but the names.
void FitFileDialog(QFileDialog& dialog, const QSize& room);

}  // namespace kalvex
