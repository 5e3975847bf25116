// File dialogs on small screens.
#pragma once

class QFileDialog;

namespace kalvex {

/// Gives a dialog no more than the screen of its parent has; on a narrow one it does without the
/// places at the side and all columns but the names.
void FitFileDialog(QFileDialog& dialog);

}  // namespace kalvex
