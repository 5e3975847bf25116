// The texts are stored before anything else is asked, so a warning never costs the user a line.
#include "ui/draw_flow.h"

#include "graph/file_lines.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "workspace/function_list.h"
#include "workspace/settings.h"

namespace kalvex {

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
