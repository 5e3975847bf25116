#include "base/message_line.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(MessageLine, IsOneLineWhateverTheText) {
    EXPECT_EQ(MessageLine({u"Error!", u"a\nb\r\nc\rd"}), "Error!: a\\nb\\nc\\nd");
    EXPECT_EQ(MessageLine({u"", u""}), ": ");
}

}  // namespace
}  // namespace kalvex
