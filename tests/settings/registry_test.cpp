#include "settings/registry.h"

#include <gtest/gtest.h>

#include "settings/faulty_registry.h"

namespace kalvex {
namespace {

TEST(FoldedName, LowersAsciiLettersOnly) {
    EXPECT_EQ(FoldedName("Xmin"), "xmin");
    EXPECT_EQ(FoldedName("approx_VAL2"), "approx_val2");
    EXPECT_EQ(FoldedName("\xC3\x84[@"), "\xC3\x84[@");
    EXPECT_EQ(FoldedName(""), "");
}

TEST(MemoryRegistry, KeepsTypedValuesOfExistingKeys) {
    const Registry registry = OpenRegistryMemory(std::make_shared<MemoryStore>());
    EXPECT_TRUE(registry.isEmpty());
    EXPECT_FALSE(registry.open(""));
    EXPECT_FALSE(registry.writeNumber("", "Wight", 1));
    EXPECT_TRUE(registry.create(""));
    EXPECT_TRUE(registry.isEmpty());
    EXPECT_TRUE(registry.writeNumber("", "Wight", -7));
    EXPECT_TRUE(registry.writeText("", "Xmin", u"1"));
    EXPECT_FALSE(registry.isEmpty());
    EXPECT_EQ(registry.readNumber("", "wIGHT"), -7);
    EXPECT_EQ(registry.readText("", "xmin"), u"1");
    EXPECT_EQ(registry.readText("", "Wight"), std::nullopt);
    EXPECT_EQ(registry.readNumber("", "Xmin"), std::nullopt);
    EXPECT_EQ(registry.readNumber("", "Axex"), std::nullopt);
    EXPECT_FALSE(registry.open("1"));
    registry.create("");
    EXPECT_EQ(registry.readNumber("", "Wight"), -7);
}

TEST(WriteTogether, NeedsBothTheWritesAndTheStore) {
    for (const bool written : {false, true}) {
        for (const bool stored : {false, true}) {
            Registry registry;
            std::string calls;
            registry.begin = [&] { calls += 'b'; };
            registry.commit = [&] {
                calls += 'c';
                return stored;
            };
            const bool result = WriteTogether(registry, [&] {
                calls += 'w';
                return written;
            });
            EXPECT_EQ(result, written && stored);
            EXPECT_EQ(calls, "bwc");
        }
    }
}

TEST(WriteTogether, EndsTheBatchWhenTheWritesThrow) {
    int depth = 0;
    int commits = 0;
    Registry registry;
    registry.begin = [&depth] { ++depth; };
    registry.commit = [&] {
        ++commits;
        return --depth == 0;
    };
    const auto writes = []() -> bool { throw std::bad_alloc(); };
    EXPECT_THROW(static_cast<void>(WriteTogether(registry, writes)), std::bad_alloc);
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(commits, 1);
    registry.commit = [&]() -> bool {
        --depth;
        throw std::bad_alloc();
    };
    EXPECT_THROW(static_cast<void>(WriteTogether(registry, writes)), std::bad_alloc);
    EXPECT_EQ(depth, 0);
    registry.discard = [&depth] { --depth; };
    registry.commit = [&]() -> bool { return ++commits > 0; };
    EXPECT_THROW(static_cast<void>(WriteTogether(registry, writes)), std::bad_alloc);
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(commits, 1);
}

TEST(WriteTogether, WritesAtOnceWithoutBatches) {
    EXPECT_TRUE(WriteTogether(Registry{}, [] { return true; }));
    EXPECT_FALSE(WriteTogether(Registry{}, [] { return false; }));
}

}  // namespace
}  // namespace kalvex
