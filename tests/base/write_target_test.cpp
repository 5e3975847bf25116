#include "base/write_target.h"

#include <sys/stat.h>
#include <unistd.h>

#include "base/complete_file.h"
#include "base/temporary_folder.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

TEST(MayFollowLink, AsksForTheOwnerInASharedFolderOnly) {
    const struct {
        mode_t folder;
        uid_t folderOwner, linkOwner, self;
        bool may;
    } rows[] = {
        {0755, 0, 1001, 1000, true},   {0777, 0, 1001, 1000, true},   {01755, 0, 1001, 1000, true},
        {01777, 0, 1001, 1000, false}, {01777, 0, 1000, 1000, true},  {01777, 0, 0, 1000, true},
        {01777, 0, 1001, 0, false},    {01777, 1001, 1001, 0, true},  {01777, 1000, 0, 1000, false},
        {01775, 0, 1001, 1000, true},  {01773, 0, 1001, 1000, false},
    };
    for (const auto& row : rows) {
        struct stat folder {};
        folder.st_mode = S_IFDIR | row.folder;
        folder.st_uid = row.folderOwner;
        EXPECT_EQ(MayFollowLink(folder, row.linkOwner, row.self), row.may)
            << std::oct << row.folder << std::dec << ' ' << row.folderOwner << ' ' << row.linkOwner;
    }
}

using WriteTargets = FolderTest;

/// The other user is real where the test is root, who can give a link away.
TEST_F(WriteTargets, AreNotReachedThroughALinkOfAnotherUser) {
    fs::create_directory(folder / "shared");
    ASSERT_EQ(chmod(PathOf("shared").c_str(), 01777), 0);
    fs::create_symlink(folder / "good", folder / "shared" / "link");
    fs::create_symlink(folder, folder / "shared" / "way");
    Write("good", "old");
    const uid_t other = geteuid() + 1;
    const gid_t same = getegid();
    const bool given = lchown(PathOf("shared/link").c_str(), other, same) == 0 &&
                       lchown(PathOf("shared/way").c_str(), other, same) == 0;
    EXPECT_EQ(given, geteuid() == 0);
    for (const char* name : {"shared/link", "shared/way/good"}) {
        const WriteResult result =
            WriteFileOrStream(PathOf(name), [](const TakeBytes& take) { return take("new"); });
        EXPECT_EQ(
            result.failure,
            given ? "a symbolic link of another user in a folder that everybody may write to" : "")
            << name;
        EXPECT_EQ(Content("good"), given ? "old" : "new");
    }
    EXPECT_TRUE(fs::is_symlink(folder / "shared" / "link"));
}

TEST_F(WriteTargets, TellWhatIsThere) {
    Write("file", "");
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    fs::create_symlink("/proc/self/fd/1", folder / "out");
    const struct {
        std::string path;
        TargetKind kind;
        const char* name;
    } rows[] = {
        {PathOf("file"), TargetKind::OldFile, "file"},
        {PathOf(".//././file"), TargetKind::OldFile, "file"},
        {PathOf("new"), TargetKind::NewFile, "new"},
        {PathOf("pipe"), TargetKind::Device, "pipe"},
        {PathOf("file/"), TargetKind::None, ""},
        {PathOf("out"), TargetKind::OpenDescriptor, ""},
        {"/dev/null", TargetKind::Device, "null"},
        {"/dev/fd/1", TargetKind::OpenDescriptor, ""},
        {"/dev/stderr", TargetKind::OpenDescriptor, ""},
        {"/proc/self/fd/1", TargetKind::OpenDescriptor, ""},
        {"/proc/" + std::to_string(getpid()) + "/fd/1", TargetKind::OpenDescriptor, ""},
    };
    for (const auto& row : rows) {
        const WriteTarget target = FindWriteTarget(row.path);
        EXPECT_EQ(target.kind, row.kind) << row.path << ": " << target.failure;
        EXPECT_EQ(target.name, row.name) << row.path;
    }
    EXPECT_EQ(FindWriteTarget("/dev/stderr").number, 2);
}

}  // namespace
}  // namespace kalvex
