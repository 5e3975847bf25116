// A message box as data. The engine never shows anything itself. It hands the box to a function,
// which the windows, the command-line tool and the tests each supply.
#pragma once

#include <functional>
#include <string>

namespace kalvex {

enum class MessageIcon { None, Stop, Exclamation, Information };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer {
    Ok,
    Yes,
    No,
    Ended  ///< the program ended before the box was answered; counts as Ok or No
};

struct MessageBox {
    std::u16string caption;
    std::u16string text;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

/// Shows a box and returns when it has been answered. An `Ok` box is always answered with `Ok`,
/// a question with `Yes` or `No`.
using ShowMessage = std::function<MessageAnswer(const MessageBox&)>;

}  // namespace kalvex
