// The examples fill the view -10..10, show a different colour each, and are written the way a
// newcomer would type them: with implicit products, but with none behind a closing bracket, which
// would open the box "Test".
#include "settings/examples.h"

#include <array>

#include "resources/methods.h"
#include "settings/settings_names.h"
#include "workspace/defaults.h"

namespace kalvex {
namespace {

struct Example {
    EquationType type;
    std::u16string_view text;
};

constexpr std::array<Example, 7> kExamples = {{
    {EquationType::Decart, u"5sin(x)/x"},
    {EquationType::Polar, u"8cos(2x)"},
    {EquationType::Parametric, u"9sin(3x);9cos(2x)"},
    {EquationType::Implicit, u"y^2-x^3+12x-5"},
    {EquationType::Decart, u"6J(0,x)"},
    {EquationType::Decart, u"Gamma(x)"},
    {EquationType::Polar, u"1.5x"},
}};

}  // namespace

Workspace ExampleWorkspace(std::u16string_view pointFile) {
    Workspace workspace = DefaultWorkspace();
    for (std::size_t i = 0; i < kExamples.size(); ++i) {
        workspace.functions[i].type = kExamples[i].type;
        workspace.lines[i] = kExamples[i].text;
    }
    if (pointFile.empty() || !IsStoredWhole(pointFile)) return workspace;
    FunctionEntry& file = workspace.functions[kExamples.size()];
    file.type = EquationType::File;
    file.method.approx = static_cast<std::int32_t>(ApproxMethod::CubicHermite);
    workspace.lines[kExamples.size()] = pointFile;
    return workspace;
}

}  // namespace kalvex
