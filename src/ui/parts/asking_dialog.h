// Dialogs of Qt that open boxes, menus and dialogs of their own and wait for them inside their own
// functions, in an event loop.
#pragma once

#include <QDialog>

#include "ui/parts/gate.h"

namespace kalvex {

/// How many event loops run inside each other on this thread.
[[nodiscard]] int EventLoopLevel();

/// Closes the menus and lists that a dialog has open.
void ClosePopupsOf(const QWidget& dialog);

/// Deletes the dialog when no event loop is left inside the given one. A deletion that is only put
/// off with deleteLater would be run by the loop of a box or a menu that the dialog waits for.
void DeleteWhenNothingWaits(QDialog& dialog, int openedAt);

/// A dialog that deletes itself. While a box of its own is open, nothing accepts or closes it; in
/// any case it is deleted only after its own functions have returned.
template <typename Dialog>
class AskingDialog : public Dialog {
  public:
    using Dialog::Dialog;

    void accept() override {
        if (MayRun(*this)) Dialog::accept();
    }

    void done(int result) override {
        if (!MayRun(*this)) return;
        ClosePopupsOf(*this);
        Dialog::done(result);
        DeleteWhenNothingWaits(*this, openedAt);
    }

  private:
    int openedAt = EventLoopLevel();
};

}  // namespace kalvex
