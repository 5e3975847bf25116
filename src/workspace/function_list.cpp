// Small operations on the nine entries.
#include "workspace/function_list.h"

#include <algorithm>

#include "expr/evaluator.h"
#include "resources/strings.h"

namespace kalvex {

std::u16string_view LabelOf(EquationType type) {
    switch (type) {
        case EquationType::Polar:
            return Text(StringId::LabelPolar);
        case EquationType::Parametric:
            return Text(StringId::LabelParametric);
        case EquationType::File:
            return Text(StringId::LabelFile);
        case EquationType::Implicit:
            return Text(StringId::LabelImplicit);
        default:
            return Text(StringId::LabelDecart);
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
