#include "resources/edit_popup.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace kalvex {
namespace {

/// One line per entry: the path of menu words that leads to it, and its number.
void Describe(const Menu& menu, const std::u16string& way, std::u16string& out) {
    for (const MenuEntry& entry : menu) {
        const std::u16string here = way + std::u16string(entry.text);
        if (entry.children.empty()) {
            const std::string digits = std::to_string(static_cast<int>(entry.id));
            out += here + u" " + std::u16string(digits.begin(), digits.end()) + u"\n";
        } else {
            EXPECT_EQ(entry.id, CommandId::None);
        }
        Describe(entry.children, here + u"/", out);
    }
}

TEST(EditPopup, ReadsAsItMust) {
    std::u16string described;
    Describe(EditPopup(), u"", described);
    EXPECT_EQ(described,
              u"Function/Trig/sin 32800\nFunction/Trig/cos 32801\nFunction/Trig/tg 32802\n"
              u"Function/Trig/ctg 32803\nFunction/Trig/acos 32843\nFunction/Trig/asin 32844\n"
              u"Function/Trig/atg 32845\n"
              u"Function/Hyp/sh 32846\nFunction/Hyp/ch 32847\nFunction/Hyp/th 32848\n"
              u"Function/Num/int 32850\nFunction/Num/frac 32851\nFunction/Num/abs 32852\n"
              u"Function/Spec/Gamma 32882\nFunction/Spec/Psi 32887\nFunction/Spec/DawsonF 32888\n"
              u"Function/Spec/Ei 32889\nFunction/Spec/erf 32892\nFunction/Spec/Li 32893\n"
              u"Function/Spec/Airy/Ai 32895\nFunction/Spec/Airy/Bi 32896\n"
              u"Function/Spec/Fresnels/Cf 32898\nFunction/Spec/Fresnels/Sf 32899\n"
              u"Function/Spec/Trig/Si 32901\nFunction/Spec/Trig/Ci 32905\n"
              u"Function/Spec/Trig/Shi 32904\nFunction/Spec/Trig/Chi 32903\n"
              u"Text Edit/Cut 32794\nText Edit/Copy 32797\nText Edit/Paste 32798\n"
              u"Text Edit/Undo 32799\nText Edit/Select 32804\n"
              u"Help 32795\n");
}

TEST(InsertedText, IsTheWordWithItsBracket) {
    const std::map<int, std::u16string_view> rows = {
        {32800, u"sin("},  {32801, u"cos("},   {32802, u"tg("},  {32803, u"ctg("},
        {32843, u"acos("}, {32844, u"asin("},  {32845, u"atg("}, {32846, u"sh("},
        {32847, u"ch("},   {32848, u"th("},    {32850, u"int("}, {32851, u"frac("},
        {32852, u"abs("},  {32882, u"Gamma("}, {32887, u"Psi("}, {32888, u"DawsonF("},
        {32889, u"Ei("},   {32892, u"erf("},   {32893, u"Li("},  {32895, u"Ai("},
        {32896, u"Bi("},   {32898, u"Cf("},    {32899, u"Sf("},  {32901, u"Si("},
        {32905, u"Ci("},   {32904, u"Shi("},   {32903, u"Chi("},
    };
    for (int number = 32700; number < 33000; ++number) {
        const auto row = rows.find(number);
        EXPECT_EQ(InsertedText(static_cast<CommandId>(number)),
                  row == rows.end() ? u"" : row->second)
            << number;
    }
    EXPECT_EQ(InsertedText(CommandId::None), u"");
}

}  // namespace
}  // namespace kalvex
