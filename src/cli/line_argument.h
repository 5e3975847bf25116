// A function line as an argument: TYPE[,KEY=VALUE]...:TEXT
#pragma once

#include <string>
#include <string_view>

#include "workspace/function_entry.h"

namespace kalvex {

struct LineArgument {
    FunctionEntry entry;  ///< type, colour, approximation settings; selected
    std::u16string line;  ///< the text behind the first ":", as it would be typed
    std::string path;     ///< the same as bytes: what a File line opens
    std::string error;    ///< why the argument is not a line; empty when it is one
};

/// Types: polar, decart, parametric, file, implicit. Keys: color (1 to 9 or a colour's menu word),
/// the fields of ApproxParameters by their stored names. Without "color" the colour is
/// `defaultColor`.
[[nodiscard]] LineArgument ParseLineArgument(std::string_view argument, std::int32_t defaultColor);

/// The grammar of a line, for the help of the subcommands.
[[nodiscard]] std::string LineHelp();

}  // namespace kalvex
