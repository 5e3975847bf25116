// What Draw does with the File lines before the graph is shown.
#pragma once

#include <array>
#include <string>

#include "base/message_box.h"
#include "interp/approx_parameters.h"
#include "workspace/function_entry.h"

namespace kalvex {

/// A selected line of type File.
bool IsSelectedFile(const FunctionEntry& entry);

/// The path of each slot as bytes. A name of a file need not be UTF-8, the text of a line is.
using FilePaths = std::array<std::string, kSlotCount>;

/// The working texts as paths.
FilePaths PathsOf(const FunctionList& functions);

/// Reads the point tables of the selected File lines afresh, in slot order. The first file that
/// cannot be read ends it with false; its own table is then empty, those read before stay.
bool ReadPointFiles(FunctionList& functions, const FilePaths& paths);

/// Whether a method that asks for a number of terms may have its one with this many points. Methods
/// that ask for none take any.
bool HasGoodTermCount(const ApproxParameters& parameters, std::size_t points);

/// Message 79 about a function of a number from 1.
MessageBox TermCountBox(int function);

/// Message 79 for the first selected File line with least squares whose number of terms is below 1
/// or above its number of points; false when there is one.
bool CheckTermCounts(const FunctionList& functions, const ShowMessage& show);

/// Asks message 76 for every selected File line with more than 50 points, also after a No; false
/// when one was answered with No.
bool ConfirmManyLines(const FunctionList& functions, const ShowMessage& show);

/// Everything that Draw checks about File lines, in its order: reads the files (message 75 on
/// failure), CheckTermCounts, ConfirmManyLines. False: nothing is drawn.
bool PrepareFileLines(FunctionList& functions, const FilePaths& paths, const ShowMessage& show);

/// The same with PathsOf the functions.
bool PrepareFileLines(FunctionList& functions, const ShowMessage& show);

}  // namespace kalvex
