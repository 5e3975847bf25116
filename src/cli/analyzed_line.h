// The one line that a subcommand draws for its samples.
#pragma once

#include <string>

#include "cli/view_options.h"

namespace kalvex {

/// Prepares a line in slot 1 and draws it off screen without painting; its samples are in the
/// entry then. False after a rejected text or a point file that cannot be read (told on standard
/// error); throws CLI::ParseError for an argument that is no line, and for an implicit one, which
/// has no samples.
bool DrawAnalysable(ViewOptions& view, FunctionList& functions, const std::string& line);

}  // namespace kalvex
