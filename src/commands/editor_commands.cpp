// The commands of the colours and of the first types have consecutive numbers, from which the
// number to store follows. The methods have a table.
#include "commands/editor_commands.h"

#include "resources/menus.h"
#include "resources/methods.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

bool IsBetween(CommandId command, CommandId first, CommandId last) {
    return command >= first && command <= last;
}

std::int32_t PlaceAfter(CommandId command, CommandId base) {
    return static_cast<std::int32_t>(command) - static_cast<std::int32_t>(base);
}

std::optional<EquationType> TypeOf(CommandId command) {
    if (IsBetween(command, CommandId::Polar, CommandId::Parametric)) {
        return static_cast<EquationType>(PlaceAfter(command, CommandId::Polar) + 1);
    }
    if (command == CommandId::File) return EquationType::File;
    if (command == CommandId::Implicit) return EquationType::Implicit;
    return std::nullopt;
}

bool RunLineCommand(FunctionEntry& entry, std::u16string& line, CommandId command) {
    if (command == CommandId::Select) {
        ToggleSelected(entry);
    } else if (command == CommandId::Delete) {
        line.clear();
    } else if (IsBetween(command, CommandId::Red, CommandId::Great)) {
        entry.color = PlaceAfter(command, CommandId::Red) + 1;
    } else if (const auto type = TypeOf(command)) {
        entry.type = *type;
    } else if (const auto method = MethodOfCommand(command)) {
        entry.method.approx = static_cast<std::int32_t>(*method);
    } else {
        return false;
    }
    return true;
}

bool IsLineCommand(CommandId command) {
    FunctionEntry entry;
    std::u16string line;
    return RunLineCommand(entry, line, command);
}

/// What follows when a command has changed a line.
EditorStep StepAfter(CommandId command) {
    if (command == CommandId::File) return EditorStep::ChoosePointFile;
    return MethodOfCommand(command) ? EditorStep::SetMethodUp : EditorStep::ShowLines;
}

}  // namespace

std::optional<EditorStep> RunEditorCommand(Workspace& workspace, EditorState& state,
                                           CommandId command) {
    if (IsBetween(command, CommandId::Select, CommandId::Great)) state.menuOpen = false;
    if (command == CommandId::UnselectAll) {
        UnselectAll(workspace.functions);
        return EditorStep::ShowLines;
    }
    if (!IsLineCommand(command)) return std::nullopt;
    if (!state.slot || *state.slot < 0 || *state.slot >= kSlotCount) return EditorStep::Nothing;
    const auto slot = static_cast<std::size_t>(*state.slot);
    RunLineCommand(workspace.functions[slot], workspace.lines[slot], command);
    return StepAfter(command);
}

}  // namespace kalvex
