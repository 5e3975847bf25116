// The small operations on the nine entries.
#include "workspace/function_list.h"

#include <algorithm>

#include "expr/evaluator.h"

namespace kalvex {

std::u16string_view LabelOf(std::int32_t type) {
    switch (static_cast<EquationType>(type)) {
        case EquationType::Polar:
            return u" r(x)=";
        case EquationType::Parametric:
            return u" X;Y=";
        case EquationType::File:
            return u" F=";
        case EquationType::Implicit:
            return u"G(x,y)=";  // KEEP: the only label without a leading blank
        default:
            return u" Y(x)=";
    }
}

void ToggleSelected(FunctionEntry& entry) {
    entry.selected = entry.selected == 1 ? 0 : 1;
}

void UnselectAll(FunctionList& functions) {
    for (FunctionEntry& entry : functions)
        entry.selected = 0;
}

bool AnySelected(const FunctionList& functions) {
    return std::any_of(functions.begin(), functions.end(),
                       [](const FunctionEntry& entry) { return entry.selected == 1; });
}

void ReleaseFunctions(FunctionList& functions) {
    for (FunctionEntry& entry : functions) {
        entry.text = {};
        entry.workingText = {};
        entry.yText = {};
        for (CompiledExpression& expression : entry.compiled)
            FreeExpression(expression);
        entry.samples = {};
        entry.points = {};
        entry.pointPixels = {};
    }
}

}  // namespace kalvex
