// The texts of the program. Everything that a person can read or hear is a row of resources/texts,
// and the rest of the program knows it by its number only: a translation is another set of rows
// with the same numbers.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kalvex {

/// The number of a text. Numbers below 1000 are fixed, all others may change.
enum class StringId : std::int32_t {
#ifndef Q_MOC_RUN  // Qt's moc, which reads the tests, knows no include within an enumeration
#define KALVEX_TEXT(name, number, text) name = (number),
#include "resources/texts/texts.inc"
#undef KALVEX_TEXT
#endif
};

/// The text of a number; empty for a number that no text has.
[[nodiscard]] std::u16string_view Text(StringId id);

/// Replaces the places "%1" to "%9" of a text by the first to the ninth of the given texts. A place
/// may stand anywhere and more than once; "%%" becomes one "%". A place without a given text is
/// left out, a given text without a place is ignored, and given texts are not searched for places.
[[nodiscard]] std::u16string FillIn(std::u16string_view format,
                                    std::initializer_list<std::u16string_view> texts);

/// The decimal digits of a number, for FillIn.
[[nodiscard]] std::u16string NumberText(std::int64_t number);

}  // namespace kalvex
