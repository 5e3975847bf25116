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
        entry.type = static_cast<std::int32_t>(*type);
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

/// What some line commands go on with once the line has changed.
void OpenDialogOf(const EditorState& state, int slot, CommandId command) {
    if (command == CommandId::File) state.choosePointFile(slot);
    if (MethodOfCommand(command)) state.setMethodUp(slot);
}

}  // namespace

bool RunCommand(EditorState& state, CommandId command) {
    if (IsBetween(command, CommandId::Select, CommandId::Great)) state.menuOpen = false;
    if (command == CommandId::Draw) {
        state.draw();
    } else if (command == CommandId::Exit) {
        state.exit();
    } else if (command == CommandId::Options) {
        state.openOptions();
    } else if (command == CommandId::Calculator) {
        state.openCalculator();
    } else if (command == CommandId::UnselectAll) {
        UnselectAll(state.workspace.functions);
        state.showLines();
    } else if (!IsLineCommand(command)) {
        return false;
    } else if (state.slot && *state.slot >= 0 && *state.slot < kSlotCount) {
        const auto slot = static_cast<std::size_t>(*state.slot);
        RunLineCommand(state.workspace.functions[slot], state.workspace.lines[slot], command);
        state.showLines();
        OpenDialogOf(state, *state.slot, command);
    }
    return true;
}

}  // namespace kalvex
