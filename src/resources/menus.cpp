// Each menu is written down as it reads, but for that of the methods, which is made of their table.
#include "resources/menus.h"

#include "resources/methods.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

MenuEntry Separator() {
    return {CommandId::None, u"", {}};
}

Menu ColorMenu() {
    return {
        {CommandId::Red, u"Red", {}},       {CommandId::Orange, u"Orange", {}},
        {CommandId::Violet, u"Violet", {}}, {CommandId::Green, u"Green", {}},
        {CommandId::Blue, u"Blue", {}},     {CommandId::Magenta, u"Magenta", {}},
        {CommandId::Cyan, u"Cyan", {}},     {CommandId::Black, u"Black", {}},
        {CommandId::Great, u"Great", {}},
    };
}

Menu TypeMenu() {
    return {
        {CommandId::Polar, u"Polar", {}},           {CommandId::Decart, u"Decart", {}},
        {CommandId::Parametric, u"Parametric", {}}, {CommandId::File, u"File", {}},
        {CommandId::Implicit, u"Implicit", {}},
    };
}

StringId WordOf(MethodSubmenu submenu) {
    return submenu == MethodSubmenu::Overhauser ? StringId::OverhauserMenu
                                                : StringId::PiecewiseMenu;
}

/// A submenu stands at the place of its first method.
Menu ApproxMenu() {
    Menu menu;
    MethodSubmenu open = MethodSubmenu::None;
    for (const MethodChoice& choice : kMethods) {
        const bool inside = choice.submenu != MethodSubmenu::None;
        if (inside && choice.submenu != open)
            menu.push_back({CommandId::None, Text(WordOf(choice.submenu)), {}});
        open = choice.submenu;
        Menu& place = inside ? menu.back().children : menu;
        place.push_back({choice.command, Text(choice.word), {}});
    }
    return menu;
}

Menu ZoomMenu() {
    return {
        {CommandId::ZoomBox, u"Box", {}},
        // KEEP: the menu word begins with a blank.
        {CommandId::ZoomFactor, u" Factor", {}},
        {CommandId::ZoomIn, u"Zoom In", {}},
        {CommandId::ZoomOut, u"Zoom Out", {}},
        {CommandId::ZoomAuto, u"Auto", {}},
        {CommandId::ZoomPre, u"Pre", {}},
    };
}

Menu QuickMenu() {
    return {
        {CommandId::QuickInit, u"Init", {}},
        {CommandId::QuickTrig, u"Trig", {}},
        {CommandId::QuickLogX, u"Log(X)", {}},
        {CommandId::QuickExpX, u"exp(X)", {}},
        {CommandId::QuickXSquared, u"X^2", {}},
        {CommandId::QuickMinusXSquared, u"-X^2", {}},
        // KEEP: the menu word is spelled so.
        {CommandId::QuickStandart, u"Standart", {}},
    };
}

}  // namespace

Menu MainMenu() {
    return {
        {CommandId::Select, Text(StringId::Select), {}},
        {CommandId::UnselectAll, u"Unselect All", {}},
        {CommandId::Delete, u"Delete", {}},
        Separator(),
        {CommandId::None, u"Color", ColorMenu()},
        {CommandId::None, u"Type", TypeMenu()},
        {CommandId::ApproxTypeMenu, Text(StringId::ApproxType), ApproxMenu()},
        Separator(),
        {CommandId::Options, u"Options", {}},
        {CommandId::Help, u"Help", {}},
        {CommandId::About, u"About", {}},
        Separator(),
        {CommandId::Exit, u"Exit", {}},
    };
}

Menu GraphMenu() {
    return {
        {CommandId::GraphTable, u"Graph Table", {}},
        {CommandId::FullScreen, u"Full Screen (#)", {}},
        {CommandId::None, u"Zoom", ZoomMenu()},
        {CommandId::None, u"QUICK", QuickMenu()},
        {CommandId::ViewWindowDialog, u"View Window", {}},
        {CommandId::Options, u"Options", {}},
        {CommandId::Calculator, u"Calculator", {}},
        {CommandId::Picture, u"Picture", {}},
        Separator(),
        {CommandId::Help, u"Help", {}},
        {CommandId::About, u"About", {}},
        Separator(),
        {CommandId::GraphExit, u"Exit", {}},
        Separator(),
        {CommandId::SavePictureAs, u"Save Picture As...", {}},
        {CommandId::CopyPicture, u"Copy Picture", {}},
    };
}

Menu FullScreenPopup() {
    return {
        {CommandId::PopupFullScreen, u"Full Screen", {}},
        {CommandId::PopupZoomIn, u"Zoom In", {}},
        {CommandId::PopupZoomOut, u"Zoom Out", {}},
        {CommandId::Help, u"Help", {}},
    };
}

Menu ExportMenu() {
    return {
        {CommandId::FunctionToFile, u"Function to file", {}},
        // KEEP: the menu word is spelled so.
        {CommandId::AnalizFunction, u"Analiz function", {}},
    };
}

Menu ExportMenuOfPages() {
    Menu menu = ExportMenu();
    menu.push_back({CommandId::ReportToFile, u"Report to file", {}});
    return menu;
}

}  // namespace kalvex
