#include "settings/registry_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <vector>

#include "base/encoding.h"
#include "resources/samples.h"
#include "settings/examples.h"
#include "settings/faulty_registry.h"
#include "settings/settings.h"
#include "workspace/defaults.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

class RegistryFile : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "kalvex-test-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        file = folder / "kalvex" / "kalvex.ini";
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string Content() const {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void Write(const std::string& content) const {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
    }
    Registry Open() const { return OpenRegistryFile(file.string()); }

    fs::path folder;
    fs::path file;
};

TEST_F(RegistryFile, IsEmptyAndMakesNothingBeforeTheFirstWrite) {
    const Registry registry = Open();
    EXPECT_TRUE(registry.isEmpty());
    EXPECT_FALSE(registry.open(""));
    EXPECT_EQ(registry.readNumber("", "Wight"), std::nullopt);
    EXPECT_FALSE(fs::exists(file.parent_path()));
}

TEST_F(RegistryFile, KeepsAFirstStart) {
    EXPECT_TRUE(CreateDefaultKeys(Open()));
    const Registry registry = Open();
    EXPECT_FALSE(registry.isEmpty());
    Workspace workspace;
    ShownBoxes shown;
    LoadFunctionTexts(registry, workspace, shown.show);
    LoadFunctionSettings(registry, workspace, shown.show);
    LoadSettings(registry, workspace, shown.show);
    EXPECT_TRUE(shown.boxes->empty());
    EXPECT_EQ(workspace.lines, ExampleWorkspace(ToUtf16(SamplePath(kPeakSample))).lines);
    EXPECT_EQ(workspace.functions[8].color, 9);
    EXPECT_EQ(workspace.options.TextSize, Options{}.TextSize);
    EXPECT_FALSE(CreateDefaultKeys(registry));
}

TEST_F(RegistryFile, ReadsWell) {
    const Registry registry = Open();
    registry.create("");
    registry.create("3");
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    EXPECT_TRUE(registry.writeText("3", "equ", u"sin(x)/x"));
    EXPECT_EQ(Content(), "[Kalvex]\nWight=2\n\n[Function3]\nequ=sin(x)/x\n");
}

TEST_F(RegistryFile, ComparesNamesWithoutCase) {
    Write("[kalvex]\nXMIN=-3.5\n[Function1]\nColor=4\n");
    const Registry registry = Open();
    EXPECT_EQ(registry.readText("", "xmin"), u"-3.5");
    EXPECT_EQ(registry.readNumber("1", "color"), 4);
    EXPECT_TRUE(registry.writeNumber("1", "color", 5));
    EXPECT_EQ(Open().readNumber("1", "Color"), 5);
    EXPECT_EQ(Content().find("color"), std::string::npos);
}

TEST_F(RegistryFile, BringsAnyTextBack) {
    std::u16string all;
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        all += static_cast<char16_t>(unit);
    const std::u16string texts[] = {u"", u"Beta(x,2);\"\\n\"", u"@Invalid()", u"  x  ", all};
    for (const std::u16string& text : texts) {
        const Registry registry = Open();
        registry.create("1");
        ASSERT_TRUE(registry.writeText("1", "equ", text));
        ASSERT_TRUE(registry.writeText("1", "other", u"next"));
        EXPECT_EQ(Open().readText("1", "equ"), text) << Content();
        EXPECT_EQ(Open().readText("1", "other"), u"next") << Content();
    }
}

struct NumberCase {
    std::string_view text;
    std::optional<std::int32_t> value;
};

const NumberCase kNumbers[] = {
    {"0", 0},
    {"-17", -17},
    {"2147483647", 2147483647},
    {"-2147483648", -2147483647 - 1},
    {"2147483648", std::nullopt},
    {"99999999999999999999999", std::nullopt},
    {"", std::nullopt},
    {"-", std::nullopt},
    {"1-", std::nullopt},
    {"1.0", std::nullopt},
    {"1e1", std::nullopt},
    {"0x10", std::nullopt},
    {"true", std::nullopt},
    {"1, 2", std::nullopt},
    {"@Invalid()", std::nullopt},
};

TEST_F(RegistryFile, ReadsWholeNumbersOnly) {
    for (const NumberCase& row : kNumbers) {
        Write("[Kalvex]\nWight=" + std::string(row.text) + "\nAxex=1\n");
        const Registry registry = Open();
        EXPECT_EQ(registry.readNumber("", "Wight"), row.value) << row.text;
        EXPECT_EQ(registry.readNumber("", "Axex"), 1) << row.text;
    }
}

TEST_F(RegistryFile, TakesALineTypedByHand) {
    Write("[Function1]\nequ = J(0, x) ; \\data\\file\n");
    EXPECT_EQ(Open().readText("1", "equ"), u"J(0, x) ; \\data\\file");
}

TEST_F(RegistryFile, IsWrittenOnceForABatch) {
    const Registry registry = Open();
    registry.begin();
    registry.create("");
    registry.begin();
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    EXPECT_EQ(registry.readNumber("", "Wight"), 2);
    EXPECT_TRUE(registry.commit());
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(registry.commit());
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(RegistryFile, StoresNothingOfABatchThatAnExceptionLeaves) {
    const Registry registry = OpenRegistryFile(file.string());
    ASSERT_TRUE(registry.create(""));
    ASSERT_TRUE(registry.writeNumber("", "Axex", 1));
    const std::string before = Content();
    const auto writes = [&registry]() -> bool {
        EXPECT_TRUE(registry.writeNumber("", "Axex", 2));
        throw std::bad_alloc();
    };
    EXPECT_THROW(static_cast<void>(WriteTogether(registry, writes)), std::bad_alloc);
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(registry.readNumber("", "Axex"), 1);
    EXPECT_TRUE(registry.writeNumber("", "Coord", 3));  // later writes are stored at once
    EXPECT_EQ(OpenRegistryFile(file.string()).readNumber("", "Coord"), 3);
    EXPECT_EQ(OpenRegistryFile(file.string()).readNumber("", "Axex"), 1);
}

TEST_F(RegistryFile, IsNotWrittenForAnUnchangedValue) {
    const Registry registry = Open();
    registry.create("");
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    const auto before = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(file, before);
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    EXPECT_EQ(fs::last_write_time(file), before);
    EXPECT_TRUE(registry.writeNumber("", "Wight", 3));
    EXPECT_NE(fs::last_write_time(file), before);
}

TEST_F(RegistryFile, NoticesAFileThatChanged) {
    const Registry registry = Open();
    registry.create("");
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    Write("[Kalvex]\nWight=17\n");
    EXPECT_EQ(registry.readNumber("", "Wight"), 17);
}

TEST_F(RegistryFile, MakesAFileAgainThatWentAwayOrWasEmptied) {
    const auto remove = [this] { fs::remove(file); };
    const auto removeFolder = [this] { fs::remove_all(file.parent_path()); };
    const auto empty = [this] { fs::resize_file(file, 0); };
    for (const std::function<void()>& lose :
         std::vector<std::function<void()>>{remove, empty, removeFolder}) {
        const Registry registry = Open();
        static_cast<void>(CreateDefaultKeys(registry));
        ASSERT_TRUE(StoreFunctionText(registry, 4, u"7x"));
        const std::string before = Content();
        lose();
        EXPECT_FALSE(registry.isEmpty());
        EXPECT_TRUE(registry.open("5"));
        EXPECT_EQ(registry.readText("5", "equ"), u"7x");
        // The same value is stored: it must come back with all the others.
        EXPECT_TRUE(StoreFunctionText(registry, 4, u"7x"));
        EXPECT_EQ(Content(), before);
        lose();
        EXPECT_TRUE(StoreAtEnd(registry, DefaultWorkspace(), true));
        EXPECT_TRUE(Open().open("9"));
        EXPECT_EQ(RemarksOf(registry).keptAs, "");
    }
}

TEST_F(RegistryFile, ReadsAFileThatCameBack) {
    const Registry registry = Open();
    registry.create("");
    EXPECT_TRUE(registry.writeNumber("", "Wight", 2));
    fs::remove(file);
    EXPECT_EQ(registry.readNumber("", "Wight"), 2);
    Write("[Kalvex]\nWight=17\n");
    EXPECT_EQ(registry.readNumber("", "Wight"), 17);
}

TEST_F(RegistryFile, ADamagedFileThatWentAwayIsNotKept) {
    Write("rubbish\n[Kalvex]\nWight=2\n");
    const Registry registry = Open();
    EXPECT_EQ(registry.readNumber("", "Wight"), 2);
    fs::remove(file);
    EXPECT_TRUE(registry.writeNumber("", "Wight", 3));
    EXPECT_EQ(Open().readNumber("", "Wight"), 3);
    EXPECT_EQ(RemarksOf(registry).keptAs, "");
}

TEST_F(RegistryFile, FailsWhereNoFileCanBe) {
    std::ofstream(folder / "plain") << "not a folder";
    fs::create_directories(folder / "folder.ini" / "inside");
    for (const fs::path& path : {folder / "plain" / "kalvex.ini", folder / "folder.ini"}) {
        const Registry registry = OpenRegistryFile(path.string());
        EXPECT_TRUE(registry.isEmpty());
        EXPECT_FALSE(CreateDefaultKeys(registry)) << path;
        EXPECT_FALSE(registry.open("")) << path;
        EXPECT_TRUE(registry.isEmpty());
        EXPECT_EQ(registry.readNumber("", "Wight"), std::nullopt);
        EXPECT_FALSE(StoreView(registry, ViewWindow{}, Options{}));
        EXPECT_EQ(StoreOption(registry, "Wight", 2), 0);
        EXPECT_FALSE(registry.writeNumber("", "Wight", 2));
    }
}

TEST_F(RegistryFile, IsDamagedNotNewWhenNothingInItCanBeRead) {
    for (const std::string& content :
         {std::string("\xff\xfe\x01[[["), std::string("\n"), std::string(3000, '\x9C')}) {
        Write(content);
        const Registry registry = Open();
        EXPECT_FALSE(registry.isEmpty()) << content;
        EXPECT_FALSE(CreateDefaultKeys(registry));
        Workspace workspace;
        ShownBoxes shown;
        LoadFunctionTexts(registry, workspace, shown.show);
        LoadFunctionSettings(registry, workspace, shown.show);
        LoadSettings(registry, workspace, shown.show);
        EXPECT_EQ(shown.boxes->size(), 1u);
        CreateMissingKeys(registry, workspace);
        EXPECT_TRUE(StoreFunctionSettings(registry, workspace.functions));
        EXPECT_EQ(Open().readText("9", "equ"), u"");
        EXPECT_EQ(Open().readNumber("9", "color"), 9);
    }
}

/// While an object of this class lives, no file can grow beyond a size, as on a full disk.
class FullDisk final {
  public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before);
        oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before{};
    void (*oldHandler)(int) = nullptr;
};

TEST_F(RegistryFile, KeepsTheOldFileOnAFullDisk) {
    const Registry registry = Open();
    ASSERT_TRUE(CreateDefaultKeys(registry));
    const std::string before = Content();
    ASSERT_GT(before.size(), 1000u);
    FunctionList functions = DefaultWorkspace().functions;
    functions[2].color = 8;
    bool stored = true;
    bool textStored = true;
    std::int32_t option = 1;
    {
        const FullDisk full(600);
        stored = StoreFunctionSettings(registry, functions);
        textStored = StoreFunctionText(registry, 0, u"x^2");
        option = StoreOption(registry, "Wight", 2);
    }
    EXPECT_FALSE(stored);
    EXPECT_FALSE(textStored);
    EXPECT_EQ(option, 0);
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(registry.readNumber("3", "Color"), 3);
    // With room again, new values are stored; those that failed before are not written later.
    EXPECT_EQ(StoreOption(registry, "Screen", 9), 1);
    EXPECT_EQ(Open().readNumber("", "Screen"), 9);
    EXPECT_EQ(Open().readNumber("", "Wight"), 1);
    EXPECT_EQ(Open().readNumber("3", "Color"), 3);
    EXPECT_EQ(Open().readText("1", "equ"), ExampleWorkspace().lines[0]);
}

TEST_F(RegistryFile, TakesWhatCanBeReadOfADamagedFile) {
    const std::string damaged[] = {
        "[Kalvex]\nWight=2\nrubbish without a sign\n[Function",
        "\xFF\xFE\n[Kalvex]\nWight=2\n",
        std::string("[Kalvex]\nWight=2\n\0\0\0=\0", 23),
    };
    for (const std::string& content : damaged) {
        Write(content);
        const Registry registry = Open();
        EXPECT_EQ(registry.readNumber("", "Wight"), 2) << content;
        EXPECT_FALSE(registry.open("1"));
        EXPECT_TRUE(registry.writeNumber("", "Axex", 0)) << content;
        EXPECT_EQ(Open().readNumber("", "Axex"), 0) << content;
        EXPECT_EQ(Open().readNumber("", "Wight"), 2) << content;
    }
}

TEST(RegistryFileAt, ADeviceIsLeftAlone) {
    const Registry registry = OpenRegistryFile("/dev/null");
    registry.create("");
    EXPECT_FALSE(registry.writeNumber("", "Wight", 2));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

std::string ReadAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// While an object of this class lives, the process can open no more files.
class NoMoreFiles final {
  public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit limit = {0, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before); }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;

  private:
    rlimit before{};
};

// The defaults that the program works with after a failed read must not replace the user's lines,
// even if the file could be read a moment later.
TEST_F(RegistryFile, IsNeverWrittenOverWhenItCouldNotBeRead) {
    ASSERT_TRUE(CreateDefaultKeys(Open()));
    const std::string before = Content();
    const Registry registry = Open();
    Workspace workspace = DefaultWorkspace();
    ShownBoxes shown;
    {
        const NoMoreFiles none;
        EXPECT_FALSE(CreateDefaultKeys(registry));
        LoadFunctionTexts(registry, workspace, shown.show);
    }
    LoadFunctionSettings(registry, workspace, shown.show);
    LoadSettings(registry, workspace, shown.show);
    CreateMissingKeys(registry, workspace);
    EXPECT_EQ(shown.boxes->size(), 1u);
    EXPECT_FALSE(StoreFunctionTexts(registry, workspace.lines));
    EXPECT_FALSE(StoreFunctionSettings(registry, workspace.functions));
    EXPECT_FALSE(StoreView(registry, workspace.view, workspace.options));
    EXPECT_EQ(StoreOption(registry, "Wight", 2), 0);
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(RemarksOf(registry).notStored,
              file.string() + " could not be read: Too many open files");
    EXPECT_EQ(StoreOption(Open(), "Wight", 2), 1) << "the next start";
}

TEST_F(RegistryFile, KeepsWhatItDoesNotUnderstand) {
    const std::string contents[] = {
        "[Kalvex]\nWight=2\nrubbish without a sign\n",
        "[Kalvex]\nAxex=1\n[Function",
        std::string("\xff\xfe\x01[[["),
        "[Kalvex]\nWight=2\n[Function1]\nequ=sin\xE9(x)\n",
        "[Kalvex]\nWight=two\n",
        "[Kalvex]\nWight=1\n;" + std::string(1 << 20, ' ') + "\n[Function1]\nequ=x\n",
    };
    int number = 0;
    for (const std::string& content : contents) {
        Write(content);
        const Registry registry = Open();
        registry.create("");
        EXPECT_EQ(RemarksOf(registry).keptAs, "");
        EXPECT_TRUE(registry.writeNumber("", "Wight", 17)) << content.substr(0, 100);
        const std::string kept = file.string() + ".damaged-" + std::to_string(++number);
        EXPECT_EQ(RemarksOf(registry).keptAs, kept) << content.substr(0, 100);
        EXPECT_EQ(ReadAll(kept), content);
        EXPECT_TRUE(registry.writeNumber("", "Wight", 18));
        EXPECT_EQ(Open().readNumber("", "Wight"), 18);
    }
    EXPECT_FALSE(fs::exists(file.string() + ".damaged-" + std::to_string(number + 1)));
    for (const std::string& content : {std::string("; a note\n[Kalvex]\n\nWight=1\n"), Content()}) {
        Write(content);
        EXPECT_TRUE(Open().writeNumber("", "Wight", 19));
    }
    EXPECT_FALSE(fs::exists(file.string() + ".damaged-" + std::to_string(number + 1)));
}

TEST_F(RegistryFile, IsNotReplacedWhenADamagedOneCannotBeKept) {
    const std::string damaged = "rubbish\n[Kalvex]\nWight=2\n";
    Write(damaged);
    for (int number = 1; number <= 1000; ++number)
        std::ofstream(file.string() + ".damaged-" + std::to_string(number)) << number;
    const Registry registry = Open();
    EXPECT_FALSE(registry.writeNumber("", "Wight", 17));
    EXPECT_EQ(Content(), damaged);
    EXPECT_EQ(ReadAll(file.string() + ".damaged-7"), "7");
    EXPECT_EQ(RemarksOf(registry).notStored, "the damaged file could not be kept");
}

TEST_F(RegistryFile, SaysWhyItWasNotStored) {
    const Registry registry = Open();
    ASSERT_TRUE(CreateDefaultKeys(registry));
    EXPECT_EQ(RemarksOf(registry).notStored, "");
    {
        const FullDisk full(600);
        EXPECT_EQ(StoreOption(registry, "Wight", 2), 0);
    }
    EXPECT_EQ(RemarksOf(registry).notStored, "File too large");
    EXPECT_EQ(StoreOption(registry, "Wight", 2), 1);
    EXPECT_EQ(RemarksOf(registry).notStored, "");
    EXPECT_EQ(RemarksOf(MakeFaultyRegistry().registry).notStored, "");
}

TEST(DefaultRegistryPath, EndsAsItMust) {
    EXPECT_TRUE(DefaultRegistryPath().ends_with("/kalvex/kalvex.ini"));
}

/// Gives a variable of the environment a value while an object of this class lives.
class Variable final {
  public:
    Variable(const char* which, const char* value) : name(which) {
        const char* const present = std::getenv(which);
        if (present != nullptr) before = present;
        setenv(which, value, 1);
    }
    ~Variable() {
        if (before) {
            setenv(name, before->c_str(), 1);
        } else {
            unsetenv(name);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name;
    std::optional<std::string> before;
};

TEST(DefaultRegistryPath, IsInTheFolderOfTheEnvironmentByteByByte) {
    const Variable home("HOME", "/home/n\xE9");
    for (const char* const folder : {"/home/c\xFF", "/home/\xC3\xA9", "/home/c"}) {
        const Variable config("XDG_CONFIG_HOME", folder);
        EXPECT_EQ(DefaultRegistryPath(), std::string(folder) + "/kalvex/kalvex.ini");
    }
    for (const char* const none : {"", "not/absolute\xFF"}) {
        const Variable config("XDG_CONFIG_HOME", none);
        EXPECT_EQ(DefaultRegistryPath(), "/home/n\xE9/.config/kalvex/kalvex.ini") << none;
    }
}

}  // namespace
}  // namespace kalvex
