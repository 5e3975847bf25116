#include "resources/menus.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace kalvex {
namespace {

/// One line per entry: indented text, and the number if it is a fixed one.
void Describe(const Menu& menu, const std::u16string& indent, std::u16string& out) {
    for (const MenuEntry& entry : menu) {
        out += indent + std::u16string(entry.text.empty() ? u"-" : entry.text);
        const int id = static_cast<int>(entry.id);
        if (id != 0 && id < 40000) {
            const std::string digits = std::to_string(id);
            out += u"=";
            out.append(digits.begin(), digits.end());
        }
        out += u"\n";
        Describe(entry.children, indent + u"  ", out);
    }
}

std::u16string Described(const Menu& menu) {
    std::u16string out;
    Describe(menu, u"", out);
    return out;
}

// KEEP rows: "Great" and "Largange" are spelled so.
TEST(MainMenu, ReadsAsItMust) {
    EXPECT_EQ(Described(MainMenu()),
              u"Select=32772\nUnselect All=32915\nDelete=32774\n-\n"
              u"Color\n  Red=32777\n  Orange=32778\n  Violet=32779\n  Green=32780\n  Blue=32781\n"
              u"  Magenta=32782\n  Cyan=32783\n  Black=32784\n  Great=32785\n"
              u"Type\n  Polar=32787\n  Decart=32788\n  Parametric=32789\n  File=32910\n"
              u"  Implicit=32932\n"
              u"Approx. type\n  Least squares polyn.=32919\n  Divided differ. polyn.=32920\n"
              u"  B splines=32921\n  Beta splines=32922\n"
              u"  Overhauser spline\n    nonuniform spline=32923\n    uniform spline=32924\n"
              u"    Overhauser spline=32925\n"
              u"  Piecewise\n    constant spline=32926\n    linear spline=32927\n"
              u"    quadratic spline=32928\n    cubic spline=32929\n    cubic Hermite=32930\n"
              u"  Largange=32931\n"
              u"-\nOptions=32790\nHelp=32867\nAbout=32791\n-\nExit=32775\n");
}

// KEEP row: "Analiz" is spelled so.
TEST(ExportMenu, ReadsAsItMust) {
    EXPECT_EQ(Described(ExportMenu()), u"Function to file=32913\nAnaliz function=32914\n");
    EXPECT_EQ(Described(ExportMenuOfPages()),
              u"Function to file=32913\nAnaliz function=32914\nReport to file\n");
}

// KEEP rows: " Factor" begins with a blank, "Standart" is spelled so.
TEST(GraphMenu, ReadsAsItMust) {
    EXPECT_EQ(Described(GraphMenu()),
              u"Graph Table\nFull Screen (#)\n"
              u"Zoom\n  Box\n   Factor\n  Zoom In\n  Zoom Out\n  Auto\n  Pre\n"
              u"QUICK\n  Init\n  Trig\n  Log(X)\n  exp(X)\n  X^2\n  -X^2\n  Standart\n"
              u"View Window\nOptions=32790\nCalculator\nPicture\nSave Picture As...\n"
              u"Copy Picture\nPrint...\n-\nHelp=32867\nAbout=32791\n-\nExit\n");
    EXPECT_EQ(Described(FullScreenPopup()), u"Full Screen\nZoom In\nZoom Out\nHelp=32867\n");
}

void Collect(const Menu& menu, std::multiset<CommandId>& ids) {
    for (const MenuEntry& entry : menu) {
        if (entry.id != CommandId::None) ids.insert(entry.id);
        Collect(entry.children, ids);
    }
}

TEST(Menus, GiveEachCommandOnePlace) {
    for (const Menu& menu : {MainMenu(), GraphMenu(), FullScreenPopup()}) {
        std::multiset<CommandId> ids;
        Collect(menu, ids);
        for (const CommandId id : ids)
            EXPECT_EQ(ids.count(id), 1u) << static_cast<int>(id);
    }
}

}  // namespace
}  // namespace kalvex
