// These texts are never translated: scripts search the standard error stream for them.
#include "interp/diagnostic.h"

namespace kalvex {

Diagnostic FatalError(std::string_view routine, std::initializer_list<std::string> details,
                      StringId reason) {
    return {std::string(routine) + " - Fatal error!", details, reason, std::nullopt};
}

std::string StandardErrorText(const Diagnostic& diagnostic) {
    std::string text = '\n' + diagnostic.heading + '\n';
    for (const std::string& detail : diagnostic.details)
        text += detail + '\n';
    return text;
}

}  // namespace kalvex
