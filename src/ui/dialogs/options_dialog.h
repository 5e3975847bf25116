// The dialog of the display options.
#pragma once

#include <functional>

#include "base/flow.h"
#include "settings/registry.h"
#include "workspace/options.h"

class QWidget;

namespace kalvex {

/// Opens the dialog over a window. `Save` takes and stores what it shows. When the range of the
/// parameter is empty or reversed, a message says so and the dialog stays open, but everything else
/// is taken and stored. `changed` runs after every `Save`. `options` must live as long as the
/// dialog. The controls carry the program's control numbers as the property "controlId".
void OpenOptionsDialog(QWidget* parent, Options& options, const Registry& registry,
                       const ShowBox& show, std::function<void()> changed);

}  // namespace kalvex
