// Name, version and picture of the program.
#pragma once

class QWidget;

namespace kalvex {

/// Opens the About box over a window and returns at once; `OK`, Enter and Escape close it.
void OpenAboutBox(QWidget* parent);

}  // namespace kalvex
