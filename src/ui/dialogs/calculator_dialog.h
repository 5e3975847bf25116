// The dialog of the calculator.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <string_view>

#include "base/flow.h"
#include "commands/calculator_history.h"

class QWidget;

namespace kalvex {

/// Left top corner of the dialog: in the middle of the screen along x; along y too, but on a
/// "PocketPC", where it begins 0.3 of its height above the middle. Never off the screen; what is
/// larger than the screen begins in its corner.
[[nodiscard]] QPoint CalculatorPlace(const QSize& dialog, const QRect& screen,
                                     std::u16string_view platform);

/// Opens it over a window. `Calc` (Enter) puts the result in the place of the expression; one that
/// is rejected gets a message and stays. Up and Down walk through `history`, which must live as
/// long as the dialog.
void OpenCalculator(QWidget* parent, CalculatorHistory& history, const ShowBox& show);

}  // namespace kalvex
