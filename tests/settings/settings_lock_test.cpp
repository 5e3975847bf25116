#include "settings/settings_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "base/temporary_folder.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

class SettingsLock : public FolderTest {};

LockAnswer Try(const std::string& path) {
    Descriptor lock;
    return LockSettings(path, lock);
}

TEST_F(SettingsLock, OneAtATimeForOneFile) {
    const std::string path = PathOf("deep/er/kalvex.ini");
    Descriptor lock;
    EXPECT_EQ(LockSettings(path, lock), LockAnswer::Got);
    EXPECT_EQ(Try(path), LockAnswer::Busy);
    EXPECT_EQ(Try(PathOf("deep/../deep/er/kalvex.ini")), LockAnswer::Busy);
    fs::create_directory_symlink(PathOf("deep"), PathOf("link"));
    EXPECT_EQ(Try(PathOf("link/er/kalvex.ini")), LockAnswer::Busy);
    EXPECT_EQ(Try(PathOf("deep/er/other.ini")), LockAnswer::Got);
    lock.Close();
    EXPECT_EQ(Try(path), LockAnswer::Got);
}

TEST_F(SettingsLock, IsThatOfTheFileBehindLinks) {
    fs::create_directory(folder / "real");
    fs::create_symlink("real", folder / "folder");
    fs::create_symlink("folder/kalvex.ini", folder / "first");
    fs::create_symlink(folder / "first", folder / "second");
    for (const bool exists : {false, true}) {
        if (exists) Write("real/kalvex.ini", "");
        for (const char* name : {"first", "second", "folder/kalvex.ini"}) {
            EXPECT_EQ(RealPathOf(PathOf(name)), fs::canonical(folder / "real") / "kalvex.ini")
                << name << exists;
            Descriptor one;
            Descriptor other;
            EXPECT_EQ(LockSettings(PathOf(name), one), LockAnswer::Got) << name << exists;
            EXPECT_EQ(LockSettings(PathOf("real/kalvex.ini"), other), LockAnswer::Busy) << name;
        }
    }
    fs::create_symlink("circle", folder / "circle");
    EXPECT_FALSE(RealPathOf(PathOf("circle")).empty());
}

TEST_F(SettingsLock, StaysWhenTheFileIsReplaced) {
    const std::string path = PathOf("kalvex.ini");
    std::ofstream(path) << "one";
    Descriptor lock;
    EXPECT_EQ(LockSettings(path, lock), LockAnswer::Got);
    std::ofstream(path + ".new") << "two";
    fs::rename(path + ".new", path);
    EXPECT_EQ(Try(path), LockAnswer::Busy);
}

TEST_F(SettingsLock, IsFreeAfterACrash) {
    const std::string path = PathOf("kalvex.ini");
    const pid_t child = fork();
    if (child == 0) {
        Descriptor lock;
        const LockAnswer answer = LockSettings(path, lock);
        _exit(answer == LockAnswer::Got ? 7 : 1);  // without closing anything
    }
    int state = 0;
    ASSERT_EQ(waitpid(child, &state, 0), child);
    EXPECT_EQ(WEXITSTATUS(state), 7);
    EXPECT_EQ(Try(path), LockAnswer::Got);
}

TEST_F(SettingsLock, WithoutALockFileTheFolderIsLocked) {
    const std::string path = PathOf("kalvex.ini");
    fs::create_directory(path + ".lock");  // no file can be opened for writing there
    fs::create_symlink("nowhere", PathOf("other.ini.lock"));
    Descriptor lock;
    EXPECT_EQ(LockSettings(PathOf("other.ini"), lock), LockAnswer::Got);
    struct stat opened {};
    ASSERT_EQ(fstat(lock.Number(), &opened), 0);
    EXPECT_TRUE(S_ISDIR(opened.st_mode));
    EXPECT_EQ(Try(PathOf("other.ini")), LockAnswer::Busy);
}

TEST_F(SettingsLock, IsImpossibleWhereThereIsNoFolder) {
    EXPECT_EQ(Try("/proc/none/kalvex.ini"), LockAnswer::Impossible);
    EXPECT_EQ(Try("/dev/null/kalvex.ini"), LockAnswer::Impossible);
}

}  // namespace
}  // namespace kalvex
