#include "base/complete_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <new>
#include <thread>

#include "base/failing_calls.h"
#include "base/temporary_folder.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;
using CompleteFile = FolderTest;

TEST_F(CompleteFile, ReplacesAnOldOne) {
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {"long and new"sv, "a\0b\r\n\xff"sv, ""sv}) {
        EXPECT_TRUE(WriteCompleteFile(PathOf("file.txt"), bytes));
        EXPECT_EQ(Content("file.txt"), bytes);
        EXPECT_EQ(Entries(), 1) << "nothing is left beside it";
    }
}

TEST_F(CompleteFile, LeavesTheOldOneWhenItsContentsCannotBeMade) {
    Write("file.txt", "old");
    const WriteResult result = WriteCompleteFile(PathOf("file.txt"), [](const TakeBytes& take) {
        EXPECT_TRUE(take("new"));
        return false;
    });
    EXPECT_EQ(result.failure, "its contents could not be made; perhaps there is too little memory");
    EXPECT_THROW(static_cast<void>(WriteCompleteFile(
                     PathOf("file.txt"), [](const TakeBytes&) -> bool { throw std::bad_alloc(); })),
                 std::bad_alloc);
    EXPECT_EQ(Content("file.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

// Every call that can fail fails once: a full disk, a broken one, no more open files. The result
// says which file is there.
TEST_F(CompleteFile, IsTheOldOneOrTheNewOneWhateverFails) {
    for (const int error : {ENOSPC, EIO, EMFILE, EACCES}) {
        for (const bool old : {true, false}) {
            int failed = 0;
            for (bool reached = true; reached; ++failed) {
                fs::remove(folder / "file.txt");
                if (old) Write("file.txt", "old");
                FailCall(failed, error);
                const WriteResult result = WriteCompleteFile(PathOf("file.txt"), "new");
                reached = StopFailing();
                const std::string expected = result ? "new" : old ? "old" : "";
                EXPECT_EQ(Content("file.txt"), expected) << failed << ' ' << error;
                EXPECT_EQ(fs::exists(folder / "file.txt"), old || result) << failed;
                EXPECT_EQ(Entries(), old || result ? 1 : 0) << failed << ' ' << error;
                EXPECT_TRUE(reached || result) << result.failure;
            }
            EXPECT_GT(failed, 6) << "opening, writing, both syncs, renaming";
        }
    }
}

TEST_F(CompleteFile, NoticesThatTheDiskCouldNotTakeIt) {
    Write("file.txt", "old");
    int toldAsFull = 0;
    for (int call = 0; call < 20; ++call) {
        FailCall(call, ENOSPC);
        toldAsFull += WriteCompleteFile(PathOf("file.txt"), "new").failure ==
                              std::string("No space left on device")
                          ? 1
                          : 0;
        StopFailing();
    }
    EXPECT_GE(toldAsFull, 5);
}

TEST_F(CompleteFile, FailsWithTheReasonOfTheSystem) {
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    Write("plain", "");
    const struct {
        std::string path;
        const char* failure;
    } rows[] = {
        {folder.string(), "Is a directory"},
        {PathOf("new/"), "No such file or directory"},
        {PathOf("no/file.txt"), "No such file or directory"},
        {PathOf("plain/file.txt"), "Not a directory"},
        {PathOf(std::string(256, 'x')), "File name too long"},
        {PathOf("pipe"), "not a regular file"},
        {"/dev/full", "not a regular file"},
        {"/dev/stdout", "not a regular file"},
        {"", "No such file or directory"},
        {".", "Is a directory"},
        {"..", "Is a directory"},
        {"/", "Is a directory"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WriteCompleteFile(row.path, "bytes").failure, row.failure) << row.path;
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(Entries(), 2);
}

TEST_F(CompleteFile, TakesAnyName) {
    for (const std::string& name :
         {std::string(255, 'x'), std::string("\xff\xfe.txt"), std::string("\xD0\xB6"),
          std::string("a\nb"), std::string(" ")}) {
        EXPECT_TRUE(WriteCompleteFile(PathOf(name), "new")) << name;
        EXPECT_TRUE(WriteCompleteFile(PathOf(name), "newer")) << name;
        struct stat facts {};
        EXPECT_EQ(stat((folder.string() + '/' + name).c_str(), &facts), 0) << name;
        EXPECT_EQ(Content(name), "newer");
        fs::remove(folder / name);
        EXPECT_EQ(Entries(), 0) << name;
    }
}

TEST_F(CompleteFile, FollowsLinksAndKeepsThem) {
    fs::create_directory(folder / "inner");
    fs::create_symlink("inner", folder / "way");
    fs::create_symlink("way/../way/second", folder / "first");
    fs::create_symlink(folder / "inner" / "file.txt", folder / "inner" / "second");
    for (const char* bytes : {"new", "newer"}) {  // at first the last link leads nowhere
        EXPECT_TRUE(WriteCompleteFile(PathOf("first"), bytes));
        EXPECT_TRUE(fs::is_symlink(folder / "first"));
        EXPECT_TRUE(fs::is_symlink(folder / "inner" / "second"));
        EXPECT_EQ(Content("inner/file.txt"), bytes);
    }
}

TEST_F(CompleteFile, RefusesACircleOfLinks) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    fs::create_symlink("self", folder / "self");
    for (const char* name : {"a", "self", "self/file.txt"})
        EXPECT_EQ(WriteCompleteFile(PathOf(name), "x").failure,
                  "Too many levels of symbolic links");
    EXPECT_TRUE(fs::is_symlink(folder / "a"));
    EXPECT_TRUE(fs::is_symlink(folder / "self"));
    EXPECT_EQ(Entries(), 3);
}

mode_t ModeOf(const std::string& path) {
    struct stat facts {};
    stat(path.c_str(), &facts);
    return facts.st_mode & 07777;
}

TEST_F(CompleteFile, HasThePermissionsOfTheOldOne) {
    for (const mode_t mode : {0600, 0640, 0664, 0755, 0222}) {
        Write("file.txt", "old");
        ASSERT_EQ(chmod(PathOf("file.txt").c_str(), mode), 0);
        EXPECT_TRUE(WriteCompleteFile(PathOf("file.txt"), "new"));
        EXPECT_EQ(ModeOf(PathOf("file.txt")), mode);
        fs::remove(folder / "file.txt");
    }
    const mode_t before = umask(027);
    EXPECT_TRUE(WriteCompleteFile(PathOf("new.txt"), "new"));
    umask(before);
    EXPECT_EQ(ModeOf(PathOf("new.txt")), 0640u) << "a new file has those of the user's mask";
}

TEST_F(CompleteFile, HasTheGroupOfTheOldOne) {
    std::array<gid_t, 256> groups{};
    int count = getgroups(static_cast<int>(groups.size()), groups.data());
    ASSERT_GE(count, 0);
    if (geteuid() == 0) groups[static_cast<std::size_t>(count++)] = 12345;  // root may choose any
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        Write("file.txt", "old");
        ASSERT_EQ(chown(PathOf("file.txt").c_str(), static_cast<uid_t>(-1), groups[i]), 0);
        EXPECT_TRUE(WriteCompleteFile(PathOf("file.txt"), "new"));
        struct stat facts {};
        ASSERT_EQ(stat(PathOf("file.txt").c_str(), &facts), 0);
        EXPECT_EQ(facts.st_gid, groups[i]);
    }
}

/// An access control list as Linux stores it: the owner rw-, another user r--, the group r--, the
/// mask r--, others ---.
std::string AccessList() {
    std::string list("\2\0\0\0", 4);
    const auto add = [&list](char tag, char rights, std::string_view who) {
        list += {tag, '\0', rights, '\0'};
        list += who;
    };
    using namespace std::string_view_literals;
    add(0x01, 6, "\xff\xff\xff\xff"sv);
    add(0x02, 4, "\x39\x30\0\0"sv);
    add(0x04, 4, "\xff\xff\xff\xff"sv);
    add(0x10, 4, "\xff\xff\xff\xff"sv);
    add(0x20, 0, "\xff\xff\xff\xff"sv);
    return list;
}

std::string Attribute(const std::string& path, const char* name) {
    std::string value(1000, '\0');
    const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
    value.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return value;
}

// What the file system of the test cannot store cannot be lost either.
TEST_F(CompleteFile, HasTheAttributesOfTheOldOne) {
    const std::string path = PathOf("file.txt");
    const std::string list = AccessList();
    Write("file.txt", "old");
    const bool named = setxattr(path.c_str(), "user.origin", "measured", 8, 0) == 0;
    const bool listed =
        setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) == 0;
    EXPECT_TRUE(WriteCompleteFile(path, "new"));
    EXPECT_EQ(Content("file.txt"), "new");
    EXPECT_EQ(Attribute(path, "user.origin"), named ? "measured" : "");
    EXPECT_EQ(Attribute(path, "system.posix_acl_access"), listed ? list : "");
    RecordProperty("stored", std::string(named ? "attribute " : "") + (listed ? "list" : ""));
}

// Access lists that the folder gives to new files are not for a file that replaces an old one.
TEST_F(CompleteFile, TakesNoAccessListFromTheFolder) {
    Write("file.txt", "old");
    ASSERT_EQ(chmod(PathOf("file.txt").c_str(), 0600), 0);
    const std::string list = AccessList();
    setxattr(folder.c_str(), "system.posix_acl_default", list.data(), list.size(), 0);
    EXPECT_TRUE(WriteCompleteFile(PathOf("file.txt"), "new"));
    EXPECT_EQ(Attribute(PathOf("file.txt"), "system.posix_acl_access"), "");
    EXPECT_EQ(ModeOf(PathOf("file.txt")), 0600u);
}

TEST_F(CompleteFile, StreamsAreWrittenWhereTheyStand) {
    EXPECT_TRUE(WriteFileOrStream("/dev/null", [](const TakeBytes& take) { return take("x"); }));
    EXPECT_EQ(
        WriteFileOrStream("/dev/full", [](const TakeBytes& take) { return take("x"); }).failure,
        "No space left on device");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    std::string read;
    std::thread reader([&] { read = Content("pipe"); });
    EXPECT_TRUE(WriteFileOrStream(PathOf("pipe"), [](const TakeBytes& take) { return take("x"); }));
    reader.join();
    EXPECT_EQ(read, "x");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(CompleteFile, WritesToAFileThatIsOpenAlready) {
    Write("log", "before\n");
    const int log = open(PathOf("log").c_str(), O_WRONLY | O_APPEND);
    ASSERT_GE(log, 0);
    const auto fill = [](const TakeBytes& take) { return take("new\n"); };
    fs::create_symlink("/dev/fd/" + std::to_string(log), folder / "link");
    EXPECT_TRUE(WriteFileOrStream("/dev/fd/" + std::to_string(log), fill));
    EXPECT_TRUE(WriteFileOrStream("/proc/self/fd/" + std::to_string(log), fill));
    EXPECT_TRUE(WriteFileOrStream(PathOf("link"), fill));
    EXPECT_EQ(write(log, "after\n", 6), 6);
    close(log);
    EXPECT_EQ(Content("log"), "before\nnew\nnew\nnew\nafter\n");
    EXPECT_FALSE(WriteFileOrStream("/dev/fd/" + std::to_string(log), fill)) << "closed";
    const int readOnly = open(PathOf("log").c_str(), O_RDONLY);
    EXPECT_EQ(WriteFileOrStream("/dev/fd/" + std::to_string(readOnly), fill).failure,
              "Bad file descriptor");
    close(readOnly);
}

}  // namespace
}  // namespace kalvex
