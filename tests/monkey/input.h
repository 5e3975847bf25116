// Random input as the window system hands it to the program: it goes through the same queue and the
// same checks (a window behind a modal one gets nothing) as what a person does.
#pragma once

#include <QPoint>
#include <QWidget>
#include <random>
#include <string>

namespace kalvex::monkey {

using Random = std::mt19937;

/// A whole number from 0 to count - 1.
[[nodiscard]] int Below(Random& random, int count);

/// One of the elements.
template <typename List>
[[nodiscard]] const auto& OneOf(Random& random, const List& list) {
    return list[static_cast<std::size_t>(Below(random, static_cast<int>(std::size(list))))];
}

/// A visible top-level window, popups included; null when there is none.
[[nodiscard]] QWidget* SomeWindow(Random& random);

/// A visible control in it, or the window itself.
[[nodiscard]] QWidget* SomeControl(Random& random, QWidget* window);

/// Presses Control and S in the window that has the keyboard.
void PressControlS();

/// Each of the following does something once and returns what, for the log.
std::string PressKey(Random& random);
std::string TypeText(Random& random);
std::string PressButton(Random& random);
std::string Drag(Random& random);
std::string TurnWheel(Random& random);
std::string Touch(Random& random);

}  // namespace kalvex::monkey
