// The texts are stored before anything else is asked, so a warning never costs the user a line.
#include "commands/draw_flow.h"

#include "graph/file_lines.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "workspace/function_list.h"

namespace kalvex {

bool PrepareFunctions(FunctionList& functions, const EditorLines& lines, const Registry& registry,
                      const ShowMessage& show) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        if (!PrepareFunction(functions[index], slot, lines[index], show) ||
            !StoreFunctionText(registry, slot, lines[index])) {
            return false;
        }
    }
    return true;
}

bool RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowMessage& show) {
    if (!PrepareFunctions(workspace.functions, workspace.lines, registry, show)) return false;
    if (!StoreFunctionSettings(registry, workspace.functions)) return false;
    if (!AnySelected(workspace.functions)) {
        show(WarningBox(Text(StringId::MustChooseFunction)));
        return false;
    }
    return PrepareFileLines(workspace.functions, show);
}

}  // namespace kalvex
