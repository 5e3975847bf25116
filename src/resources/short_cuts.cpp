// Menus show the first keys of a command. The graph has no text fields, so single digits and
// letters are commands there. In the editor they type text: colours have Alt and types have Ctrl
// with the digit of their place in the menu, methods have Ctrl+M and their number as one digit or
// letter.
#include "resources/short_cuts.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "resources/methods.h"

namespace kalvex {
namespace {

constexpr ShortCut kLines[] = {
    {CommandId::Draw, u"F5"},
    {CommandId::Draw, u"Ctrl+Return"},
    {CommandId::Draw, u"Ctrl+Enter"},
    {CommandId::Select, u"Ctrl+Space"},
    {CommandId::UnselectAll, u"Ctrl+Shift+Space"},
    {CommandId::Delete, u"Ctrl+D"},
    {CommandId::Red, u"Alt+1"},
    {CommandId::Orange, u"Alt+2"},
    {CommandId::Violet, u"Alt+3"},
    {CommandId::Green, u"Alt+4"},
    {CommandId::Blue, u"Alt+5"},
    {CommandId::Magenta, u"Alt+6"},
    {CommandId::Cyan, u"Alt+7"},
    {CommandId::Black, u"Alt+8"},
    {CommandId::Great, u"Alt+9"},
    {CommandId::Polar, u"Ctrl+1"},
    {CommandId::Decart, u"Ctrl+2"},
    {CommandId::Parametric, u"Ctrl+3"},
    {CommandId::File, u"Ctrl+4"},
    {CommandId::Implicit, u"Ctrl+5"},
};

constexpr ShortCut kProgram[] = {
    {CommandId::Options, u"Ctrl+,"}, {CommandId::Calculator, u"F9"}, {CommandId::Help, u"F1"},
    {CommandId::About, u"Shift+F1"}, {CommandId::Exit, u"Ctrl+Q"},
};

/// All keys of the editor: those of the lines, of the methods, of the whole program.
constexpr auto kEditor = [] {
    std::array<ShortCut, std::size(kLines) + kMethods.size() + std::size(kProgram)> all{};
    auto next = std::copy(std::begin(kLines), std::end(kLines), all.begin());
    for (const MethodChoice& choice : kMethods)
        *next++ = {choice.command, choice.keys};
    std::copy(std::begin(kProgram), std::end(kProgram), next);
    return all;
}();

constexpr ShortCut kGraph[] = {
    {CommandId::GraphTable, u"F5"},
    {CommandId::FullScreen, u"F11"},
    {CommandId::Trace, u"T"},
    {CommandId::Analyze, u"A"},
    {CommandId::ZoomBox, u"B"},
    {CommandId::ZoomFactor, u"F"},
    {CommandId::ZoomIn, u"I"},
    {CommandId::ZoomOut, u"O"},
    {CommandId::ZoomAuto, u"0"},
    {CommandId::ZoomPre, u"Backspace"},
    {CommandId::QuickInit, u"1"},
    {CommandId::QuickTrig, u"2"},
    {CommandId::QuickLogX, u"3"},
    {CommandId::QuickExpX, u"4"},
    {CommandId::QuickXSquared, u"5"},
    {CommandId::QuickMinusXSquared, u"6"},
    {CommandId::QuickStandart, u"7"},
    {CommandId::ViewWindowDialog, u"W"},
    {CommandId::Options, u"Ctrl+,"},
    {CommandId::Calculator, u"F9"},
    {CommandId::Picture, u"Ctrl+Shift+P"},
    {CommandId::SavePictureAs, u"Ctrl+S"},
    {CommandId::CopyPicture, u"Ctrl+C"},
    {CommandId::Print, u"Ctrl+P"},
    {CommandId::Help, u"F1"},
    {CommandId::About, u"Shift+F1"},
    {CommandId::GraphExit, u"Ctrl+Q"},
};

constexpr ShortCut kReport[] = {
    {CommandId::FunctionToFile, u"Ctrl+Shift+S"},
    {CommandId::ReportToFile, u"Ctrl+S"},
};

}  // namespace

std::span<const ShortCut> EditorShortCuts() {
    return kEditor;
}

std::span<const ShortCut> GraphShortCuts() {
    return kGraph;
}

std::span<const ShortCut> ReportShortCuts() {
    return kReport;
}

std::u16string_view KeysOf(std::span<const ShortCut> table, CommandId command) {
    for (const ShortCut& shortCut : table) {
        if (shortCut.command == command) return shortCut.keys;
    }
    return {};
}

}  // namespace kalvex
