// A condition under which a method gives no curve, as data. The room itself shows and prints
// nothing and ends nothing.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "resources/strings.h"

namespace kalvex {

struct Diagnostic {
    std::string heading;               ///< "ROUTINE - Fatal error!", no line feed
    std::vector<std::string> details;  ///< the lines below it, no line feeds
    StringId reason{};                 ///< the same in plain words, for the user
    std::optional<StringId> box;       ///< text of the box that the routine itself opens, if any
};

/// "No failure" or why there is no result.
using Failure = std::optional<Diagnostic>;

/// A diagnostic of a routine ("LEAST_SET").
Diagnostic FatalError(std::string_view routine, std::initializer_list<std::string> details,
                      StringId reason);

/// What goes to standard error: an empty line, the heading, the details; each with a line feed.
std::string StandardErrorText(const Diagnostic& diagnostic);

}  // namespace kalvex
