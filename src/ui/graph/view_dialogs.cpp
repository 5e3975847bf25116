// Both dialogs are one form with different numbers.
#include "ui/graph/view_dialogs.h"

#include <QLineEdit>
#include <array>
#include <span>
#include <utility>

#include "commands/view_input.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

template <std::size_t Count>
using Reader = std::optional<InputProblem> (*)(const std::array<std::u16string, Count>&,
                                               ViewWindow&);

/// What a form of numbers shows.
template <std::size_t Count>
struct NumberForm {
    StringId title{};
    const char* name;
    std::array<std::u16string_view, Count> labels;
    std::array<double, Count> values;
    Reader<Count> read;
};

template <std::size_t Count>
void OpenNumberForm(QWidget* parent, const NumberForm<Count>& shown, ViewWindow& view,
                    const ShowBox& show, std::function<void()> changed) {
    auto* const dialog = new FormDialog(TextOf(shown.title), parent);
    dialog->setObjectName(shown.name);
    std::array<QLineEdit*, Count> fields{};
    for (std::size_t i = 0; i < Count; ++i) {
        fields[i] = dialog->AddText(TextOf(StringId::FieldCaption, {shown.labels[i]}),
                                    ToQString(NumberForInput(shown.values[i])));
        fields[i]->setObjectName("field" + QString::number(i + 1));
        fields[i]->setInputMethodHints(Qt::ImhPreferNumbers);
    }
    dialog->save = [fields, &view, show, read = shown.read, changed = std::move(changed)] {
        std::array<std::u16string, Count> texts;
        for (std::size_t i = 0; i < Count; ++i)
            texts[i] = FromQString(fields[i]->text());
        const std::optional<InputProblem> problem = read(texts, view);
        if (!problem) {
            changed();
            return true;
        }
        RefuseText(show, problem->message, fields[problem->field]);
        return false;
    };
    PointAt(*fields[0]);
    dialog->OpenOverParent();
}

}  // namespace

void OpenViewWindowDialog(QWidget* parent, ViewWindow& view, const ShowBox& show,
                          std::function<void()> changed) {
    const NumberForm<4> form{StringId::MenuViewWindow,
                             "viewWindowDialog",
                             BoundNames(),
                             {view.Xmin, view.Xmax, view.Ymin, view.Ymax},
                             ReadBounds};
    OpenNumberForm(parent, form, view, show, std::move(changed));
}

void OpenFactorDialog(QWidget* parent, ViewWindow& view, const ShowBox& show,
                      std::function<void()> changed) {
    const NumberForm<2> form{StringId::FactorTitle,
                             "factorDialog",
                             FactorNames(),
                             {view.Xfactor, view.Yfactor},
                             ReadFactors};
    OpenNumberForm(parent, form, view, show, std::move(changed));
}

}  // namespace kalvex
