// Random texts from the vocabulary of the expression language. Many are nearly correct, so that
// even the last rules of the check are reached.
#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace kalvex::test {

inline std::u16string RandomText(std::mt19937& random, std::size_t mostPieces) {
    constexpr std::array<std::u16string_view, 34> kPieces = {
        u"x", u"x",    u"y",      u"(",  u"(",     u"(",      u")",   u")",  u")",
        u"-", u"-",    u"+",      u"*",  u"/",     u"^",      u",",   u",",  u"1",
        u"0", u"25",   u".",      u" ",  u"sin(",  u"exp(",   u"Ei(", u"J(", u"Beta(",
        u"e", u"Cheb", u"Hyper(", u"tg", u"1.5e3", u"\u0451", u"x+1"};
    std::uniform_int_distribution<std::size_t> count(0, mostPieces);
    std::uniform_int_distribution<std::size_t> piece(0, kPieces.size() - 1);
    std::u16string text;
    for (std::size_t left = count(random); left > 0; --left)
        text += kPieces[piece(random)];
    return text;
}

}  // namespace kalvex::test
