// The frame of all small dialogs: a column of fields above two soft keys.
#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>
#include <functional>

#include "ui/parts/qt_text.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace kalvex {

/// "Save" (Enter; another word where that fits better) asks `save` and closes when it says true;
/// "Cancel" and Escape close. As wide as its fields need, whatever the window below measures.
class FormDialog final : public QDialog {
  public:
    FormDialog(const QString& title, QWidget* parent,
               const QString& saveWord = TextOf(StringId::SaveKey));

    QLineEdit* AddText(const QString& label, const QString& text, const QString& tip = {});
    QComboBox* AddChoice(const QString& label, const QStringList& entries, int index,
                         const QString& tip = {});
    /// A caption of its own kind in front of a field.
    void AddPair(QLabel* caption, QWidget* field);
    /// A field as wide as the form.
    void AddWide(QWidget* field);
    /// A paragraph above the fields.
    void AddNote(const QString& text);
    /// An empty line of text under the field that was added last, for what it means at the moment.
    QLabel* AddMeaning();
    /// Takes the size that the fields need, no more than a room (logical pixels). Where they are
    /// higher they scroll; the keys stay.
    void FitInto(const QSize& room);
    /// The same for the screen; what is there is counted once.
    void FitToScreen();
    /// Opens it over its parent, no larger than the screen, and returns at once; it is deleted when
    /// it closes.
    void OpenOverParent();
    QPushButton* SaveKey() const { return saveKey; }
    QPushButton* CancelKey() const { return cancelKey; }

    std::function<bool()> save;

  private:
    void AddRow(const QString& label, QWidget* field, const QString& tip);
    void AddKeys(const QString& saveWord);
    int NaturalWidth(int room) const;

    bool fitted = false;

    QPushButton* saveKey = nullptr;
    QPushButton* cancelKey = nullptr;
    QWidget* page;
    QVBoxLayout* column;
    QFormLayout* form;
};

/// Puts the focus into a field with all its text selected: the place that was refused.
void PointAt(QLineEdit& field);

}  // namespace kalvex
