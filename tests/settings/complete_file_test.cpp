#include "settings/complete_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "settings/registry_file.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

class CompleteFile : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "kalvex-test-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        file = folder / "file.txt";
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string Content() const {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    QString Path() const { return QString::fromStdString(file.string()); }

    fs::path folder;
    fs::path file;
};

TEST_F(CompleteFile, ReplacesAnOldOne) {
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {"long and new"sv, "a\0b\r\n\xff"sv, ""sv}) {
        EXPECT_TRUE(WriteCompleteFile(Path(), bytes));
        EXPECT_EQ(Content(), bytes);
    }
}

TEST_F(CompleteFile, LeavesTheOldOneWhenTheWriterFails) {
    ASSERT_TRUE(WriteCompleteFile(Path(), "old"));
    EXPECT_FALSE(WriteCompleteFile(Path(), [](QIODevice& device) {
        device.write("new");
        return false;
    }));
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1)
        << "nothing is left beside it";
}

TEST_F(CompleteFile, FailsWhereNoneCanBe) {
    for (const fs::path& path : {folder, folder / "no" / "file.txt", fs::path("/dev/full")})
        EXPECT_FALSE(WriteCompleteFile(QString::fromStdString(path.string()), "bytes")) << path;
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(CompleteFile, MayBeADeviceButNotForTheSettings) {
    EXPECT_TRUE(WriteCompleteFile("/dev/null", "bytes"));
    const Registry registry = OpenRegistryFile("/dev/null");
    registry.create("");
    EXPECT_FALSE(registry.writeNumber("", "Wight", 2));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace kalvex
