// The contents of the files that the program exports, as bytes.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "workspace/function_entry.h"

namespace kalvex {

/// The file of a report: the byte-order mark FF FE, then the text in UTF-16LE with its \r\n line
/// ends and without a terminator. All code units are kept.
[[nodiscard]] std::string ReportFile(std::u16string_view report);

/// The file of a point table: for each defined sample, in order, x, one blank, y and a line feed,
/// in fixed notation with 17 digits after the point. It has no header and no byte-order mark.
[[nodiscard]] std::string PointTableFile(std::span<const CurveSample> samples);

}  // namespace kalvex
