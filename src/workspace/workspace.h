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
    bool registryErrorShown = false;  ///< the registry message has been shown in this run
};

}  // namespace kalvex
