// Exact values of the language's functions by ball arithmetic, for the search for wrong ones.
#pragma once

#include <string_view>
#include <vector>

#include "accuracy/reference_table.h"

namespace kalvex::accuracy {

/// A reference row at the arguments (in written order; "power" has base and exponent): the value to
/// some 32 digits, infinite beyond the range of doubles, and the condition number for the last
/// argument. False where ball arithmetic does not reach 32 digits, where there is no real value,
/// and for a function that this file does not know.
bool ExactRow(std::string_view name, const std::vector<double>& arguments, ReferenceRow& row);

/// The same without the condition number, which is left at 0. This is several times faster.
bool ExactRowWithoutCondition(std::string_view name, const std::vector<double>& arguments,
                              ReferenceRow& row);

/// The condition number of a row that has its arguments and its value.
void AddCondition(std::string_view name, ReferenceRow& row);

}  // namespace kalvex::accuracy
