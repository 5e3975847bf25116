// The windows show no text of their own: what a person reads or hears comes from the table of
// texts. This reads the sources of the windows and of the menus, and finds the string literals that
// could be such a text. Names of objects are recognised by the function that they are passed to;
// all other literals that no person reads are listed here.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {
namespace {

/// Calls whose literal is a name within the program: of a control, a property, a stored value.
constexpr std::string_view kNamingCalls[] = {
    "setObjectName(",       "setProperty(", "findChild<QLabel*>(",   "findChild<QTreeView*>(",
    "findChild<QWidget*>(", "storedValue(", "storeValue(",           "setDesktopFileName(",
    "setApplicationName(",  "DataFolders(", "StoreOption(registry, "};

/// Calls that write a line for whoever started the program in a terminal. They cannot ask for a
/// text of the tables, which may need memory.
constexpr std::string_view kLineCalls[] = {"WriteToStandardError("};

/// The other literals that no person reads, by what they are.
constexpr std::string_view kNoTexts[] = {
    // Names of controls and dialogs.
    "menuKey", "actionKey", "insertKey", "viewWindowDialog", "factorDialog", "showOnGraph",
    "polarGrid", "Caption", "controlClass", "TTSTATIC", "TTBUTTON", "maximisedBeforeFullScreen",
    // Families of fonts, a style sheet.
    "DejaVu Sans Mono", "Menlo", "Consolas", "Liberation Mono", "a { color: %1; }",
    // Names, kinds and patterns of files.
    "txt", ".bmp", " (*.txt)", " (*.kx)", "Kalvex_", "Kalvex.png", "result.kx", "Kalvex.pdf",
    "page.pdf", "%PDF", "%%EOF", "/kalvex/window.ini", "General", ":/icons/kalvex-%1.png",
    "kalvex-", "image/svg+xml",
    // Platforms without a screen.
    "offscreen", "minimal",
    // What a second start sends to the first, and the answer; the blanks that may stand around a
    // number.
    "r", "a", " \\t\\u00a0"};

struct Literal {
    std::string text;    ///< as it is written, escapes included
    std::string before;  ///< the line before it, without its prefix
    bool wide = false;   ///< UTF-16: it has the prefix u
};

/// Skips a comment or a character at `i`; false when there is none.
bool SkipOther(std::string_view source, std::size_t& i) {
    const std::string_view rest = source.substr(i);
    const auto skipTo = [&](std::string_view end, std::size_t from) {
        const std::size_t found = source.find(end, i + from);
        i = found == source.npos ? source.size() : found + end.size();
        return true;
    };
    if (rest.starts_with("//")) return skipTo("\n", 2);
    if (rest.starts_with("/*")) return skipTo("*/", 2);
    if (rest.starts_with("#include")) return skipTo("\n", 0);
    const bool digitBefore = i > 0 && std::isdigit(static_cast<unsigned char>(source[i - 1])) != 0;
    if (rest.starts_with('\'') && !digitBefore) return skipTo("'", rest.starts_with("'\\") ? 3 : 2);
    return false;
}

/// The string literals of a source. Raw literals are not recognised; the windows do not use them.
std::vector<Literal> LiteralsOf(std::string_view source) {
    std::vector<Literal> literals;
    std::size_t i = 0;
    while (i < source.size()) {
        if (SkipOther(source, i)) continue;
        if (source[i++] != '"') continue;
        const std::size_t first = i;
        while (i < source.size() && source[i] != '"')
            i += source[i] == '\\' ? 2 : 1;
        const std::size_t line = source.rfind('\n', first) + 1;
        std::string before(source.substr(line, first - 1 - line));
        const bool wide = before.ends_with('u');
        if (wide) before.pop_back();
        literals.push_back({std::string(source.substr(first, i - first)), before, wide});
        ++i;
    }
    return literals;
}

/// Whether a person could be meant to read it: letters that are not part of an escape.
bool HasLetters(std::string_view literal) {
    for (std::size_t i = 0; i < literal.size(); ++i) {
        const auto character = static_cast<unsigned char>(literal[i]);
        if (character == '\\') {
            const char escape = literal[++i];
            if (escape == 'u' || escape == 'U' || escape == 'x') return true;
        } else if (std::isalpha(character) != 0 || character >= 0x80) {
            return true;
        }
    }
    return false;
}

bool IsNoText(const Literal& literal) {
    const auto calls = [&](std::string_view call) { return literal.before.ends_with(call); };
    return !HasLetters(literal.text) ||
           std::any_of(std::begin(kNamingCalls), std::end(kNamingCalls), calls) ||
           std::any_of(std::begin(kLineCalls), std::end(kLineCalls), calls) ||
           std::find(std::begin(kNoTexts), std::end(kNoTexts), literal.text) != std::end(kNoTexts);
}

std::vector<std::filesystem::path> SourcesOf(std::string_view room) {
    std::vector<std::filesystem::path> paths;
    const auto folder = std::filesystem::path(KALVEX_SOURCES) / room;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string ending = entry.path().extension().string();
        if (ending == ".cpp" || ending == ".h") paths.push_back(entry.path());
    }
    return paths;
}

std::vector<Literal> LiteralsIn(const std::filesystem::path& path) {
    std::ifstream file(path);
    const std::string source(std::istreambuf_iterator<char>(file), {});
    EXPECT_FALSE(source.empty()) << path;
    return LiteralsOf(source);
}

TEST(Literals, AreFoundInSources) {
    const struct {
        std::string_view source;
        std::vector<std::string> texts;
    } rows[] = {
        {"", {}},
        {"f(\"a\", u\"b\\\"c\");", {"a", "b\\\"c"}},
        {"// \"a\"\nf(\"b\");", {"b"}},
        {"/* \"a\" */ f(\"b\");", {"b"}},
        {"#include \"a.h\"\nf('\"', '\\'', \"b\");", {"b"}},
        {"f(1'000, \"a\", 2'000);", {"a"}},
        {"f(\"\");", {""}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> texts;
        for (const Literal& literal : LiteralsOf(row.source))
            texts.push_back(literal.text);
        EXPECT_EQ(texts, row.texts) << row.source;
    }
}

TEST(Literals, AreTextsUnlessTheyAreNames) {
    const struct {
        std::string_view source;
        bool text;
    } rows[] = {
        {"window.setWindowTitle(\"Analysis\");", true},
        {"key->setText(\"Ok\");", true},
        {"key->setText(u\"Ok\");", true},
        {"key->setText(\"\\u0410\");", true},
        {"key->setText(\"А\");", true},
        {"key->setObjectName(\"okKey\");", false},
        {"words.join(\", \");", false},
        {"split(\"\\r\\n\");", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(!IsNoText(LiteralsOf(row.source).at(0)), row.text) << row.source;
}

std::vector<std::filesystem::path> SourcesOfTheWindows() {
    std::vector<std::filesystem::path> paths = SourcesOf("ui");
    paths.push_back(std::filesystem::path(KALVEX_SOURCES) / "resources/menus.cpp");
    return paths;
}

TEST(Literals, OfTheWindowsAreNoTexts) {
    const std::vector<std::filesystem::path> paths = SourcesOfTheWindows();
    std::size_t seen = 0;
    for (const std::filesystem::path& path : paths) {
        for (const Literal& literal : LiteralsIn(path)) {
            ++seen;
            EXPECT_TRUE(IsNoText(literal))
                << path << ": \"" << literal.text << "\" belongs to resources/texts";
        }
    }
    EXPECT_GT(seen, 50u);
}

// What these rooms hand to the windows is UTF-16; other literals are names of their own.
std::vector<Literal> WideLiteralsOfTheEngine() {
    std::vector<Literal> literals;
    for (const std::string_view room : {"analysis", "commands", "graph", "painter"}) {
        for (const std::filesystem::path& path : SourcesOf(room)) {
            for (const Literal& literal : LiteralsIn(path)) {
                if (literal.wide) literals.push_back(literal);
            }
        }
    }
    return literals;
}

TEST(Literals, OfTheEngineAreNoTexts) {
    const std::vector<Literal> literals = WideLiteralsOfTheEngine();
    for (const Literal& literal : literals)
        EXPECT_TRUE(IsNoText(literal)) << '"' << literal.text << "\" belongs to resources/texts";
    EXPECT_GT(literals.size(), 3u);
}

// An exception that nobody needs any more could let a text of the same words through.
TEST(Literals, HaveNoIdleExceptions) {
    std::set<std::string> used;
    for (const std::filesystem::path& path : SourcesOfTheWindows()) {
        for (const Literal& literal : LiteralsIn(path))
            used.insert(literal.text);
    }
    for (const Literal& literal : WideLiteralsOfTheEngine())
        used.insert(literal.text);
    for (const std::string_view exception : kNoTexts)
        EXPECT_TRUE(used.contains(std::string(exception))) << exception;
}

}  // namespace
}  // namespace kalvex
