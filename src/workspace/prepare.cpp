// A line on its way to the graph: the text is copied, and a selected line's expressions are
// normalised, checked and compiled one after the other. The first failure ends it, so an entry may
// keep the compiled form of an earlier Draw.
#include "expr/checker.h"
#include "expr/normaliser.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

bool CheckAndCompile(const FunctionEntry& entry, int slot, std::u16string_view expression,
                     CheckMode mode, CompiledExpression& compiled, const ShowMessage& show) {
    const CheckResult result = CheckExpression(expression, mode);
    if (result.code < 0) {
        show(ErrorBox(FillIn(Text(StringId::ErrorInFunction),
                             {NumberText(slot + 1), entry.text, result.message})));
        return false;
    }
    compiled = CompileExpression(expression);
    return true;
}

bool CompileExplicit(const FunctionEntry& entry, int slot, std::u16string& expression,
                     CompiledExpression& compiled, const ShowMessage& show) {
    NormaliseExplicit(expression, show);
    return CheckAndCompile(entry, slot, expression, CheckMode::OneVariable, compiled, show);
}

bool CompileImplicit(FunctionEntry& entry, int slot, const ShowMessage& show) {
    NormaliseImplicit(entry.workingText);
    return CheckAndCompile(entry, slot, entry.workingText, CheckMode::TwoVariables,
                           entry.compiled[0], show);
}

// KEEP: Y is compiled first, so when both expressions are wrong the message is about Y.
bool CompileParametric(FunctionEntry& entry, int slot, const ShowMessage& show) {
    const std::size_t split = entry.text.find(u';');
    if (split == entry.text.npos) {
        show(ErrorBox(Text(StringId::ParametricNeedsTwo)));
        return false;
    }
    entry.workingText = entry.text.substr(0, split);
    entry.yText = entry.text.substr(split + 1);
    return CompileExplicit(entry, slot, entry.yText, entry.compiled[1], show) &&
           CompileExplicit(entry, slot, entry.workingText, entry.compiled[0], show);
}

bool CompileSelected(FunctionEntry& entry, int slot, const ShowMessage& show) {
    switch (entry.type) {
        case EquationType::Polar:
        case EquationType::Decart:
            return CompileExplicit(entry, slot, entry.workingText, entry.compiled[0], show);
        case EquationType::Parametric:
            return CompileParametric(entry, slot, show);
        case EquationType::Implicit:
            return CompileImplicit(entry, slot, show);
        default:
            return true;
    }
}

}  // namespace

bool PrepareFunction(FunctionEntry& entry, int slot, std::u16string_view line,
                     const ShowMessage& show) {
    entry.text = line;
    entry.workingText = line;
    if (entry.selected == 1 && !CompileSelected(entry, slot, show)) return false;
    if (entry.type == EquationType::File) {
        // A desktop separates folders by slashes. No name holds a slash or a backslash.
        const std::size_t last = entry.workingText.find_last_of(u"\\/");
        if (last != entry.workingText.npos) entry.text = entry.workingText.substr(last + 1);
    }
    return true;
}

}  // namespace kalvex
