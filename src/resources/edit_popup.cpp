// A menu word of `Function` is the name that it inserts, so the menu itself is the table of what is
// inserted. These names belong to the language of the expressions and are never translated.
#include "resources/edit_popup.h"

#include <string_view>

#include "resources/strings.h"

namespace kalvex {
namespace {

Menu TrigMenu() {
    return {
        {CommandId::InsertSin, u"sin", {}},
        {CommandId::InsertCos, u"cos", {}},
        {CommandId::InsertTg, u"tg", {}},
        // KEEP: ctg is offered although the language has no such function; its check says so.
        {CommandId::InsertCtg, u"ctg", {}},
        {CommandId::InsertAcos, u"acos", {}},
        {CommandId::InsertAsin, u"asin", {}},
        {CommandId::InsertAtg, u"atg", {}},
    };
}

Menu HypMenu() {
    return {
        {CommandId::InsertSh, u"sh", {}},
        {CommandId::InsertCh, u"ch", {}},
        {CommandId::InsertTh, u"th", {}},
    };
}

Menu NumMenu() {
    return {
        {CommandId::InsertInt, u"int", {}},
        {CommandId::InsertFrac, u"frac", {}},
        {CommandId::InsertAbs, u"abs", {}},
    };
}

Menu SpecMenu() {
    const Menu airy = {{CommandId::InsertAi, u"Ai", {}}, {CommandId::InsertBi, u"Bi", {}}};
    const Menu fresnels = {{CommandId::InsertCf, u"Cf", {}}, {CommandId::InsertSf, u"Sf", {}}};
    const Menu integrals = {
        {CommandId::InsertSi, u"Si", {}},
        {CommandId::InsertCi, u"Ci", {}},
        {CommandId::InsertShi, u"Shi", {}},
        {CommandId::InsertChi, u"Chi", {}},
    };
    return {
        {CommandId::InsertGamma, u"Gamma", {}},
        {CommandId::InsertPsi, u"Psi", {}},
        {CommandId::InsertDawsonF, u"DawsonF", {}},
        {CommandId::InsertEi, u"Ei", {}},
        {CommandId::InsertErf, u"erf", {}},
        {CommandId::InsertLi, u"Li", {}},
        {CommandId::None, Text(StringId::AiryMenu), airy},
        {CommandId::None, Text(StringId::FresnelsMenu), fresnels},
        {CommandId::None, Text(StringId::IntegralsMenu), integrals},
    };
}

Menu FunctionMenu() {
    return {
        {CommandId::None, Text(StringId::TrigMenu), TrigMenu()},
        {CommandId::None, Text(StringId::HypMenu), HypMenu()},
        {CommandId::None, Text(StringId::NumMenu), NumMenu()},
        {CommandId::None, Text(StringId::SpecMenu), SpecMenu()},
    };
}

Menu TextMenu() {
    return {
        {CommandId::Cut, Text(StringId::MenuCut), {}},
        {CommandId::Copy, Text(StringId::MenuCopy), {}},
        {CommandId::Paste, Text(StringId::MenuPaste), {}},
        {CommandId::Undo, Text(StringId::MenuUndo), {}},
        {CommandId::SelectText, Text(StringId::MenuSelectText), {}},
    };
}

std::u16string_view WordOf(const Menu& menu, CommandId command) {
    for (const MenuEntry& entry : menu) {
        if (entry.children.empty() && entry.id == command) return entry.text;
        const std::u16string_view inside = WordOf(entry.children, command);
        if (!inside.empty()) return inside;
    }
    return {};
}

}  // namespace

Menu EditPopup() {
    return {
        {CommandId::None, Text(StringId::FunctionMenu), FunctionMenu()},
        {CommandId::None, Text(StringId::TextEditMenu), TextMenu()},
        {CommandId::EditHelp, Text(StringId::MenuHelp), {}},
    };
}

std::u16string InsertedText(CommandId command) {
    const std::u16string_view word = WordOf(FunctionMenu(), command);
    return word.empty() ? std::u16string() : std::u16string(word) + u"(";
}

}  // namespace kalvex
