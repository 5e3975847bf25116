// Each menu is written down as it reads.
#include "resources/menus.h"

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

Menu OverhauserMenu() {
    return {
        {CommandId::OverhauserNonuniform, u"nonuniform spline", {}},
        {CommandId::OverhauserUniform, u"uniform spline", {}},
        {CommandId::Overhauser, u"Overhauser spline", {}},
    };
}

Menu PiecewiseMenu() {
    return {
        {CommandId::ConstantSpline, u"constant spline", {}},
        {CommandId::LinearSpline, u"linear spline", {}},
        {CommandId::QuadraticSpline, u"quadratic spline", {}},
        {CommandId::CubicSpline, u"cubic spline", {}},
        {CommandId::CubicHermite, u"cubic Hermite", {}},
    };
}

Menu ApproxMenu() {
    return {
        {CommandId::LeastSquares, u"Least squares polyn.", {}},
        {CommandId::DividedDifferences, u"Divided differ. polyn.", {}},
        {CommandId::BSplines, u"B splines", {}},
        {CommandId::BetaSplines, u"Beta splines", {}},
        {CommandId::None, u"Overhauser spline", OverhauserMenu()},
        {CommandId::None, u"Piecewise", PiecewiseMenu()},
        // KEEP: the menu word is spelled so.
        {CommandId::Largange, u"Largange", {}},
    };
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
