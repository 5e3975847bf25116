// The dialogs of the visible rectangle.
#pragma once

#include <functional>

#include "base/message_box.h"
#include "workspace/view_window.h"

class QWidget;

namespace kalvex {

/// Opens the View Window dialog: the four bounds, with every digit that they have. What is refused
/// gets a message and keeps the dialog open; `changed` runs after a save.
void OpenViewWindowDialog(QWidget* parent, ViewWindow& view, const ShowMessage& show,
                          std::function<void()> changed);

/// The same for the two zoom factors.
void OpenFactorDialog(QWidget* parent, ViewWindow& view, const ShowMessage& show,
                      std::function<void()> changed);

}  // namespace kalvex
