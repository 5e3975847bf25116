// Nothing is painted, so neither a window system nor fonts are needed; the names on the picture are
// given the size 0.
#include "cli/analyzed_line.h"

#include "analysis/analysis.h"
#include "cli/commands.h"

namespace kalvex {

bool DrawAnalysable(ViewOptions& view, FunctionList& functions, const std::string& line) {
    if (!PrepareLines(functions, {line})) return false;
    if (!CanAnalyse(functions[0])) WrongUsage("LINE", "an implicit curve has no points");
    const auto measure = [](std::u16string_view, std::int32_t) { return TextExtent{}; };
    static_cast<void>(DrawOffScreen(view, functions, measure));  // for the samples it leaves
    return true;
}

}  // namespace kalvex
