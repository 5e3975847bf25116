// The main window: nine function lines above the soft keys.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <optional>

#include "base/message_box.h"
#include "ui/editor_commands.h"
#include "workspace/menu_state.h"
#include "workspace/workspace.h"

class QLabel;

namespace kalvex {

class BottomBar;
class LineEdit;
class LineLabel;

/// What the window cannot do itself.
struct EditorActions {
    std::function<void()> draw;
    std::function<void()> exit;  ///< `Exit` and the close button
    std::function<void(int slot)> choosePointFile;
    std::function<void()> openOptions;
    std::function<void()> openCalculator;
    ShowMessage show;
};

/// Shows the workspace's lines and keeps `Workspace::lines` equal to what stands in them. The
/// controls are named "line1" to "line9" and "label1" to "label9" and carry the program's control
/// numbers (1000 and 2000 upward) as the property "controlId".
class EditorWindow final : public QWidget {
  public:
    EditorWindow(Workspace& shown, EditorActions actions);

    /// Brings labels, texts and hints up to date with the workspace.
    void ShowLines();
    /// Index of the line that has the focus of this window, also while a menu is open.
    std::optional<int> FocusedSlot() const;
    void FocusLine(int slot);
    /// Opens the menu for the focused line.
    void OpenMenu();
    bool Run(CommandId command);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Row {
        LineLabel* label = nullptr;
        LineEdit* edit = nullptr;
        QLabel* hint = nullptr;
    };

    void AddRow(int slot);
    void AddShortcuts();
    void ShowLine(int slot);
    void ShowHint(int slot);

    Workspace& workspace;
    EditorState state;
    std::array<Row, kSlotCount> rows;
    BottomBar* bar = nullptr;
    MainMenuState menuState;
};

}  // namespace kalvex
