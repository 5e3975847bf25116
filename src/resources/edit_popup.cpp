// A menu word of `Function` is the name that it inserts, so the menu itself is the table of texts.
#include "resources/edit_popup.h"

#include <string_view>

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
        {CommandId::InsertGamma, u"Gamma", {}},     {CommandId::InsertPsi, u"Psi", {}},
        {CommandId::InsertDawsonF, u"DawsonF", {}}, {CommandId::InsertEi, u"Ei", {}},
        {CommandId::InsertErf, u"erf", {}},         {CommandId::InsertLi, u"Li", {}},
        {CommandId::None, u"Airy", airy},           {CommandId::None, u"Fresnels", fresnels},
        {CommandId::None, u"Trig", integrals},
    };
}

Menu FunctionMenu() {
    return {
        {CommandId::None, u"Trig", TrigMenu()},
        {CommandId::None, u"Hyp", HypMenu()},
        {CommandId::None, u"Num", NumMenu()},
        {CommandId::None, u"Spec", SpecMenu()},
    };
}

Menu TextMenu() {
    return {
        {CommandId::Cut, u"Cut", {}},           {CommandId::Copy, u"Copy", {}},
        {CommandId::Paste, u"Paste", {}},       {CommandId::Undo, u"Undo", {}},
        {CommandId::SelectText, u"Select", {}},
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
        {CommandId::None, u"Function", FunctionMenu()},
        {CommandId::None, u"Text Edit", TextMenu()},
        {CommandId::EditHelp, u"Help", {}},
    };
}

std::u16string InsertedText(CommandId command) {
    const std::u16string_view word = WordOf(FunctionMenu(), command);
    return word.empty() ? std::u16string() : std::u16string(word) + u"(";
}

}  // namespace kalvex
