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
std::shared_ptr<ViewOptions> AddViewOptions(CLI::App& command);

/// Prepares the lines in slots 1 up, in the order given, and reads the point files of file lines.
/// Throws CLI::ParseError for an argument that is no line and for more than nine; a rejected text,
/// a file that cannot be read and a bad number of terms go to standard error and give false.
bool PrepareLines(FunctionList& functions, const std::vector<std::string>& lines);

/// Draws off screen; the functions' sample caches are filled. Methods that give no curve are told
/// on standard error.
DrawList DrawOffScreen(ViewOptions& view, FunctionList& functions, const MeasureText& measure);

}  // namespace kalvex
