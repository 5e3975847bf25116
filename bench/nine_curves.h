// The nine lines y(x) that the redraw benchmarks draw.
#pragma once

#include "workspace/function_entry.h"

namespace kalvex {

inline FunctionList NineCurves() {
    constexpr const char16_t* kTexts[kSlotCount] = {
        u"sin(x)/x",  u"x^3-3*x+1",  u"5*sin(x)", u"exp(0-x^2)*cos(5*x)",   u"ln(abs(x))+atg(x)",
        u"1/(x-0.1)", u"4*sin(x^2)", u"x^2-5",    u"8*cos(3*x)*sin(0.3*x)",
    };
    FunctionList functions;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        FunctionEntry& entry = functions[i];
        entry.type = EquationType::Decart;
        entry.color = static_cast<std::int32_t>(i) + 1;
        entry.selected = 1;
        entry.text = kTexts[i];
        entry.compiled[0] = CompileExpression(kTexts[i]);
    }
    return functions;
}

}  // namespace kalvex
