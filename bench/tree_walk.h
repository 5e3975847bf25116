// The peer of the benchmarks: an expression as a tree of separately allocated nodes, one function
// call per node and point, the C library's mathematics, a domain test in each primitive. Knows
// numbers, x, y, + - * / ^, brackets and sin cos tg ln lg exp sh ch atg abs int frac, in texts as
// the normaliser leaves them; the same run rule for equal operators as the language has.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

namespace kalvex::bench {

struct TreeNode {
    double (*evaluate)(const TreeNode& node, double x, double y) = nullptr;
    double (*function)(double value) = nullptr;
    double number = 0.0;
    std::unique_ptr<TreeNode> left;
    std::unique_ptr<TreeNode> right;
};

/// Null when the text holds something else.
std::unique_ptr<TreeNode> ParseTree(std::u16string_view text);

/// Value at one point, 1e30 after a failure (EvalError tells which).
double WalkTree(const TreeNode& root, double x, double y);

}  // namespace kalvex::bench
