// Each menu is written down as it reads: a command and the number of its word.
#include "resources/menus.h"

#include <utility>

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

Menu Overhausers() {
    return {
        Entry(CommandId::OverhauserNonuniform, StringId::MethodOverhauserNonuniform),
        Entry(CommandId::OverhauserUniform, StringId::MethodOverhauserUniform),
        Entry(CommandId::Overhauser, StringId::MethodOverhauser),
    };
}

Menu PiecewiseMethods() {
    return {
        Entry(CommandId::ConstantSpline, StringId::MethodConstantSpline),
        Entry(CommandId::LinearSpline, StringId::MethodLinearSpline),
        Entry(CommandId::QuadraticSpline, StringId::MethodQuadraticSpline),
        Entry(CommandId::CubicSpline, StringId::MethodCubicSpline),
        Entry(CommandId::CubicHermite, StringId::MethodCubicHermite),
    };
}

Menu Methods() {
    return {
        Entry(CommandId::LeastSquares, StringId::MethodLeastSquares),
        Entry(CommandId::DividedDifferences, StringId::MethodDividedDifferences),
        Entry(CommandId::BSplines, StringId::MethodBSplines),
        Entry(CommandId::BetaSplines, StringId::MethodBetaSplines),
        Submenu(StringId::OverhauserMenu, Overhausers()),
        Submenu(StringId::PiecewiseMenu, PiecewiseMethods()),
        Entry(CommandId::Lagrange, StringId::MethodLagrange),
    };
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
        Separator(),
        Entry(CommandId::Help, StringId::MenuHelp),
        Entry(CommandId::About, StringId::MenuAbout),
        Separator(),
        Entry(CommandId::GraphExit, StringId::MenuExit),
        Separator(),
        Entry(CommandId::SavePictureAs, StringId::MenuSavePictureAs),
        Entry(CommandId::CopyPicture, StringId::MenuCopyPicture),
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
