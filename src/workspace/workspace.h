// Everything that the program keeps between two runs, in one record owned by the application.
#pragma once

#include "workspace/function_entry.h"
#include "workspace/options.h"
#include "workspace/view_window.h"

namespace kalvex {

struct Workspace {
    FunctionList functions;
    EditorLines lines;
    ViewWindow view;
    Options options;
    bool registryErrorShown = false;  ///< the once-per-run flag of the registry message
};

}  // namespace kalvex
