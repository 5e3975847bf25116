// One function per dialog. The same pair of fields means other things to other methods: bias and
// tension here, the values at both ends there.
#include "ui/editor/method_dialogs.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "commands/number_input.h"
#include "interp/approximation.h"
#include "resources/message_boxes.h"
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

struct NumberField {
    QLineEdit* edit = nullptr;
    StringId label{};
};

/// Takes both numbers or shows why not.
bool TakeBetas(const std::array<NumberField, 2>& fields, FunctionEntry& entry,
               const ShowMessage& show) {
    std::array<double, 2> numbers{};
    const std::array texts = {FromQString(fields[0].edit->text()),
                              FromQString(fields[1].edit->text())};
    const std::array names = {NameOf(fields[0].label), NameOf(fields[1].label)};
    if (const auto problem = ReadFiniteNumbers(texts, names, numbers)) {
        show(ErrorBox(problem->message));
        PointAt(*fields[problem->field].edit);
        return false;
    }
    entry.beta1 = numbers[0];
    entry.beta2 = numbers[1];
    return true;
}

FormDialog* NewDialog(QWidget* parent, StringId title, const char* name) {
    auto* const dialog = new FormDialog(TextOf(title), parent);
    dialog->setObjectName(name);
    return dialog;
}

NumberField AddNumber(FormDialog& dialog, StringId label, double value, const QString& tip,
                      const char* name) {
    QLineEdit* const edit = dialog.AddText(TextOf(label), ToQString(NumberForInput(value)), tip);
    edit->setObjectName(name);
    return {edit, label};
}

void OpenTermsDialog(QWidget* parent, FunctionEntry& entry) {
    FormDialog* const dialog = NewDialog(parent, StringId::MethodLeastSquares, "termsDialog");
    dialog->AddNote(TextOf(StringId::TermsNote));
    QLineEdit* const field =
        dialog->AddText(TextOf(StringId::TermsCaption), ToQString(NumberText(entry.approx_val)),
                        TextOf(StringId::TermsNote));
    field->setObjectName("terms");
    field->setInputMethodHints(Qt::ImhDigitsOnly);
    dialog->save = [field, &entry] {
        entry.approx_val = LeadingInteger(FromQString(field->text()));
        return true;
    };
    PointAt(*field);
    dialog->OpenOverParent();
}

void OpenBetaDialog(QWidget* parent, FunctionEntry& entry, const ShowMessage& show) {
    FormDialog* const dialog = NewDialog(parent, StringId::MethodBetaSplines, "betaDialog");
    dialog->AddNote(TextOf(StringId::BetaNote));
    const std::array fields = {
        AddNumber(*dialog, StringId::BetaBias, entry.beta1, TextOf(StringId::BetaBiasTip), "beta1"),
        AddNumber(*dialog, StringId::BetaTension, entry.beta2, TextOf(StringId::BetaTensionTip),
                  "beta2")};
    dialog->save = [fields, &entry, show] { return TakeBetas(fields, entry, show); };
    PointAt(*fields[0].edit);
    dialog->OpenOverParent();
}

using FlagTips = std::array<StringId, 3>;

constexpr FlagTips kLeftTips = {StringId::LeftQuadratic, StringId::LeftFirstDerivative,
                                StringId::LeftSecondDerivative};
constexpr FlagTips kRightTips = {StringId::RightQuadratic, StringId::RightFirstDerivative,
                                 StringId::RightSecondDerivative};

/// A list of the three flags; the tip of the chosen one stands under it.
QComboBox* AddFlag(FormDialog& dialog, StringId label, const FlagTips& tips, std::int32_t flag,
                   const char* name) {
    const int chosen = flag >= 0 && flag <= 2 ? flag : 0;
    QComboBox* const list = dialog.AddChoice(TextOf(label), {"0", "1", "2"}, chosen);
    list->setObjectName(name);
    for (int i = 0; i < 3; ++i)
        list->setItemData(i, TextOf(tips[static_cast<std::size_t>(i)]), Qt::ToolTipRole);
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

void OpenCubicDialog(QWidget* parent, FunctionEntry& entry, const ShowMessage& show) {
    FormDialog* const dialog = NewDialog(parent, StringId::MethodCubicSpline, "cubicDialog");
    QComboBox* const left =
        AddFlag(*dialog, StringId::LeftBoundary, kLeftTips, entry.approx_val, "leftFlag");
    const NumberField leftValue =
        AddNumber(*dialog, StringId::LeftValue, entry.beta1, {}, "leftValue");
    QComboBox* const right =
        AddFlag(*dialog, StringId::RightBoundary, kRightTips, entry.approx_val2, "rightFlag");
    const NumberField rightValue =
        AddNumber(*dialog, StringId::RightValue, entry.beta2, {}, "rightValue");
    dialog->save = [=, &entry] {
        if (!TakeBetas({leftValue, rightValue}, entry, show)) return false;
        entry.approx_val = left->currentIndex();
        entry.approx_val2 = right->currentIndex();
        return true;
    };
    left->setFocus(Qt::TabFocusReason);  // shows its focus
    dialog->OpenOverParent();
}

}  // namespace

void OpenMethodDialog(QWidget* parent, FunctionEntry& entry, const ShowMessage& show) {
    switch (static_cast<ApproxMethod>(entry.approx)) {
        case ApproxMethod::LeastSquares:
            OpenTermsDialog(parent, entry);
            break;
        case ApproxMethod::BetaSplines:
            OpenBetaDialog(parent, entry, show);
            break;
        case ApproxMethod::PiecewiseCubic:
            OpenCubicDialog(parent, entry, show);
            break;
        default:
            break;
    }
}

}  // namespace kalvex
