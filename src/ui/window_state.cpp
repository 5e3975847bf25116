// A few values in an INI file. A size that no window can have is ignored, so a damaged file gives
// the defaults.
#include "ui/window_state.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <filesystem>
#include <system_error>

#include "base/complete_file.h"
#include "base/read_file.h"
#include "settings/config_folder.h"
#include "settings/ini_text.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

constexpr std::size_t kMostBytes = 65536;
constexpr std::string_view kSection = "General";

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

std::string DefaultWindowStatePath() {
    return ConfigFolder() + "/kalvex/window.ini";
}

WindowState LoadWindowState(const std::string& path) {
    const IniText file = ReadIni(ReadWholeFile(path, kMostBytes).bytes);
    const auto storedValue = [&file](std::string_view name) {
        const IniValue* const held = FindIniValue(file, kSection, name);
        return held == nullptr ? QString() : ToQString(held->text);
    };
    WindowState state;
    const QSize size(storedValue("width").toInt(), storedValue("height").toInt());
    if (IsUsable(size)) state.size = size;
    state.maximised = storedValue("maximised").toInt() == 1;
    state.folder = storedValue("folder");
    return state;
}

void SaveWindowState(const std::string& path, const WindowState& state) {
    IniText file;
    const auto storeValue = [&file](std::string_view name, const QString& value) {
        SetIniValue(file, kSection, name, FromQString(value));
    };
    storeValue("width", QString::number(state.size.width()));
    storeValue("height", QString::number(state.size.height()));
    storeValue("maximised", state.maximised ? "1" : "0");
    storeValue("folder", state.folder);
    std::error_code ignored;  // writing the file fails without its folder
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    static_cast<void>(WriteCompleteFile(path, WriteIni(file)));
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
