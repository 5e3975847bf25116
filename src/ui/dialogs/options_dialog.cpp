// The form is made from the table of options and read back into a record; SaveOptions takes the
// record and stores it. The focus moves in the order in which the controls are made.
#include "ui/dialogs/options_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <utility>

#include "commands/options_input.h"
#include "resources/command_ids.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/tip_controls.h"

namespace kalvex {
namespace {

constexpr int kEditFrame = 16;

/// The controls by row of the table of options; null for an option that has none.
struct OptionsControls {
    std::array<QWidget*, kOptionRows.size()> of{};
    TipCheckBox* polarGrid = nullptr;
};

void Name(QObject& control, const char* name, int id) {
    control.setObjectName(name);
    control.setProperty("controlId", id);
}

QComboBox* NewList(FormDialog& dialog, const OptionRow& row, const std::u16string& chosen) {
    auto* const list = new QComboBox(&dialog);
    for (const OptionChoice& choice : row.control.choices)
        list->addItem(ToQString(ChoiceText(choice)));
    list->setCurrentIndex(list->findText(ToQString(chosen), Qt::MatchExactly));
    return list;
}

QLineEdit* NewNumber(FormDialog& dialog, const std::u16string& number) {
    auto* const field = new QLineEdit(ToQString(number), &dialog);
    field->setCursorPosition(0);
    field->setInputMethodHints(Qt::ImhPreferNumbers);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance("-000.000000") + kEditFrame);
    return field;
}

QCheckBox* NewBox(QWidget* parent, const OptionRow& row, bool checked) {
    auto* const box = new TipCheckBox(Text(row.control.text), parent);
    box->setChecked(checked);
    return box;
}

/// The caption in front of a field, which gets its name and its tip.
TipCaption* NewCaption(FormDialog& dialog, const OptionRow& row, QWidget* field) {
    auto* const caption = new TipCaption(Text(row.control.text), &dialog);
    caption->SetField(field);
    caption->setObjectName(QString(row.control.name) + "Caption");
    if (row.control.captionId != 0) caption->setProperty("controlId", row.control.captionId);
    return caption;
}

QWidget* AddControl(FormDialog& dialog, const OptionRow& row, const ControlState& shown) {
    if (row.control.kind == ControlKind::CheckBox) {
        QCheckBox* const box = NewBox(&dialog, row, shown.checked);
        dialog.AddWide(box);
        return box;
    }
    QWidget* field = nullptr;
    if (row.control.kind == ControlKind::NumberField) {
        field = NewNumber(dialog, shown.text);
    } else {
        field = NewList(dialog, row, shown.text);
    }
    TipCaption* const caption = NewCaption(dialog, row, field);
    if (row.control.kind == ControlKind::HiddenList) {
        // KEEP: the list is there and is saved, but nobody sees it, because nothing draws by it.
        caption->hide();
        field->hide();
    } else {
        dialog.AddPair(caption, field);
    }
    return field;
}

TipCheckBox* NewPolarBox(QWidget* parent, bool checked) {
    auto* const box = new TipCheckBox(Text(StringId::OptionPolarGrid), parent);
    box->setObjectName("polarGrid");
    box->setChecked(checked);
    return box;
}

/// A grid that is not shown has no kind to choose, and only one of lines has finer lines.
void ConnectGridBoxes(const OptionsControls& controls) {
    auto* const grid = qobject_cast<QCheckBox*>(controls.of[OptionIndex(&Options::Setka)]);
    QCheckBox* const polar = controls.polarGrid;
    QWidget* const fine = controls.of[OptionIndex(&Options::FineGrid)];
    const auto update = [grid, polar, fine] {
        polar->setEnabled(grid->isChecked());
        fine->setEnabled(grid->isChecked() && !polar->isChecked());
    };
    update();
    QObject::connect(grid, &QCheckBox::toggled, grid, update);
    QObject::connect(polar, &QCheckBox::toggled, polar, update);
}

/// The check boxes of the group in two columns.
void AddGroup(FormDialog& dialog, const OptionsInput& shown, OptionsControls& controls) {
    auto* const group = new QGroupBox(TextOf(StringId::OptionShowGroup), &dialog);
    Name(*group, "showOnGraph", 1069);
    auto* const grid = new QGridLayout(group);
    grid->setVerticalSpacing(0);
    const auto add = [grid](QCheckBox* box) {
        const int place = grid->count();
        grid->addWidget(box, place / 2, place % 2);
    };
    for (const OptionRow* const row : RowsInOrder(PlaceInDialog)) {
        if (controls.polarGrid == nullptr && row->control.place > kPolarGridPlace) {
            controls.polarGrid = NewPolarBox(group, shown.polarGrid);
            add(controls.polarGrid);
        }
        if (row->control.kind != ControlKind::GraphBox) continue;
        QCheckBox* const box = NewBox(group, *row, ControlOf(shown, row->field).checked);
        Name(*box, row->control.name, row->control.id);
        controls.of[OptionIndex(row->field)] = box;
        add(box);
    }
    ConnectGridBoxes(controls);
    dialog.AddWide(group);
}

void AddControls(FormDialog& dialog, const OptionsInput& shown, OptionsControls& controls) {
    for (const OptionRow* const row : RowsInOrder(PlaceInDialog)) {
        if (row->control.kind == ControlKind::GraphBox) {
            if (controls.polarGrid == nullptr) AddGroup(dialog, shown, controls);
            continue;
        }
        QWidget* const control = AddControl(dialog, *row, ControlOf(shown, row->field));
        Name(*control, row->control.name, row->control.id);
        controls.of[OptionIndex(row->field)] = control;
    }
}

OptionsInput Read(const OptionsControls& controls) {
    OptionsInput input;
    for (std::size_t i = 0; i < controls.of.size(); ++i) {
        ControlState& state = input.controls[i];
        if (const auto* const box = qobject_cast<QCheckBox*>(controls.of[i]))
            state.checked = box->isChecked();
        if (const auto* const list = qobject_cast<QComboBox*>(controls.of[i]))
            state.text = FromQString(list->currentText());
        if (const auto* const field = qobject_cast<QLineEdit*>(controls.of[i]))
            state.text = FromQString(field->text());
    }
    input.polarGrid = controls.polarGrid->isChecked();
    return input;
}

/// The control that the user must correct: a refusal names the first or the second of the range.
QLineEdit* FieldOf(const OptionsControls& controls, const InputProblem& problem) {
    const OptionField field = problem.field == 0 ? &Options::MinParam : &Options::MaxParam;
    return qobject_cast<QLineEdit*>(controls.of[OptionIndex(field)]);
}

}  // namespace

void OpenOptionsDialog(QWidget* parent, Options& options, const Registry& registry,
                       const ShowBox& show, std::function<void()> changed) {
    auto* const dialog = new FormDialog(TextOf(StringId::MenuOptions), parent);
    dialog->setObjectName("optionsDialog");
    const OptionsInput shown = InputOf(options);
    OptionsControls controls;
    AddControls(*dialog, shown, controls);
    dialog->SaveKey()->setProperty("controlId", static_cast<int>(CommandId::OptionsSave));
    dialog->CancelKey()->setProperty("controlId", static_cast<int>(CommandId::OptionsCancel));
    dialog->save = [controls, &options, registry, show, changed = std::move(changed)] {
        const auto problem = SaveOptions(Read(controls), options, registry);
        if (problem) {
            RefuseText(show, problem->message, FieldOf(controls, *problem), changed);
        } else {
            changed();
        }
        return !problem;
    };
    controls.of[OptionIndex(&Options::Wight)]->setFocus(Qt::OtherFocusReason);
    dialog->OpenOverParent();
}

}  // namespace kalvex
