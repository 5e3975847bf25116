#include "graph/curve_work.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

namespace kalvex {
namespace {

using std::chrono::milliseconds;

struct Pieces {
    std::vector<std::size_t> sizes;
    std::size_t next = 0;
    void Take(std::size_t first, std::size_t count) {
        EXPECT_EQ(first, next);
        next = first + count;
        sizes.push_back(count);
    }
};

TEST(EvaluateInPieces, AllAtOnceWhenNobodyWatches) {
    for (const std::size_t count : {0u, 1u, 100000u}) {
        Pieces pieces;
        const auto take = [&](std::size_t first, std::size_t n) { pieces.Take(first, n); };
        EXPECT_EQ(EvaluateInPieces(count, {}, take), count);
        EXPECT_EQ(pieces.sizes.size(), count == 0 ? 0u : 1u) << count;
    }
}

TEST(EvaluateInPieces, QuickPiecesGrowAndSlowOnesShrink) {
    Interruption interruption;
    Pieces quick;
    EXPECT_EQ(EvaluateInPieces(100000, {{}, &interruption},
                               [&](std::size_t first, std::size_t n) { quick.Take(first, n); }),
              100000u);
    EXPECT_LT(quick.sizes.size(), 60u);
    EXPECT_EQ(quick.sizes.front(), 8u);
    Pieces slow;
    const auto take = [&](std::size_t first, std::size_t n) {
        slow.Take(first, n);
        std::this_thread::sleep_for(milliseconds(n));
    };
    EXPECT_EQ(EvaluateInPieces(200, {{}, &interruption}, take), 200u);
    for (const std::size_t size : slow.sizes)
        EXPECT_LE(size, 32u);
}

TEST(EvaluateInPieces, TellsThePartThatIsDone) {
    double last = 0.0;
    const CurveWork work{[&](double done) {
                             EXPECT_GT(done, last);
                             last = done;
                             return true;
                         },
                         nullptr};
    EXPECT_EQ(EvaluateInPieces(1000, work, [](std::size_t, std::size_t) {}), 1000u);
    EXPECT_EQ(last, 1.0);
}

TEST(EvaluateInPieces, StopsBehindACompletePiece) {
    const CurveWork told{[](double) { return false; }, nullptr};
    EXPECT_EQ(EvaluateInPieces(1000, told, [](std::size_t, std::size_t) {}), 8u);
    Interruption interruption;
    interruption.goOn = [] { return false; };
    int calls = 0;
    const std::size_t done =
        EvaluateInPieces(1000, {{}, &interruption}, [&](std::size_t, std::size_t) {
            if (++calls == 3) interruption.due = true;
        });
    EXPECT_EQ(done, 8u + 32u);
    EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace kalvex
