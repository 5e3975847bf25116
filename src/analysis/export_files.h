// What stands in the files that the program exports, as bytes.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "workspace/function_entry.h"

namespace kalvex {

/// A report as a file: the byte-order mark FF FE, then the text in UTF-16LE as it stands, its \r\n
/// included, without a terminator. Any code units are kept.
std::string ReportFile(std::u16string_view report);

/// The points of a function as a file: of each defined sample, in order, x, one blank, y and a line
/// feed; fixed notation with 17 digits after the point. No header, no byte-order mark.
std::string PointTableFile(std::span<const CurveSample> samples);

}  // namespace kalvex
