// The message boxes of the program, made from its texts. Every box is made here.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/message_box.h"
#include "resources/strings.h"

namespace kalvex {

/// A box with a caption of the table.
[[nodiscard]] MessageBox BoxOf(StringId caption, std::u16string_view text, MessageIcon icon,
                               MessageButtons buttons = MessageButtons::Ok);

/// The diagnostic box of an error code that belongs to no function and no operation.
[[nodiscard]] MessageBox UnknownCodeBox(std::int32_t code);

/// Something was refused or has failed: "Error!" with the stop sign.
[[nodiscard]] MessageBox ErrorBox(std::u16string_view text);

/// The program went on, or will when the user has done something: "Warning!" with the exclamation
/// mark.
[[nodiscard]] MessageBox WarningBox(std::u16string_view text);

}  // namespace kalvex
