#include "resources/help_address.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "resources/data_folders.h"

namespace kalvex {
namespace {

TEST(LanguageNumber, IsThatOfTheLocale) {
    const struct {
        const char* locale;
        int number;
    } rows[] = {
        {"en-US", 1033},
        {"en_US.UTF-8", 1033},
        {"en", 1033},
        {"en-GB", 2057},
        {"ru-RU", 1049},
        {"ru_RU.UTF-8", 1049},
        {"ru", 1049},
        {"ru-Cyrl-RU", 1049},
        {"ru-UA", 1049},
        {"de", 1031},
        {"de-DE", 1031},
        {"de_AT@euro", 3079},
        {"fr-FR", 1036},
        {"fr-Latn-CA", 3084},
        {"es-ES", 3082},
        {"es-419", 3082},
        {"pt-PT", 2070},
        {"zh-CN", 2052},
        {"zh-Hant-TW", 1028},
        {"ja-JP", 1041},
        {"ko-KR", 1042},
        {"uk-UA", 1058},
        {"pl-PL", 1045},
        {"it-IT", 1040},
        // An unknown language gets the English page.
        {"C", 1033},
        {"POSIX", 1033},
        {"", 1033},
        {"xx-YY", 1033},
        {"-", 1033},
        {"rus", 1033},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LanguageNumber(row.locale), row.number) << row.locale;
}

TEST(HelpAddress, HoldsModuleAndLanguage) {
    const struct {
        int language;
        const char* address;
    } rows[] = {
        {1033, "res:///usr/bin/kalvex/HTML/#172"},
        {1049, "res:///usr/bin/kalvex.0419.mui/HTML/#172"},
        {1031, "res:///usr/bin/kalvex.0407.mui/HTML/#172"},
        {3082, "res:///usr/bin/kalvex.0c0a.mui/HTML/#172"},
        {2052, "res:///usr/bin/kalvex.0804.mui/HTML/#172"},
        {5124, "res:///usr/bin/kalvex.01404.mui/HTML/#172"},
        // An unknown language gets the address of the English page.
        {0, "res:///usr/bin/kalvex/HTML/#172"},
        {-1, "res:///usr/bin/kalvex/HTML/#172"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(HelpAddress("/usr/bin/kalvex", row.language), row.address) << row.language;
}

class HelpPageTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "kalvex-help-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        root = name;
    }
    void TearDown() override { std::filesystem::remove_all(root); }
    std::string Write(const std::string& folder, const std::string& language) {
        const std::filesystem::path page = root / folder / language / "index.html";
        std::filesystem::create_directories(page.parent_path());
        std::ofstream(page) << "<html/>";
        return page.string();
    }
    std::string Find(int language, const std::string& module = "/usr/bin/kalvex") {
        return HelpPage(HelpAddress(module, language), {root / "first", root / "second"});
    }

    std::filesystem::path root;
};

TEST_F(HelpPageTest, IsTheTranslatedOneOrTheEnglishOne) {
    EXPECT_EQ(Find(1049), "");
    EXPECT_EQ(Find(1033), "");
    const std::string russian = Write("first", "0419");
    EXPECT_EQ(Find(1049), russian);
    EXPECT_EQ(Find(1033), "");  // a translation never stands in for the English page
    EXPECT_EQ(Find(1031), "");
    const std::string english = Write("first", "0409");
    EXPECT_EQ(Find(1049), russian);
    EXPECT_EQ(Find(1033), english);
    EXPECT_EQ(Find(1031), english);
    EXPECT_EQ(Find(0), english);
    const std::string macau = Write("first", "1404");
    EXPECT_EQ(Find(5124), macau);
}

TEST_F(HelpPageTest, LooksIntoTheFoldersInOrder) {
    const std::string second = Write("second", "0409");
    EXPECT_EQ(Find(1033), second);
    const std::string russian = Write("second", "0419");
    const std::string first = Write("first", "0409");
    EXPECT_EQ(Find(1033), first);
    EXPECT_EQ(Find(1049), russian);  // not the English page of the first folder
}

TEST_F(HelpPageTest, TakesAnyModuleName) {
    const std::string english = Write("first", "0409");
    Write("first", "0419");
    for (const char* const module : {"", "/a.b/c", "/a b/кальвекс", "/x.mui", "/x.zz.mui",
                                     "/x.0.mui", "/x.99999.mui", "/x..mui", ".mui"})
        EXPECT_EQ(Find(1033, module), english) << module;
}

TEST_F(HelpPageTest, IsEmptyForWhatIsNoAddress) {
    Write("first", "0409");
    for (const char* const text : {"", "res://", "/HTML/#172", "res:///x/HTML/#17",
                                   "http:///x/HTML/#172", "res:///x/HTML/#1720"})
        EXPECT_EQ(HelpPage(text, {root / "first"}), "") << text;
    EXPECT_EQ(HelpPage(HelpAddress("/x", 1033), {}), "");
    // A folder with the name of the page does not count.
    std::filesystem::create_directories(root / "second/0409/index.html");
    EXPECT_EQ(HelpPage(HelpAddress("/x", 1033), {root / "second"}), "");
}

TEST(HelpPages, AreFoundFromTheBuildTree) {
    for (const int language : {1033, 1049}) {
        const std::string page = HelpPage(HelpAddress("x", language), DataFolders("help"));
        EXPECT_TRUE(
            page.ends_with(language == 1049 ? "help/0419/index.html" : "help/0409/index.html"))
            << page;
    }
}

}  // namespace
}  // namespace kalvex
