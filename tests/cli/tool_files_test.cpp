// What the tool does to the files and streams of -o.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "cli/tool_expect.h"
#include "cli/tool_run.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

/// The subcommands with -o and all formats, without -o itself.
const char* const kWriters[] = {
    "table decart:x",
    "analyze decart:x",
    "draw --size 40x30 --format png decart:x",
    "draw --size 40x30 --format svg decart:x",
    "draw --size 40x30 --format pdf decart:x",
    "draw --size 40x30 --format bmp decart:x",
    "draw --size 40x30 --format txt decart:x",
};

/// Without what differs from run to run: the time and the number in a PDF.
std::string Comparable(std::string bytes) {
    for (const char* const name : {"CreationDate", "ModifyDate", "CreateDate", "uuid:", "/ID"}) {
        for (std::size_t at = bytes.find(name); at != bytes.npos; at = bytes.find(name, at + 1))
            bytes.replace(at, 120, 120, ' ');
    }
    return bytes;
}

TEST(ToolFiles, StreamsGetWhatAFileWouldGet) {
    for (const char* writer : kWriters) {
        const TemporaryFolder folder;
        const std::string write = std::string("$tool ") + writer + " -o ";
        const std::string file = folder.PathOf("file");
        ASSERT_EQ(RunScript(write + "file", folder.PathOf("")).status, 0) << writer;
        const std::string expected = Comparable(ReadFile(file));
        ASSERT_FALSE(expected.empty()) << writer;
        for (const char* stream : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
            const ToolRun run = RunScript(write + stream, folder.PathOf(""));
            EXPECT_EQ(run.status, 0) << writer << ' ' << stream << ' ' << run.err;
            EXPECT_TRUE(Comparable(run.out) == expected) << writer << ' ' << stream;
            const ToolRun piped = RunScript(write + stream + " | cat", folder.PathOf(""));
            EXPECT_TRUE(Comparable(piped.out) == expected) << writer << ' ' << stream;
        }
        RunScript(write + "/dev/fd/3 3> third > log", folder.PathOf(""));
        EXPECT_TRUE(Comparable(ReadFile(folder.PathOf("third"))) == expected) << writer;
    }
}

TEST(ToolFiles, AppendToWhatAStreamHoldsAlready) {
    for (const char* writer : kWriters) {
        for (const char* stream : {"-", "/dev/stdout", "/dev/fd/1", "log"}) {
            const TemporaryFolder folder;
            const std::string write = std::string("$tool ") + writer + " -o " + stream;
            RunScript("(echo before; " + write + "; echo behind) > log", folder.PathOf(""));
            const std::string log = ReadFile(folder.PathOf("log"));
            EXPECT_TRUE(log.starts_with("before\n")) << writer << ' ' << stream;
            EXPECT_TRUE(log.ends_with("behind\n")) << writer << ' ' << stream;
            EXPECT_GT(log.size(), 100u) << writer << ' ' << stream;
            RunScript("(" + write + ") >> log", folder.PathOf(""));
            EXPECT_TRUE(ReadFile(folder.PathOf("log")).starts_with(log)) << writer << stream;
        }
    }
}

TEST(ToolFiles, WriteIntoANamedPipe) {
    const TemporaryFolder folder;
    const ToolRun run = RunScript(
        "mkfifo pipe && (cat pipe > read & $tool table -o pipe decart:x; wait) && test -p pipe",
        folder.PathOf(""));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(ReadFile(folder.PathOf("read")).starts_with("-10.0"));
}

TEST(ToolFiles, TellWhatAStreamDoesNotTake) {
    const TemporaryFolder folder;
    const struct {
        const char* script;
        const char* message;
    } rows[] = {
        {"$tool table -o - decart:x >&-",
         "The table could not be written: -: Bad file descriptor\n"},
        {"$tool table -o - decart:x > /dev/full",
         "The table could not be written: -: No space left on device\n"},
        {"$tool draw -o /dev/stdout decart:x > /dev/full",
         "The picture could not be written: /dev/stdout: No space left on device\n"},
    };
    for (const auto& row : rows) {
        const ToolRun run = RunScript(row.script, folder.PathOf(""));
        EXPECT_EQ(run.status, 3) << row.script;
        EXPECT_TRUE(run.err.starts_with(row.message)) << row.script << '\n' << run.err;
    }
}

TEST(ToolFiles, AreNotMixedUpWithAClosedStandardOutput) {
    const TemporaryFolder folder;
    const std::string report = folder.PathOf("report");
    ASSERT_EQ(RunScript("$tool analyze -o report decart:x", folder.PathOf("")).status, 0);
    const std::string expected = ReadFile(report);
    const ToolRun run = RunScript("$tool analyze -o report decart:x >&-", folder.PathOf(""));
    EXPECT_EQ(run.status, 3) << "the text could not be printed";
    EXPECT_EQ(ReadFile(report), expected);
}

TEST(ToolFiles, OfPicturesMayAskForAFormat) {
    const TemporaryFolder folder;
    const std::string svg = folder.PathOf("a.png");
    EXPECT_EQ(RunTool({"draw", "--format", "svg", "-o", svg, "decart:x"}).status, 0);
    EXPECT_TRUE(ReadFile(svg).starts_with("<?xml"));
    EXPECT_TRUE(RunTool({"draw", "-o", "-", "decart:x"}).out.starts_with("\x89PNG"));
    const ToolRun run = RunTool({"draw", "--format", "gif", "-o", svg, "decart:x"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with(
        "--format: one of .png, .svg, .pdf, .bmp or .txt without its dot expected\n"))
        << run.err;
}

TEST(ToolFiles, MayHaveAnyNames) {
    for (const std::string& name :
         {std::string("\xff\xfe\xe9.png"), std::string(251, 'x') + ".txt"}) {
        const TemporaryFolder folder;
        const std::string path = folder.PathOf(name);
        for (const char* lines : {"decart:x", "decart:-x"}) {
            EXPECT_EQ(RunTool({"draw", "-o", path, lines}).status, 0) << name;
            EXPECT_EQ(RunTool({"table", "-o", path, lines}).status, 0) << name;
        }
        struct stat facts {};
        EXPECT_EQ(stat(path.c_str(), &facts), 0) << name;
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.PathOf("")), {}), 1) << name;
    }
}

TEST(ToolFiles, AreNotReplacedThroughACircleOfLinks) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.PathOf("a"));
    fs::create_symlink("a", folder.PathOf("b"));
    const std::string path = folder.PathOf("a");
    Expect({{"table", "-o", path, "decart:x"},
            "",
            3,
            "",
            "The table could not be written: " + path + ": Too many levels of symbolic links\n"});
    EXPECT_TRUE(fs::is_symlink(path));
}

TEST(ToolFiles, OfAKilledRunAreRemovedByTheNext) {
    const TemporaryFolder folder;
    const std::string left = folder.PathOf(".kalvex-0123456789abcdef.tmp");
    std::ofstream(left) << "half";
    EXPECT_EQ(RunTool({"table", "-o", folder.PathOf("a.txt"), "decart:x"}).status, 0);
    EXPECT_FALSE(fs::exists(left));
}

struct MemoryCase {
    const char* name;
    const char* kilobytes;  ///< for the shell's ulimit
    const char* start;      ///< of a complete file
    std::uintmax_t size;    ///< of a complete file; 0: not known
};

constexpr std::uintmax_t kBitmapSize = 54 + 6000u * 6000u * 3;

const MemoryCase kMemoryCases[] = {
    {"old.bmp", "unlimited", "BM", kBitmapSize},
    {"old.bmp", "300000", "BM", kBitmapSize},
    {"old.bmp", "250000", "BM", kBitmapSize},
    {"old.bmp", "200000", "BM", kBitmapSize},
    {"old.png", "200000", "\x89PNG", 0},
    {"old.png", "250000", "\x89PNG", 0},
    {"old.svg", "60000", "<?xml", 0},
    {"old.pdf", "60000", "%PDF", 0},
};

// With little memory some of the conversions fail, with more of it none: the old picture is there
// or the whole new one, and the status says which.
TEST(ToolFiles, ArePicturesOrWhatTheyWereWithLittleMemory) {
    int refused = 0;
    for (const MemoryCase& row : kMemoryCases) {
        const TemporaryFolder folder;
        const std::string path = folder.PathOf(row.name);
        std::ofstream(path) << "the good old picture";
        const ToolRun run =
            RunScript("ulimit -v " + std::string(row.kilobytes) +
                          "; $tool draw --size 6000x6000 -o " + row.name + " decart:x",
                      folder.PathOf(""));
        const std::string what = std::string(row.name) + ' ' + row.kilobytes;
        const std::string content = ReadFile(path);
        if (run.status == 0) {
            EXPECT_TRUE(content.starts_with(row.start)) << what;
            EXPECT_TRUE(row.size == 0 || content.size() == row.size) << what;
        } else {
            ++refused;
            EXPECT_EQ(content, "the good old picture") << what;
            EXPECT_NE(run.err, "") << what;
        }
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.PathOf("")), {}), 1) << what;
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, static_cast<int>(std::size(kMemoryCases)));
}

}  // namespace
}  // namespace kalvex
