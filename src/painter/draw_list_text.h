// A picture as text: its drawing records, for tests and scripts.
#pragma once

#include <string>

#include "base/complete_file.h"
#include "graph/draw_list.h"

namespace kalvex {

/// The records of a list in UTF-8, one line each, columns separated by tabs. The first line is
/// "picture", width, height. In the others the columns are
///   kind        segments, polyline, ellipse, pixels or text
///   layer       grid, axes, numbers, curve or name
///   slot        the number of the function line, 1 to 9; "-" when there is none
///   colour      of the pen, #rrggbb
///   width       of the pen in logical pixels; "-" for pixels and text
///   geometry    items separated by blanks, the numbers of an item by commas:
///               segments x1,y1,x2,y2; polyline x,y; ellipse left,top,right,bottom;
///               pixels column,row,length (one run each); text x,y of the top left corner
/// An ellipse has one more column, the colour of its inside or "-"; a text has two, its height in
/// logical pixels and its characters, where \\, \t, \n and \r stand for a backslash and the
/// characters that would end a column or a line.
[[nodiscard]] std::string DrawListText(const DrawList& list);

/// Hands that text to `take`. False for a picture without pixels, as for the other formats, and
/// when `take` fails.
[[nodiscard]] bool MakeDrawListText(const DrawList& list, const TakeBytes& take);

}  // namespace kalvex
