// Each menu is written down as it reads: a command and the number of its word. That of the methods
// is made of their table.
#include "resources/menus.h"

#include <utility>

#include "resources/methods.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

MenuEntry Separator() {
    return {CommandId::None, u"", {}};
}

MenuEntry Entry(CommandId command, StringId word) {
    return {command, Text(word), {}};
}

MenuEntry Submenu(StringId word, Menu entries) {
    return {CommandId::None, Text(word), std::move(entries)};
}

Menu Colours() {
    return {
        Entry(CommandId::Red, StringId::ColourRed),
        Entry(CommandId::Orange, StringId::ColourOrange),
        Entry(CommandId::Violet, StringId::ColourViolet),
        Entry(CommandId::Green, StringId::ColourGreen),
        Entry(CommandId::Blue, StringId::ColourBlue),
        Entry(CommandId::Magenta, StringId::ColourMagenta),
        Entry(CommandId::Cyan, StringId::ColourCyan),
        Entry(CommandId::Black, StringId::ColourBlack),
        Entry(CommandId::Great, StringId::ColourGreat),
    };
}

Menu Types() {
    return {
        Entry(CommandId::Polar, StringId::TypePolar),
        Entry(CommandId::Decart, StringId::TypeDecart),
        Entry(CommandId::Parametric, StringId::TypeParametric),
        Entry(CommandId::File, StringId::TypeFile),
        Entry(CommandId::Implicit, StringId::TypeImplicit),
    };
}

StringId WordOf(MethodSubmenu submenu) {
    return submenu == MethodSubmenu::Overhauser ? StringId::OverhauserMenu
                                                : StringId::PiecewiseMenu;
}

/// A submenu stands at the place of its first method.
Menu Methods() {
    Menu menu;
    MethodSubmenu open = MethodSubmenu::None;
    for (const MethodChoice& choice : kMethods) {
        const bool inside = choice.submenu != MethodSubmenu::None;
        if (inside && choice.submenu != open) menu.push_back(Submenu(WordOf(choice.submenu), {}));
        open = choice.submenu;
        Menu& place = inside ? menu.back().children : menu;
        place.push_back(Entry(choice.command, choice.word));
    }
    return menu;
}

Menu Zooms() {
    return {
        Entry(CommandId::ZoomBox, StringId::ZoomBox),
        Entry(CommandId::ZoomFactor, StringId::ZoomFactor),
        Entry(CommandId::ZoomIn, StringId::ZoomIn),
        Entry(CommandId::ZoomOut, StringId::ZoomOut),
        Entry(CommandId::ZoomAuto, StringId::ZoomAuto),
        Entry(CommandId::ZoomPre, StringId::ZoomPre),
    };
}

Menu FixedWindows() {
    return {
        Entry(CommandId::QuickInit, StringId::QuickInit),
        Entry(CommandId::QuickTrig, StringId::QuickTrig),
        Entry(CommandId::QuickLogX, StringId::QuickLogX),
        Entry(CommandId::QuickExpX, StringId::QuickExpX),
        Entry(CommandId::QuickXSquared, StringId::QuickXSquared),
        Entry(CommandId::QuickMinusXSquared, StringId::QuickMinusXSquared),
        Entry(CommandId::QuickStandart, StringId::QuickStandart),
    };
}

}  // namespace

Menu MainMenu() {
    return {
        Entry(CommandId::Select, StringId::Select),
        Entry(CommandId::UnselectAll, StringId::MenuUnselectAll),
        Entry(CommandId::Delete, StringId::MenuDelete),
        Separator(),
        Submenu(StringId::ColorMenu, Colours()),
        Submenu(StringId::TypeMenu, Types()),
        {CommandId::ApproxTypeMenu, Text(StringId::ApproxType), Methods()},
        Separator(),
        Entry(CommandId::Options, StringId::MenuOptions),
        Entry(CommandId::Help, StringId::MenuHelp),
        Entry(CommandId::About, StringId::MenuAbout),
        Separator(),
        Entry(CommandId::Exit, StringId::MenuExit),
    };
}

Menu GraphMenu() {
    return {
        Entry(CommandId::GraphTable, StringId::MenuGraphTable),
        Entry(CommandId::FullScreen, StringId::MenuFullScreenKey),
        Submenu(StringId::ZoomMenu, Zooms()),
        Submenu(StringId::QuickMenu, FixedWindows()),
        Entry(CommandId::ViewWindowDialog, StringId::MenuViewWindow),
        Entry(CommandId::Options, StringId::MenuOptions),
        Entry(CommandId::Calculator, StringId::MenuCalculator),
        Entry(CommandId::Picture, StringId::MenuPicture),
        Entry(CommandId::SavePictureAs, StringId::MenuSavePictureAs),
        Entry(CommandId::CopyPicture, StringId::MenuCopyPicture),
        Entry(CommandId::Print, StringId::MenuPrint),
        Separator(),
        Entry(CommandId::Help, StringId::MenuHelp),
        Entry(CommandId::About, StringId::MenuAbout),
        Separator(),
        Entry(CommandId::GraphExit, StringId::MenuExit),
    };
}

Menu FullScreenPopup() {
    return {
        Entry(CommandId::PopupFullScreen, StringId::MenuFullScreen),
        Entry(CommandId::PopupZoomIn, StringId::ZoomIn),
        Entry(CommandId::PopupZoomOut, StringId::ZoomOut),
        Entry(CommandId::Help, StringId::MenuHelp),
    };
}

Menu ExportMenu() {
    return {
        Entry(CommandId::FunctionToFile, StringId::MenuFunctionToFile),
        Entry(CommandId::AnalizFunction, StringId::MenuAnalizFunction),
    };
}

Menu ExportMenuOfPages() {
    Menu menu = ExportMenu();
    menu.push_back(Entry(CommandId::ReportToFile, StringId::MenuReportToFile));
    return menu;
}

}  // namespace kalvex
