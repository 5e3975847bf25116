#include "resources/samples.h"

#include <gtest/gtest.h>

#include <fstream>

namespace kalvex {
namespace {

TEST(Samples, AreFoundFromTheBuildTree) {
    for (const std::string_view name : kSampleFiles) {
        const std::string path = SamplePath(name);
        EXPECT_TRUE(path.ends_with("/samples/" + std::string(name))) << path;
        double x = 0;
        double y = 0;
        std::ifstream file(path);
        EXPECT_TRUE(file >> x >> y) << path;
    }
    EXPECT_EQ(SamplePath("no such file"), "");
}

}  // namespace
}  // namespace kalvex
