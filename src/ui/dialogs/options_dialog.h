// The dialog of the display options.
#pragma once

#include <functional>

#include "base/message_box.h"
#include "settings/registry.h"
#include "workspace/options.h"

class QWidget;

namespace kalvex {

/// Opens it over a window. `Save` takes and stores what it shows; a range of parameters that is
/// none gets a message and keeps the dialog open, with everything else taken and stored all the
/// same. `changed` runs after every `Save`. `options` must live as long as the dialog. The controls
/// carry the program's control numbers as the property "controlId".
void OpenOptionsDialog(QWidget* parent, Options& options, const Registry& registry,
                       const ShowMessage& show, std::function<void()> changed);

}  // namespace kalvex
