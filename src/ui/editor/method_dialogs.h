// The dialogs of the methods that have parameters.
#pragma once

#include "base/message_box.h"
#include "workspace/function_entry.h"

class QWidget;

namespace kalvex {

/// Opens the dialog of the entry's method: number of terms (least squares), bias and tension (beta
/// splines), boundary flags and values (cubic spline). Nothing for any other method. `Save` stores
/// into the entry, which must live as long as the program. A number of terms is taken as it is read
/// (what is none is 0: Draw refuses it); a parameter that is no finite number is refused.
void OpenMethodDialog(QWidget* parent, FunctionEntry& entry, const ShowMessage& show);

}  // namespace kalvex
