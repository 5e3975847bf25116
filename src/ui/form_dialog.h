// The frame of all small dialogs: a column of fields above two soft keys.
#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>
#include <functional>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace kalvex {

/// "Save" (Enter) asks `save` and closes when it says true; "Cancel" and Escape close. As wide as
/// its fields need, whatever the window below measures.
class FormDialog final : public QDialog {
  public:
    FormDialog(const QString& title, QWidget* parent);

    QLineEdit* AddText(const QString& label, const QString& text, const QString& tip = {});
    QComboBox* AddChoice(const QString& label, const QStringList& entries, int index,
                         const QString& tip = {});
    /// A paragraph above the fields.
    void AddNote(const QString& text);
    /// An empty line of text under the field that was added last, for what it means at the moment.
    QLabel* AddMeaning();
    /// Opens it over its parent and returns at once; it is deleted when it closes.
    void OpenOverParent();

    std::function<bool()> save;

  private:
    void AddRow(const QString& label, QWidget* field, const QString& tip);
    void AddKeys();

    QVBoxLayout* column;
    QFormLayout* form;
};

/// Puts the focus into a field with all its text selected: the place that was refused.
void PointAt(QLineEdit& field);

}  // namespace kalvex
