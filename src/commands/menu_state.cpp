// The state is kept from popup to popup and changed in place, because an update without a focused
// line changes only two of its entries.
#include "commands/menu_state.h"

#include "resources/menus.h"
#include "resources/methods.h"
#include "resources/platform.h"
#include "resources/strings.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

void AddEntries(MainMenuState& menu, const Menu& entries) {
    for (const MenuEntry& entry : entries) {
        if (entry.id != CommandId::None) {
            menu[entry.id] = {entry.text, true, false, true};
        }
        AddEntries(menu, entry.children);
    }
}

CommandId TypeCommand(EquationType type) {
    switch (type) {
        case EquationType::Polar:
            return CommandId::Polar;
        case EquationType::Decart:
            return CommandId::Decart;
        case EquationType::Parametric:
            return CommandId::Parametric;
        case EquationType::File:
            return CommandId::File;
        case EquationType::Implicit:
            return CommandId::Implicit;
        default:
            return CommandId::None;
    }
}

/// Checks the entry at a 0-based place of a run of commands, and no other of the run.
void CheckOneOf(MainMenuState& menu, CommandId first, int count, std::int64_t place) {
    for (int i = 0; i < count; ++i) {
        menu[static_cast<CommandId>(static_cast<int>(first) + i)].checked = i == place;
    }
}

void UpdateForLine(MainMenuState& menu, const FunctionEntry& entry, bool lineEmpty) {
    menu[CommandId::Select].text =
        Text(entry.selected == 1 ? StringId::Unselect : StringId::Select);
    menu[CommandId::Delete].enabled = !lineEmpty;
    CheckOneOf(menu, CommandId::Red, 9, std::int64_t{entry.color} - 1);
    for (const MethodChoice& choice : kMethods)
        menu[choice.command].checked =
            entry.method.approx == static_cast<std::int32_t>(choice.method);
    for (const CommandId id : {CommandId::Polar, CommandId::Decart, CommandId::Parametric,
                               CommandId::File, CommandId::Implicit}) {
        menu[id].checked = id == TypeCommand(entry.type);
    }
    menu[CommandId::ApproxTypeMenu].visible = entry.type == EquationType::File;
}

}  // namespace

MainMenuState InitialMainMenu() {
    MainMenuState menu;
    AddEntries(menu, MainMenu());
    menu[CommandId::ApproxTypeMenu].visible = false;
    return menu;
}

void UpdateMainMenu(MainMenuState& menu, const FunctionList& functions,
                    const MenuContext& context) {
    menu[CommandId::File].enabled = context.platform == kPocketPc;
    menu[CommandId::UnselectAll].enabled = AnySelected(functions);
    if (!context.focusedSlot || *context.focusedSlot < 0 || *context.focusedSlot >= kSlotCount) {
        return;
    }
    UpdateForLine(menu, functions[static_cast<std::size_t>(*context.focusedSlot)],
                  context.lineEmpty);
}

}  // namespace kalvex
