// What Draw does with the File lines before the graph is shown.
#pragma once

#include <array>
#include <string>

#include "base/message_box.h"
#include "interp/approx_parameters.h"
#include "workspace/function_entry.h"

namespace kalvex {

/// Whether a line is selected and of type File.
[[nodiscard]] bool IsSelectedFile(const FunctionEntry& entry);

/// The path of each slot as bytes. A name of a file need not be UTF-8, the text of a line is.
using FilePaths = std::array<std::string, kSlotCount>;

/// The working texts as paths.
[[nodiscard]] FilePaths PathsOf(const FunctionList& functions);

/// Reads the point tables of the selected File lines afresh, in slot order. Stops with false at
/// the first file that cannot be read: the table of that line is then empty, and the tables read
/// before stay.
[[nodiscard]] bool ReadPointFiles(FunctionList& functions, const FilePaths& paths);

/// Whether a method that has a number of terms can use its number with this many points. True for
/// every other method.
[[nodiscard]] bool HasGoodTermCount(const ApproxParameters& parameters, std::size_t points);

/// Message 79 about the function with this number (1, 2, ...).
[[nodiscard]] MessageBox TermCountBox(int function);

/// Message 79 for the first selected File line with least squares whose number of terms is below 1
/// or above its number of points; false when there is one.
[[nodiscard]] bool CheckTermCounts(const FunctionList& functions, const ShowMessage& show);

/// Asks message 76 for every selected File line with more than 50 points, even after the answer No.
/// False when any answer was No.
[[nodiscard]] bool ConfirmManyLines(const FunctionList& functions, const ShowMessage& show);

/// Everything that Draw checks about File lines, in its order: reads the files (message 75 on
/// failure), CheckTermCounts, ConfirmManyLines. False when nothing may be drawn.
[[nodiscard]] bool PrepareFileLines(FunctionList& functions, const FilePaths& paths,
                                    const ShowMessage& show);

/// The same with PathsOf the functions.
[[nodiscard]] bool PrepareFileLines(FunctionList& functions, const ShowMessage& show);

}  // namespace kalvex
