// The form is made from an OptionsInput and read back into one; SaveOptions takes and stores it.
// Tab moves the focus in the order in which the controls are made here.
#include "ui/dialogs/options_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <span>
#include <utility>

#include "commands/options_input.h"
#include "resources/command_ids.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/tip_controls.h"

namespace kalvex {
namespace {

constexpr int kEditFrame = 16;

struct OptionsControls {
    QComboBox* lineWidth = nullptr;
    QComboBox* maxAngle = nullptr;
    QComboBox* textSize = nullptr;
    QLineEdit* minParam = nullptr;
    QLineEdit* maxParam = nullptr;
    TipCheckBox* colours = nullptr;
    TipCheckBox* labels = nullptr;
    TipCheckBox* coords = nullptr;
    TipCheckBox* grid = nullptr;
    TipCheckBox* derivative = nullptr;
    TipCheckBox* axes = nullptr;
    QComboBox* interpolation = nullptr;
    TipCheckBox* polarGrid = nullptr;
};

void Name(QObject& control, const char* name, int id) {
    control.setObjectName(name);
    control.setProperty("controlId", id);
}

QStringList EntriesOf(std::span<const OptionChoice> choices) {
    QStringList entries;
    for (const OptionChoice& choice : choices)
        entries += TextOf(choice.word);
    return entries;
}

QStringList TextSizes() {
    QStringList entries;
    for (std::int32_t size = kLeastTextSize; size <= kLargestTextSize; ++size)
        entries += ToQString(TextSizeText(size));
    return entries;
}

QComboBox* NewList(FormDialog& dialog, const QStringList& entries, const std::u16string& chosen) {
    auto* const list = new QComboBox(&dialog);
    list->addItems(entries);
    list->setCurrentIndex(list->findText(ToQString(chosen), Qt::MatchExactly));
    return list;
}

TipCaption* AddField(FormDialog& dialog, StringId text, QWidget* field) {
    auto* const caption = new TipCaption(Text(text), &dialog);
    caption->SetField(field);
    dialog.AddPair(caption, field);
    return caption;
}

QLineEdit* AddNumber(FormDialog& dialog, StringId text, const std::u16string& number) {
    auto* const field = new QLineEdit(ToQString(number), &dialog);
    field->setCursorPosition(0);
    field->setInputMethodHints(Qt::ImhPreferNumbers);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance("-000.000000") + kEditFrame);
    AddField(dialog, text, field);
    return field;
}

void AddFields(FormDialog& dialog, const OptionsInput& shown, OptionsControls& controls) {
    controls.lineWidth = NewList(dialog, EntriesOf(kLineWidths), shown.lineWidth);
    Name(*AddField(dialog, StringId::OptionLineWidth, controls.lineWidth), "lineWidthCaption",
         1079);
    Name(*controls.lineWidth, "lineWidth", 1036);
    controls.maxAngle = NewList(dialog, EntriesOf(kMaxAngles), shown.maxAngle);
    AddField(dialog, StringId::OptionMaxAngle, controls.maxAngle);
    Name(*controls.maxAngle, "maxAngle", 1037);
    controls.textSize = NewList(dialog, TextSizes(), shown.textSize);
    AddField(dialog, StringId::OptionTextSize, controls.textSize);
    Name(*controls.textSize, "textSize", 1071);
    controls.minParam = AddNumber(dialog, StringId::OptionMinParam, shown.minParam);
    Name(*controls.minParam, "minParam", 1000);
    controls.maxParam = AddNumber(dialog, StringId::OptionMaxParam, shown.maxParam);
    Name(*controls.maxParam, "maxParam", 1001);
}

TipCheckBox* NewBox(QWidget* parent, StringId text, bool checked, const char* name) {
    auto* const box = new TipCheckBox(Text(text), parent);
    box->setChecked(checked);
    box->setObjectName(name);
    return box;
}

void AddBoxes(FormDialog& dialog, const OptionsInput& shown, OptionsControls& controls) {
    controls.colours = NewBox(&dialog, StringId::OptionColours, shown.colours, "colours");
    controls.colours->setProperty("controlId", 1049);
    dialog.AddWide(controls.colours);
    auto* const group = new QGroupBox(TextOf(StringId::OptionShowGroup), &dialog);
    Name(*group, "showOnGraph", 1069);
    auto* const grid = new QGridLayout(group);
    grid->setVerticalSpacing(0);
    const auto add = [&](TipCheckBox*& box, StringId text, bool checked, const char* name, int id) {
        const int place = grid->count();
        box = NewBox(group, text, checked, name);
        box->setProperty("controlId", id);
        grid->addWidget(box, place / 2, place % 2);
    };
    add(controls.labels, StringId::OptionLabels, shown.labels, "labels", 1019);
    add(controls.coords, StringId::OptionCoords, shown.coords, "coords", 1022);
    add(controls.grid, StringId::OptionGrid, shown.grid, "grid", 1021);
    add(controls.derivative, StringId::OptionDerivative, shown.derivative, "derivative", 1023);
    add(controls.axes, StringId::OptionAxes, shown.axes, "axes", 1020);
    controls.polarGrid = NewBox(group, StringId::OptionPolarGrid, shown.polarGrid, "polarGrid");
    grid->addWidget(controls.polarGrid, 2, 1);
    // The kind of the grid can be chosen only while there is a grid.
    controls.polarGrid->setEnabled(shown.grid);
    QObject::connect(controls.grid, &QCheckBox::toggled, controls.polarGrid, &QWidget::setEnabled);
    dialog.AddWide(group);
}

/// KEEP: the list exists and is saved, but is hidden, because drawing does not depend on it.
void AddHiddenList(FormDialog& dialog, const OptionsInput& shown, OptionsControls& controls) {
    auto* const caption = new TipCaption(Text(StringId::OptionInterpolation), &dialog);
    controls.interpolation = NewList(dialog, EntriesOf(kInterpolations), shown.interpolation);
    caption->SetField(controls.interpolation);
    caption->setObjectName("interpolationCaption");
    Name(*controls.interpolation, "interpolation", 1052);
    caption->hide();
    controls.interpolation->hide();
}

OptionsInput Read(const OptionsControls& controls) {
    OptionsInput input;
    input.axes = controls.axes->isChecked();
    input.labels = controls.labels->isChecked();
    input.grid = controls.grid->isChecked();
    input.polarGrid = controls.polarGrid->isChecked();
    input.coords = controls.coords->isChecked();
    input.derivative = controls.derivative->isChecked();
    input.colours = controls.colours->isChecked();
    input.lineWidth = FromQString(controls.lineWidth->currentText());
    input.maxAngle = FromQString(controls.maxAngle->currentText());
    input.textSize = FromQString(controls.textSize->currentText());
    input.interpolation = FromQString(controls.interpolation->currentText());
    input.minParam = FromQString(controls.minParam->text());
    input.maxParam = FromQString(controls.maxParam->text());
    return input;
}

}  // namespace

void OpenOptionsDialog(QWidget* parent, Options& options, const Registry& registry,
                       const ShowMessage& show, std::function<void()> changed) {
    auto* const dialog = new FormDialog(TextOf(StringId::MenuOptions), parent);
    dialog->setObjectName("optionsDialog");
    const OptionsInput shown = InputOf(options);
    OptionsControls controls;
    AddFields(*dialog, shown, controls);
    AddBoxes(*dialog, shown, controls);
    AddHiddenList(*dialog, shown, controls);
    dialog->SaveKey()->setProperty("controlId", static_cast<int>(CommandId::OptionsSave));
    dialog->CancelKey()->setProperty("controlId", static_cast<int>(CommandId::OptionsCancel));
    dialog->save = [controls, &options, registry, show, changed = std::move(changed)] {
        const auto problem = SaveOptions(Read(controls), options, registry);
        if (problem) {
            show(ErrorBox(problem->message));
            PointAt(*(problem->field == 0 ? controls.minParam : controls.maxParam));
        }
        changed();
        return !problem;
    };
    controls.lineWidth->setFocus(Qt::OtherFocusReason);
    dialog->OpenOverParent();
}

}  // namespace kalvex
