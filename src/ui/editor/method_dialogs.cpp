// One form for all methods, made of the parameters in the row of the method.
#include "ui/editor/method_dialogs.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <string>
#include <vector>

#include "commands/number_input.h"
#include "interp/method_table.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

/// The name of a field in a message: its label without the sign behind it.
std::u16string_view NameOf(StringId label) {
    std::u16string_view name = Text(label);
    while (name.ends_with(u':') || name.ends_with(u'='))
        name.remove_suffix(1);
    return name;
}

/// A parameter in an open dialog: a list for a choice, a line of text for a number.
struct Control {
    const MethodParameter* parameter = nullptr;
    QLineEdit* edit = nullptr;
    QComboBox* list = nullptr;
};

QLineEdit* AddLine(FormDialog& dialog, const MethodParameter& parameter, const QString& shown) {
    return dialog.AddText(TextOf(parameter.label), shown, TextOf(parameter.tips[0]));
}

/// The tip of the chosen entry stands under the list.
QComboBox* AddList(FormDialog& dialog, const MethodParameter& parameter, std::int32_t number) {
    const int count = static_cast<int>(parameter.tips.size());
    QStringList entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(QString::number(i));
    const int chosen = number >= 0 && number < count ? number : 0;
    QComboBox* const list = dialog.AddChoice(TextOf(parameter.label), entries, chosen);
    for (int i = 0; i < count; ++i)
        list->setItemData(i, TextOf(parameter.tips[static_cast<std::size_t>(i)]), Qt::ToolTipRole);
    QLabel* const meaning = dialog.AddMeaning();
    const auto show = [list, meaning](int index) {
        const QString tip = list->itemData(index, Qt::ToolTipRole).toString();
        meaning->setText(tip);
        list->setToolTip(tip);
        list->setAccessibleDescription(tip);
    };
    QObject::connect(list, &QComboBox::currentIndexChanged, &dialog, show);
    show(chosen);
    return list;
}

Control AddControl(FormDialog& dialog, const MethodParameter& parameter,
                   const ApproxParameters& values) {
    Control control{&parameter};
    switch (parameter.kind) {
        case ParameterKind::Terms:
            control.edit =
                AddLine(dialog, parameter, ToQString(NumberText(values.*parameter.whole)));
            control.edit->setInputMethodHints(Qt::ImhDigitsOnly);
            break;
        case ParameterKind::Number:
            control.edit =
                AddLine(dialog, parameter, ToQString(NumberForInput(values.*parameter.real)));
            break;
        case ParameterKind::Choice:
            control.list = AddList(dialog, parameter, values.*parameter.whole);
            break;
    }
    (control.list != nullptr ? static_cast<QWidget*>(control.list) : control.edit)
        ->setObjectName(parameter.control);
    return control;
}

/// Takes all real numbers. When a text is not a number, shows which one it is and takes nothing.
bool TakeNumbers(const std::vector<Control>& controls, ApproxParameters& values,
                 const ShowBox& show) {
    std::vector<const Control*> asked;
    std::vector<std::u16string> texts;
    std::vector<std::u16string_view> names;
    for (const Control& control : controls) {
        if (control.parameter->kind != ParameterKind::Number) continue;
        asked.push_back(&control);
        texts.push_back(FromQString(control.edit->text()));
        names.push_back(NameOf(control.parameter->label));
    }
    std::vector<double> numbers(asked.size());
    if (const auto problem = ReadFiniteNumbers(texts, names, numbers)) {
        RefuseText(show, problem->message, asked[problem->field]->edit);
        return false;
    }
    for (std::size_t i = 0; i < asked.size(); ++i)
        values.*asked[i]->parameter->real = numbers[i];
    return true;
}

bool TakeAll(const std::vector<Control>& controls, ApproxParameters& values, const ShowBox& show) {
    if (!TakeNumbers(controls, values, show)) return false;
    for (const auto& [parameter, edit, list] : controls) {
        if (parameter->kind == ParameterKind::Terms)
            values.*parameter->whole = LeadingInteger(FromQString(edit->text()));
        if (parameter->kind == ParameterKind::Choice)
            values.*parameter->whole = list->currentIndex();
    }
    return true;
}

}  // namespace

void OpenMethodDialog(QWidget* parent, FunctionEntry& entry, const ShowBox& show) {
    const MethodRow* const row = FindMethod(entry.method.approx);
    if (row == nullptr || row->form.parameters.empty()) return;
    const auto method = static_cast<std::size_t>(row->method);
    auto* const dialog = new FormDialog(TextOf(kMethods[method].word), parent);
    dialog->setObjectName(row->form.name);
    if (const QString note = TextOf(row->form.note); !note.isEmpty()) dialog->AddNote(note);
    std::vector<Control> controls;
    for (const MethodParameter& parameter : row->form.parameters)
        controls.push_back(AddControl(*dialog, parameter, entry.method));
    dialog->save = [controls, &entry, show] { return TakeAll(controls, entry.method, show); };
    if (controls[0].edit != nullptr)
        PointAt(*controls[0].edit);
    else
        controls[0].list->setFocus(Qt::TabFocusReason);  // shows its focus
    dialog->OpenOverParent();
}

}  // namespace kalvex
