// The fields keep their natural width. The keys look like the soft keys of the windows, but can be
// reached by Tab: in a dialog nothing else needs the focus.
#include "ui/form_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/bottom_bar.h"
#include "ui/touch.h"

namespace kalvex {
namespace {

constexpr int kLeastDialogWidth = 320;
constexpr int kMargin = 16;
constexpr int kGap = 10;

}  // namespace

FormDialog::FormDialog(const QString& title, QWidget* parent) : QDialog(parent) {
    setWindowTitle(title);
    setModal(true);
    setMinimumWidth(kLeastDialogWidth);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    column = new QVBoxLayout;
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    form = new QFormLayout;
    form->setSpacing(kGap);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addLayout(form);
    whole->addLayout(column);
    AddKeys();
}

void FormDialog::AddKeys() {
    auto* const bar = new BottomBar("Save", "Cancel", this);
    bar->menuButton()->setObjectName("saveKey");
    bar->actionButton()->setObjectName("cancelKey");
    bar->menuButton()->setDefault(true);
    bar->actionButton()->setAutoDefault(false);
    for (QPushButton* const key : {bar->menuButton(), bar->actionButton()})
        key->setFocusPolicy(Qt::StrongFocus);
    connect(bar->menuButton(), &QPushButton::clicked, this, [this] {
        if (!save || save()) accept();
    });
    connect(bar->actionButton(), &QPushButton::clicked, this, &QDialog::reject);
    layout()->addWidget(bar);
}

void FormDialog::AddRow(const QString& label, QWidget* field, const QString& tip) {
    auto* const caption = new QLabel(label, this);
    caption->setMinimumHeight(kTouchTarget);
    caption->setBuddy(field);
    caption->setToolTip(tip);
    field->setMinimumHeight(kTouchTarget);
    field->setToolTip(tip);
    field->setAccessibleName(QString(label).remove(':'));
    field->setAccessibleDescription(tip);
    form->addRow(caption, field);
}

QLineEdit* FormDialog::AddText(const QString& label, const QString& text, const QString& tip) {
    auto* const field = new QLineEdit(text, this);
    field->setCursorPosition(0);
    AddRow(label, field, tip);
    return field;
}

QComboBox* FormDialog::AddChoice(const QString& label, const QStringList& entries, int index,
                                 const QString& tip) {
    auto* const field = new QComboBox(this);
    field->addItems(entries);
    field->setCurrentIndex(index);
    AddRow(label, field, tip);
    return field;
}

void FormDialog::AddNote(const QString& text) {
    auto* const note = new QLabel(text, this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    column->insertWidget(column->indexOf(form), note);
}

QLabel* FormDialog::AddMeaning() {
    auto* const meaning = new QLabel(this);
    meaning->setTextFormat(Qt::PlainText);
    meaning->setWordWrap(true);
    form->addRow(meaning);
    return meaning;
}

void FormDialog::OpenOverParent() {
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void PointAt(QLineEdit& field) {
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

}  // namespace kalvex
