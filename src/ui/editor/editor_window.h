// The main window: nine function lines above the soft keys.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "commands/editor_commands.h"
#include "commands/menu_state.h"
#include "resources/platform.h"
#include "ui/parts/window_actions.h"
#include "workspace/workspace.h"

class QMenu;

namespace kalvex {

class BottomBar;
class Completion;
class LineArea;
class SlideHint;

/// What the editor is told of the program and of the system.
struct EditorActions : WindowActions {
    std::u16string_view platform = kPlatformType;
    /// Where the input panel covers the window, in its coordinates; empty while there is none.
    std::function<QRect()> inputPanel = SystemInputPanel;

    [[nodiscard]] static QRect SystemInputPanel();
};

/// Shows the workspace's lines and keeps `Workspace::lines` equal to what stands in them. The lines
/// and the soft keys stay above the input panel; lines without room are scrolled.
class EditorWindow final : public QWidget {
  public:
    EditorWindow(Workspace& shown, EditorActions given);
    ~EditorWindow() override;

    /// Brings labels, texts and hints up to date with the workspace.
    void ShowLines();
    /// Index of the line that has the focus, also while a menu is open. While a soft key has the
    /// focus, the line that had it before.
    [[nodiscard]] std::optional<int> FocusedSlot() const;
    void FocusLine(int slot);
    /// Shows a text in the place of the hint of the current line, until somebody types; an empty
    /// one takes it away.
    void ShowNote(const QString& text);
    /// Opens the menu for the focused line.
    void OpenMenu();
    /// Runs a command of the lines or of the program; false for a number that is no command, and
    /// while something is open in front of the window.
    bool Run(CommandId command);
    /// Lays the window out anew, above the input panel.
    void LayOut();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void UpdateMenu();
    /// Whether the menu offers a command now; short cuts run no command that it does not offer.
    [[nodiscard]] bool IsOffered(CommandId command);
    void AddLines();
    void ConnectLine(int slot);
    void AddKeys();
    void AddCompletion();
    void AddShortcuts();
    void ShowLine(int slot);
    void ShowHint(int slot);
    void Slide(QPoint at);
    [[nodiscard]] QMenu* MakeEditMenu(int slot);

    Workspace& workspace;
    EditorActions actions;
    EditorState state;
    LineArea* lines = nullptr;
    BottomBar* bar = nullptr;
    Completion* completion = nullptr;
    SlideHint* slideHint = nullptr;
    MainMenuState menuState;
    int lastSlot = 0;  ///< the line that had the focus last
    QString note;
    int noteSlot = 0;  ///< the line below which the note stands
};

}  // namespace kalvex
