// A folder for the files of one test.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kalvex {

class FolderTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "kalvex-test-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    [[nodiscard]] std::string PathOf(const std::string& name) const {
        return (folder / name).string();
    }
    [[nodiscard]] std::string Content(const std::string& name) const {
        std::ifstream in(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void Write(const std::string& name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    /// How many entries the folder has, hidden ones too.
    [[nodiscard]] std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }

    std::filesystem::path folder;
};

}  // namespace kalvex
