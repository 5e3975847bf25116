// eval: normalises, checks, compiles and evaluates each text at the same points. Functions of x are
// evaluated and printed in blocks, so that memory does not grow with the length of a range.
// Functions of x and y are evaluated one point at a time.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/point_list.h"
#include "expr/evaluator.h"
#include "numbers/decimal.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::int64_t kBlock = 512;

struct Arguments {
    bool implicit = false;
    std::vector<std::string> at;
    std::string range;
    std::optional<std::string> text;
    PointList points;
};

void ReadPoints(Arguments& arguments) {
    for (const std::string& text : arguments.at) {
        const std::optional<WorldPoint> point = ParsePoint(text, arguments.implicit);
        if (!point) {
            WrongUsage("--at", arguments.implicit ? "X or X,Y expected, got " + text
                                                  : "a number expected, got " + text);
        }
        arguments.points.single.push_back(*point);
    }
    if (!arguments.range.empty()) {
        arguments.points.range = ParseRange(arguments.range);
        if (!arguments.points.range) WrongUsage("--range", "A,B,N with N of 1 or more expected");
    }
    if (CountOf(arguments.points) == 0) arguments.points.single.push_back({0.0, 0.0});
}

std::string ValueAndCode(double value, std::int32_t error) {
    return '\t' + FormatGeneral17(value) + '\t' + ToUtf8(NumberText(error)) + '\n';
}

/// Prints a function of x; stops when standard output can no longer be written.
void PrintValues(const CompiledExpression& expression, const PointList& points) {
    std::array<double, kBlock> xs{};
    std::array<double, kBlock> values{};
    std::array<std::int32_t, kBlock> errors{};
    const std::int64_t total = CountOf(points);
    for (std::int64_t start = 0; start < total; start += kBlock) {
        const std::size_t count = static_cast<std::size_t>(std::min(kBlock, total - start));
        for (std::size_t i = 0; i < count; ++i)
            xs[i] = PointAt(points, start + static_cast<std::int64_t>(i)).x;
        EvaluateInto(expression, {xs.data(), count}, 0.0, {values.data(), count},
                     {errors.data(), count});
        std::string lines;
        for (std::size_t i = 0; i < count; ++i)
            lines += FormatGeneral17(xs[i]) + ValueAndCode(values[i], errors[i]);
        if (!WriteOutNow(lines)) return;
    }
}

/// Prints a function of x and y.
void PrintGridValues(const CompiledExpression& expression, const PointList& points) {
    const std::int64_t total = CountOf(points);
    std::string lines;
    for (std::int64_t i = 0; i < total; ++i) {
        const WorldPoint point = PointAt(points, i);
        EvalError = 0;
        const double value = EvaluateExpression(expression, point.x, point.y);
        const std::int32_t error = EvalError;
        lines += FormatGeneral17(point.x) + '\t' + FormatGeneral17(point.y) +
                 ValueAndCode(error == 0 ? value : UndefinedValue, error);
        if (i + 1 < total && (i + 1) % kBlock != 0) continue;
        if (!WriteOutNow(lines)) return;
        lines.clear();
    }
}

ExitStatus EvaluateOne(const Arguments& arguments, std::u16string text) {
    if (!AcceptText(text, arguments.implicit)) return ExitStatus::Rejected;
    const CompiledExpression expression = CompileExpression(text);
    if (arguments.implicit)
        PrintGridValues(expression, arguments.points);
    else
        PrintValues(expression, arguments.points);
    return ExitStatus::Done;
}

}  // namespace

void AddEvalCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(
        tool, "eval", "Evaluate a text; one line per point: x, value, error code (0: none).");
    const auto arguments = std::make_shared<Arguments>();
    command->add_flag("--implicit", arguments->implicit,
                      "The text is a function of x and y; prints x, y, value, code.");
    command->add_option("--at", arguments->at, "A point (default 0); may be repeated.")
        ->type_name("X[,Y]")
        ->allow_extra_args(false);
    command->add_option("--range", arguments->range, "N points from A to B.")->type_name("A,B,N");
    AddTextArgument(*command, arguments->text);
    command->callback([arguments, &status] {
        ReadPoints(*arguments);
        status = ForEachText(arguments->text, std::cin, [&](const std::u16string& text) {
            return EvaluateOne(*arguments, text);
        });
    });
}

}  // namespace kalvex
