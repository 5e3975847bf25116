// The words are those of the menus, so that a user who hears a word finds the same one in the menu.
#include "ui/editor/line_texts.h"

#include <QStringList>

#include "resources/strings.h"
#include "settings/settings_names.h"
#include "ui/parts/qt_text.h"
#include "workspace/function_list.h"

namespace kalvex {

QString NameOfLine(int slot, const FunctionEntry& entry) {
    return TextOf(StringId::LineNumber, {NumberText(slot + 1)}) +
           (LabelOf(entry.type).starts_with(u' ') ? "" : " ") + ToQString(LabelOf(entry.type));
}

QString DescriptionOfLine(const FunctionEntry& entry, const QString& hint) {
    QStringList words;
    if (entry.color >= 1 && entry.color <= static_cast<int>(kColorTable.size())) {
        words += TextOf(kColorTable[static_cast<std::size_t>(entry.color - 1)].word);
    }
    words += TextOf(entry.selected == 1 ? StringId::LineSelected : StringId::LineNotSelected);
    if (!hint.isEmpty()) words += hint;
    return words.join(", ");
}

QString HintOfLine(std::u16string_view line) {
    return IsStoredWhole(line) ? QString()
                               : TextOf(StringId::KeptCharacters, {NumberText(kStoredUnits)});
}

}  // namespace kalvex
