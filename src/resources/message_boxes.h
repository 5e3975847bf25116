// The message boxes of the program, made from its texts.
#pragma once

#include <string_view>

#include "base/message_box.h"
#include "resources/strings.h"

namespace kalvex {

/// A box with a caption of the table. Every box but the diagnostic ones of an evaluation is made
/// here.
[[nodiscard]] MessageBox BoxOf(StringId caption, std::u16string_view text, MessageIcon icon,
                               MessageButtons buttons = MessageButtons::Ok);

/// Something was refused or has failed: "Error!" with the stop sign.
[[nodiscard]] MessageBox ErrorBox(std::u16string_view text);

/// The program went on, or will when the user has done something: "Warning!" with the exclamation
/// mark.
[[nodiscard]] MessageBox WarningBox(std::u16string_view text);

}  // namespace kalvex
