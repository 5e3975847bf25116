// What happens to the program besides input: its window changes, assistive technology presses
// buttons wherever they are, the session ends, another start comes.
#pragma once

#include <string>

#include "monkey/input.h"

namespace kalvex::monkey {

/// Each does something once and returns what, for the log.
std::string Resize(Random& random);
std::string ChangeClipboard(Random& random);
std::string CloseWindow(Random& random);
std::string PressThroughAccessibility(Random& random);
/// Names a file that is there in an open save dialog, which asks whether to replace it; without
/// such a dialog, presses the keys that open one.
std::string ReplaceFile(Random& random);
std::string EndSession(Random& random);
std::string Terminate(Random& random);
std::string StartAgain(Random& random);

}  // namespace kalvex::monkey
