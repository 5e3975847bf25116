// The help and the About box, over any window.
#pragma once

#include <QString>

#include "resources/command_ids.h"
#include "ui/parts/front_dialog.h"

class QLabel;
class QLineEdit;

namespace kalvex {

class HelpBrowser;

/// Fills its window with the page above the soft key `Ok`. Escape closes the line for searching if
/// that is open, else the window.
class HelpWindow final : public FrontDialog {
  public:
    explicit HelpWindow(QWidget* parent);

    [[nodiscard]] HelpBrowser& Page() const { return *browser; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddFindLine();
    void OpenFindLine();
    void CloseFindLine();
    void Find(bool forward, bool here = false);

    HelpBrowser* browser;
    QWidget* findLine = nullptr;
    QLineEdit* findText = nullptr;
    QLabel* notFound = nullptr;
};

/// Opens a page (a path) as large as the window below it; nothing is shown when there is no page.
void OpenHelpPage(QWidget* parent, const QString& page);

/// The page of the language that the system speaks; empty when the program finds none.
[[nodiscard]] QString SystemHelpPage();

/// Opens the help for `Help` of the menus and of a line's popup, the box for `About`; false for
/// every other command.
[[nodiscard]] bool RunHelpCommand(QWidget* parent, CommandId command);

}  // namespace kalvex
