#include "commands/menu_state.h"

#include <gtest/gtest.h>

#include <limits>

#include "resources/menus.h"
#include "workspace/defaults.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

MainMenuState StateFor(const FunctionList& functions, const MenuContext& context) {
    MainMenuState menu = InitialMainMenu();
    UpdateMainMenu(menu, functions, context);
    return menu;
}

std::vector<CommandId> Checked(const MainMenuState& menu) {
    std::vector<CommandId> ids;
    for (const auto& [id, state] : menu) {
        if (state.checked) ids.push_back(id);
    }
    return ids;
}

using Ids = std::vector<CommandId>;

TEST(UpdateMainMenu, NamesTheSelectionOfTheFocusedLine) {
    FunctionList functions = DefaultWorkspace().functions;
    functions[4].selected = 1;
    EXPECT_EQ(StateFor(functions, {4, false, u"PocketPC"})[CommandId::Select].text, u"Unselect");
    EXPECT_EQ(StateFor(functions, {3, false, u"PocketPC"})[CommandId::Select].text, u"Select");
    functions[3].selected = 2;
    EXPECT_EQ(StateFor(functions, {3, false, u"PocketPC"})[CommandId::Select].text, u"Select");
}

TEST(UpdateMainMenu, EnablesUnselectAllWhileALineIsSelected) {
    FunctionList functions = DefaultWorkspace().functions;
    EXPECT_FALSE(StateFor(functions, {0, false, u""})[CommandId::UnselectAll].enabled);
    functions[8].selected = 1;
    EXPECT_TRUE(StateFor(functions, {0, false, u""})[CommandId::UnselectAll].enabled);
    EXPECT_TRUE(StateFor(functions, {std::nullopt, false, u""})[CommandId::UnselectAll].enabled);
}

TEST(UpdateMainMenu, DisablesDeleteOnAnEmptyLine) {
    const FunctionList functions = DefaultWorkspace().functions;
    EXPECT_FALSE(StateFor(functions, {0, true, u""})[CommandId::Delete].enabled);
    EXPECT_TRUE(StateFor(functions, {0, false, u""})[CommandId::Delete].enabled);
}

TEST(UpdateMainMenu, ChecksColourTypeAndMethod) {
    FunctionList functions = DefaultWorkspace().functions;
    EXPECT_EQ(Checked(StateFor(functions, {0, false, u""})),
              (Ids{CommandId::Red, CommandId::Decart, CommandId::LeastSquares}));
    functions[2].color = 9;
    functions[2].type = EquationType::Implicit;
    functions[2].method.approx = 12;
    EXPECT_EQ(Checked(StateFor(functions, {2, false, u""})),
              (Ids{CommandId::Great, CommandId::Largange, CommandId::Implicit}));
    functions[2].color = 77;
    functions[2].type = EquationType::None;
    functions[2].method.approx = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(Checked(StateFor(functions, {2, false, u""})), Ids{});
    functions[2].color = std::numeric_limits<std::int32_t>::min();
    functions[2].type = EquationType::File;
    EXPECT_EQ(Checked(StateFor(functions, {2, false, u""})), Ids{CommandId::File});
}

TEST(UpdateMainMenu, OffersTheMethodsToAFileLineOnly) {
    FunctionList functions = DefaultWorkspace().functions;
    for (std::int32_t type = 0; type <= 6; ++type) {
        functions[0].type = static_cast<EquationType>(type);
        EXPECT_EQ(StateFor(functions, {0, false, u""})[CommandId::ApproxTypeMenu].visible,
                  type == 4);
    }
}

TEST(UpdateMainMenu, OffersFileOnThePocketPcOnly) {
    const FunctionList functions = DefaultWorkspace().functions;
    EXPECT_TRUE(StateFor(functions, {0, false, u"PocketPC"})[CommandId::File].enabled);
    EXPECT_FALSE(StateFor(functions, {0, false, u"SmartPhone"})[CommandId::File].enabled);
}

TEST(UpdateMainMenu, WithoutFocusTouchesTwoEntriesOnly) {
    FunctionList functions = DefaultWorkspace().functions;
    functions[1].type = EquationType::File;
    functions[1].selected = 1;
    const MainMenuState before = StateFor(functions, {1, false, u"PocketPC"});
    UnselectAll(functions);
    functions[1].type = EquationType::Polar;
    functions[1].color = 5;
    for (const std::optional<int> nowhere : {std::optional<int>{}, {-1}, {9}}) {
        MainMenuState menu = before;
        UpdateMainMenu(menu, functions, {nowhere, true, u""});
        EXPECT_FALSE(menu[CommandId::UnselectAll].enabled);
        EXPECT_FALSE(menu[CommandId::File].enabled);
        menu[CommandId::UnselectAll] = before.at(CommandId::UnselectAll);
        menu[CommandId::File] = before.at(CommandId::File);
        EXPECT_EQ(menu, before);
    }
}

TEST(InitialMainMenu, HidesTheMethods) {
    FunctionList functions = DefaultWorkspace().functions;
    functions[0].type = EquationType::File;
    const MainMenuState menu = StateFor(functions, {0, false, u"PocketPC"});
    EXPECT_FALSE(InitialMainMenu()[CommandId::ApproxTypeMenu].visible);
    for (const auto& [id, state] : menu) {
        EXPECT_EQ(state.enabled, id != CommandId::UnselectAll) << static_cast<int>(id);
    }
    EXPECT_TRUE(menu.at(CommandId::Exit).enabled);
    EXPECT_TRUE(menu.at(CommandId::CubicHermite).enabled);
}

}  // namespace
}  // namespace kalvex
