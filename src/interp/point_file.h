// Point files: plain text, one point per line.
//
// A line is the x value, blanks, the y value: x is what stands before the first blank, y what
// stands behind the last one; what is between them is ignored. Only the blank (U+0020) separates.
// Numbers have a decimal point and an optional exponent in every locale, and nothing may follow
// them. Infinities, words and hexadecimal numbers are refused. A missing y (the line ends in a
// blank) is 0. Lines are cut by line_pieces.h. A line of fewer than three characters, its line feed
// included, is no point: it sets the number of points to those read so far, and the next point
// replaces the last of them. So a file may end in an empty line. Of the points after an empty line
// in the middle, only the first one has an effect.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "interp/point_table.h"

namespace kalvex {

/// More lines than these are refused: 4,194,304 points are 64 MiB here and 200 MiB in a function.
inline constexpr std::size_t kMostLines = std::size_t{1} << 22;

enum class PointFileError {
    None,
    Unreadable,    ///< does not exist, is no regular file, may not or cannot be read
    Malformed,     ///< a line is not a point
    TooManyLines,  ///< more than kMostLines
};

struct PointFile {
    PointFileError error = PointFileError::None;
    std::size_t line = 0;  ///< of Malformed and TooManyLines: the piece's number, from 1
    PointTable points;     ///< empty after an error
};

/// Reads a file (path in UTF-8). Devices, pipes and folders are refused without being read, so
/// nothing can block. The file is read once from beginning to end. When it changes meanwhile, the
/// result is an error or a mixture of the old and the new content. Memory: the points and one block
/// of the file.
[[nodiscard]] PointFile ReadPointFile(const std::string& path);

/// The same for a text in memory.
[[nodiscard]] PointFile ReadPointText(std::string_view bytes);

}  // namespace kalvex
