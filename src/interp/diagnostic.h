// The reason why a method gives no curve, as data. The methods themselves neither show nor print
// anything and never end the program.
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

/// The diagnostic of a routine, for instance "LEAST_SET", without a box of its own.
[[nodiscard]] Diagnostic FatalError(std::string_view routine,
                                    std::initializer_list<std::string> details, StringId reason);

/// What goes to standard error: an empty line, the heading, the details; each with a line feed.
[[nodiscard]] std::string StandardErrorText(const Diagnostic& diagnostic);

}  // namespace kalvex
