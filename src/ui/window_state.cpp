// A few values in an INI file. A size that no window can have is ignored, so a damaged file gives
// the defaults.
#include "ui/window_state.h"

#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>
#include <QWindow>

namespace kalvex {
namespace {

constexpr int kSmallest = 100;
constexpr int kLargest = 16384;

// What a window manager may add around a window; the true frame is known only once it is shown.
constexpr int kFrameBorder = 6;
constexpr int kFrameTitle = 36;

constexpr char kMaximisedBefore[] = "maximisedBeforeFullScreen";

bool IsUsable(QSize size) {
    return size.width() >= kSmallest && size.height() >= kSmallest && size.width() <= kLargest &&
           size.height() <= kLargest;
}

}  // namespace

QString DefaultWindowStatePath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kalvex/window.ini";
}

WindowState LoadWindowState(const QString& path) {
    const QSettings file(path, QSettings::IniFormat);
    WindowState state;
    const QSize size(file.value("width").toInt(), file.value("height").toInt());
    if (IsUsable(size)) state.size = size;
    state.maximised = file.value("maximised").toInt() == 1;
    state.folder = file.value("folder").toString();
    return state;
}

void SaveWindowState(const QString& path, const WindowState& state) {
    QSettings file(path, QSettings::IniFormat);
    file.setValue("width", state.size.width());
    file.setValue("height", state.size.height());
    file.setValue("maximised", state.maximised ? 1 : 0);
    file.setValue("folder", state.folder);
    file.sync();
}

void ApplyWindowState(QWidget& window, const WindowState& state) {
    const QSize room = window.screen()->availableGeometry().size();
    window.resize(state.size.boundedTo(room));
    const bool fits = state.size.width() + 2 * kFrameBorder <= room.width() &&
                      state.size.height() + kFrameTitle + kFrameBorder <= room.height();
    if (state.maximised || !fits) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void SetFullScreen(QWidget& window, bool on) {
    if (on == window.isFullScreen()) return;
    if (on) {
        window.setProperty(kMaximisedBefore, window.isMaximized());
        window.setWindowState(window.windowState() | Qt::WindowFullScreen);
    } else {
        const bool maximised = IsOrWasMaximised(window);
        window.setWindowState(maximised ? Qt::WindowMaximized : Qt::WindowNoState);
    }
}

bool IsOrWasMaximised(const QWidget& window) {
    if (window.isFullScreen()) return window.property(kMaximisedBefore).toBool();
    return window.isMaximized();
}

void RememberWindow(const QWidget& window, WindowState& state) {
    state.maximised = IsOrWasMaximised(window);
    if (!window.isMaximized() && !window.isFullScreen()) state.size = window.size();
}

void TakeWindowPlace(QWidget& last, QWidget& next) {
    if (IsOrWasMaximised(last)) {
        next.setGeometry(last.normalGeometry());
        next.setWindowState(Qt::WindowMaximized);
    } else {
        const QRect place = last.isFullScreen() ? last.normalGeometry() : last.geometry();
        next.setWindowState(Qt::WindowNoState);
        next.setGeometry(place);
        // When the place is the one that the window had before, Qt passes no move on, and the
        // window manager would choose another place. The native window takes it as a request.
        if (next.windowHandle() != nullptr) next.windowHandle()->setGeometry(place);
    }
    next.show();
    next.raise();
    next.activateWindow();
    last.hide();
}

}  // namespace kalvex
