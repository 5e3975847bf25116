// The frame of all small dialogs: a column of fields above two soft keys.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "base/flow.h"
#include "ui/parts/front_dialog.h"
#include "ui/parts/qt_text.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace kalvex {

/// "Save" and Enter call `save` and close the dialog when it returns true; the key can have another
/// word. "Cancel" and Escape close it. It is as wide as its fields need, not as its parent.
class FormDialog final : public FrontDialog {
  public:
    FormDialog(const QString& title, QWidget* parent,
               const QString& saveWord = TextOf(StringId::SaveKey));

    QLineEdit* AddText(const QString& label, const QString& text, const QString& tip = {});
    QComboBox* AddChoice(const QString& label, const QStringList& entries, int index,
                         const QString& tip = {});
    /// Adds a field with a caption that the caller has made.
    void AddPair(QLabel* caption, QWidget* field);
    /// A field as wide as the form.
    void AddWide(QWidget* field);
    /// A paragraph above the fields.
    void AddNote(const QString& text);
    /// An empty text below the field that was added last, which can explain its present value.
    [[nodiscard]] QLabel* AddMeaning();
    /// Takes the size that the fields need, at most `room` (logical pixels). When the fields are
    /// higher than that they scroll, and the keys stay in view.
    void FitInto(const QSize& room);
    /// Calls FitInto with the room of the screen; only the first call has an effect.
    void FitToScreen();
    /// Opens it over its parent, no larger than the screen, and returns at once; it is deleted when
    /// it closes.
    void OpenOverParent();
    [[nodiscard]] QPushButton* SaveKey() const { return saveKey; }
    [[nodiscard]] QPushButton* CancelKey() const { return cancelKey; }

    std::function<bool()> save;

  private:
    void AddRow(const QString& label, QWidget* field, const QString& tip);
    void AddKeys(const QString& saveWord);
    [[nodiscard]] int NaturalWidth(int room) const;

    bool fitted = false;

    QPushButton* saveKey = nullptr;
    QPushButton* cancelKey = nullptr;
    QWidget* page;
    QVBoxLayout* column;
    QFormLayout* form;
};

/// Puts the focus into a field, for example one that was refused, and selects all its text.
void PointAt(QLineEdit& field);

/// Shows why the text of a field was refused, then points at the field; `after` runs last. The box
/// is in front of the dialog that has the field.
Flow RefuseText(ShowBox show, std::u16string reason, QLineEdit* field,
                std::function<void()> after = {});

}  // namespace kalvex
