// Rewrites what a user types into the strict notation that the checker and the compiler accept:
// implicit products get their "*", a leading or bracketed minus gets a "0" in front.
#pragma once

#include <string>

#include "base/message_box.h"

namespace kalvex {

/// For functions of x alone (`Decart`, `Polar`, both halves of `Parametric`, the calculator).
/// Works in place, never fails; a text that it cannot make valid is left to the checker. Each "*"
/// inserted behind ")" shows a box "Test" with the whole text as rewritten so far, up to 255 boxes
/// (a text with that many products has too many tokens to be accepted).
void NormaliseExplicit(std::u16string& text, const ShowMessage& show);

/// For functions of x and y: knows products of the two variables, shows no box, and prefixes
/// "x*0+" so that x is always the first variable. An empty text stays empty.
void NormaliseImplicit(std::u16string& text);

}  // namespace kalvex
