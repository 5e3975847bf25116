// What all file dialogs share.
#pragma once

#include <QFileDialog>
#include <QString>
#include <functional>

class QSize;

namespace kalvex {

/// A file dialog that deletes itself. Qt's dialog opens boxes and menus of its own ("replace it?",
/// the menu of a file) and waits for them inside its functions. While such a box is open, nothing
/// accepts or closes the dialog; in any case it is deleted only after those functions have
/// returned.
class FileDialog final : public QFileDialog {
  public:
    FileDialog(QWidget* parent, const QString& caption, const QString& folder);

  protected:
    void accept() override;
    void done(int result) override;

  private:
    void DeleteWhenNothingWaits();

    int openedAt;  ///< how many event loops ran inside each other when it was made
};

/// Gives a dialog no more than the room of a screen; in a narrow one it does without the places at
/// the side and all columns but the names.
void FitFileDialog(QFileDialog& dialog, const QSize& room);

/// Hands the chosen path over when the dialog has left the screen: a message that follows would
/// share the keyboard with it otherwise. A dialog that was cancelled hands nothing over, whatever
/// becomes of a question that it asked itself and that is still open.
void WhenChosen(QFileDialog& dialog, std::function<void(const QString& path)> chosen);

/// Where a dialog starts: in the last folder; without one in the user's documents, or the home
/// folder when there are none.
[[nodiscard]] QString StartFolder(const QString& last);

}  // namespace kalvex
