// The dialogs of the visible rectangle.
#pragma once

#include <functional>

#include "base/flow.h"
#include "workspace/view_window.h"

class QWidget;

namespace kalvex {

/// Opens the View Window dialog with the four bounds, each with all its digits. When an input is
/// refused a message says why and the dialog stays open; `changed` runs after a save.
void OpenViewWindowDialog(QWidget* parent, ViewWindow& view, const ShowBox& show,
                          std::function<void()> changed);

/// The same for the two zoom factors.
void OpenFactorDialog(QWidget* parent, ViewWindow& view, const ShowBox& show,
                      std::function<void()> changed);

}  // namespace kalvex
