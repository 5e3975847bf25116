#include "base/temporary_file.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "base/complete_file.h"
#include "base/read_file.h"
#include "base/temporary_folder.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;
using TemporaryFiles = FolderTest;

TEST_F(TemporaryFiles, HaveNamesThatAreRecognised) {
    EXPECT_TRUE(IsTemporaryName(TemporaryName()));
    EXPECT_NE(TemporaryName(), TemporaryName());
    EXPECT_TRUE(IsTemporaryName(".kalvex-0123456789abcdef.tmp"));
    for (const char* name :
         {"", ".kalvex", ".kalvex-0123456789abcdef", ".kalvex-0123456789abcdeg.tmp",
          ".kalvex-0123456789abcde.tmp", "akalvex-0123456789abcdef.tmp", "kalvex.ini"})
        EXPECT_FALSE(IsTemporaryName(name)) << name;
}

/// A process that is killed while it writes a file.
void KillWhileWriting(const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        static_cast<void>(WriteCompleteFile(path, [](const TakeBytes& take) {
            take("half");
            return kill(getpid(), SIGKILL) == 0;
        }));
        _exit(0);
    }
    int state = 0;
    waitpid(child, &state, 0);
    EXPECT_TRUE(WIFSIGNALED(state));
}

TEST_F(TemporaryFiles, OfAKilledProcessAreRemoved) {
    Write("file.txt", "old");
    for (const char* name : {"file.txt", "new.txt"})
        KillWhileWriting(PathOf(name));
    EXPECT_EQ(Entries(), 3);
    RemoveLeftovers(folder.string());
    EXPECT_EQ(Entries(), 1);
    EXPECT_EQ(Content("file.txt"), "old");
}

TEST_F(TemporaryFiles, OfALivingProcessStay) {
    EXPECT_TRUE(WriteCompleteFile(PathOf("file.txt"), [this](const TakeBytes& take) {
        RemoveLeftovers(folder.string());
        return take("new");
    }));
    EXPECT_EQ(Content("file.txt"), "new");
}

TEST_F(TemporaryFiles, AreNotTakenForOthers) {
    const char* const others[] = {".kalvex-notes.tmp", ".kalvex-0123456789ABCDEF.tmp", "x.tmp"};
    for (const char* name : others)
        Write(name, "precious");
    fs::create_directory(folder / ".kalvex-0123456789abcdef.tmp");
    Write("target", "precious");
    fs::create_symlink("target", folder / ".kalvex-0123456789abcde0.tmp");
    RemoveLeftovers(folder.string());
    EXPECT_EQ(Entries(), 6);
    RemoveLeftovers(PathOf("missing"));
}

using WholeFiles = FolderTest;

TEST_F(WholeFiles, AreReadUpToALength) {
    Write("file", "12345");
    const struct {
        std::size_t most;
        const char* bytes;
        bool whole;
    } rows[] = {{6, "12345", true}, {5, "12345", true}, {4, "1234", false}, {0, "", false}};
    for (const auto& row : rows) {
        const FileContents contents = ReadWholeFile(PathOf("file"), row.most);
        EXPECT_TRUE(contents.exists);
        EXPECT_EQ(contents.failure, "");
        EXPECT_EQ(contents.bytes, row.bytes);
        EXPECT_EQ(contents.isWhole, row.whole) << row.most;
    }
}

TEST_F(WholeFiles, AreMissingOrUnreadable) {
    Write("file", "");
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    fs::create_symlink("circle", folder / "circle");
    const struct {
        const char* name;
        bool exists;
        const char* failure;
    } rows[] = {{"none", false, ""},
                {"none/file", false, ""},
                {"file/file", false, ""},
                {"", true, "not a regular file"},
                {"pipe", true, "not a regular file"},
                {"circle", true, "Too many levels of symbolic links"}};
    for (const auto& row : rows) {
        const FileContents contents = ReadWholeFile(PathOf(row.name), 100);
        EXPECT_EQ(contents.exists, row.exists) << row.name;
        EXPECT_EQ(contents.failure, row.failure) << row.name;
    }
}

}  // namespace
}  // namespace kalvex
