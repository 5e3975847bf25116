// Sizes and folders that are remembered between two runs. They are a convenience and not part of
// the settings, so they have their own file, and a failure to read or write it is not reported.
#pragma once

#include <QSize>
#include <QString>
#include <string>

class QWidget;

namespace kalvex {

inline constexpr QSize kDefaultWindowSize{480, 640};

struct WindowState {
    QSize size = kDefaultWindowSize;  ///< logical pixels
    bool maximised = false;
    QString folder;  ///< last folder of a file dialog; empty: none yet
};

/// kalvex/window.ini beside the settings.
[[nodiscard]] std::string DefaultWindowStatePath();

[[nodiscard]] WindowState LoadWindowState(const std::string& path);
void SaveWindowState(const std::string& path, const WindowState& state);

/// Gives a window the remembered size. Where that does not fit the screen together with a frame,
/// the window is maximised.
void ApplyWindowState(QWidget& window, const WindowState& state);

/// Fills the screen with a window, or brings it back to what it was before.
void SetFullScreen(QWidget& window, bool on);

/// Whether a window is maximised, or was before it filled the screen (which some window managers
/// forget).
[[nodiscard]] bool IsOrWasMaximised(const QWidget& window);

/// Stores the present size of a window, and whether it is maximised; the size of a maximised window
/// is not stored.
void RememberWindow(const QWidget& window, WindowState& state);

/// Shows `next` in the place of `last` and hides `last`. A maximised window is followed by a
/// maximised one. After a window in full screen, `next` gets the place that `last` had before it
/// filled the screen.
void TakeWindowPlace(QWidget& last, QWidget& next);

}  // namespace kalvex
