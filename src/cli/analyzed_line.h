// For the subcommands that need the samples of one line.
#pragma once

#include <string>

#include "cli/view_options.h"

namespace kalvex {

/// Prepares a line in slot 1 and draws it off screen without painting, which leaves its samples in
/// the entry. False, with a message on standard error, for a rejected text or an unreadable point
/// file. Throws CLI::ParseError for an argument that is not a line and for an implicit line, which
/// has no samples.
[[nodiscard]] bool DrawAnalysable(ViewOptions& view, FunctionList& functions,
                                  const std::string& line);

}  // namespace kalvex
