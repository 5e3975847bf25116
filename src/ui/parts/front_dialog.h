// The base of the program's dialogs.
#pragma once

#include <QDialog>

#include "ui/parts/gate.h"

namespace kalvex {

/// A dialog that nothing closes while a message box or another dialog is open in front of it.
class FrontDialog : public QDialog {
  public:
    using QDialog::QDialog;

    void done(int result) override {
        if (MayRun(*this)) QDialog::done(result);
    }
};

}  // namespace kalvex
