// The options that describe the picture, shared by all subcommands that draw.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "graph/draw_list.h"
#include "graph/graph_state.h"
#include "workspace/function_entry.h"
#include "workspace/options.h"

namespace CLI {
class App;
}

namespace kalvex {

struct ViewOptions {
    GraphState state;  ///< the window -10..10 on 240 x 268 pixels unless told otherwise
    Options options;
    bool automatic = false;  ///< draw once, zoom automatically, draw again
};

/// Adds the options to a subcommand; parsing fills the record that is returned.
[[nodiscard]] std::shared_ptr<ViewOptions> AddViewOptions(CLI::App& command);

/// Prepares the lines in the slots from 1 on, in the order given, and reads the point files of file
/// lines. Throws CLI::ParseError for an argument that is not a line and for more than nine lines. A
/// rejected text, an unreadable file or a wrong number of terms gives a message on standard error
/// and false.
[[nodiscard]] bool PrepareLines(FunctionList& functions, const std::vector<std::string>& lines);

/// Draws off screen and fills the sample caches of the functions. A method that cannot be used with
/// its points gives a message on standard error.
[[nodiscard]] DrawList DrawOffScreen(ViewOptions& view, FunctionList& functions,
                                     const MeasureText& measure);

}  // namespace kalvex
