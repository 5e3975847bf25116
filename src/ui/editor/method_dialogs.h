// The dialogs of the methods that have parameters.
#pragma once

#include "base/flow.h"
#include "workspace/function_entry.h"

class QWidget;

namespace kalvex {

/// Opens the dialog of the entry's method with the parameters of its row in method_table.h. Nothing
/// for a method without parameters. `Save` stores into the entry, which must live as long as the
/// program. A number of terms is taken as it is read: a text that is no number counts as 0, which
/// Draw refuses. A real parameter that is no finite number is refused by the dialog.
void OpenMethodDialog(QWidget* parent, FunctionEntry& entry, const ShowBox& show);

}  // namespace kalvex
