// interpolate: reads a point file, sets up a method and prints its values. Values are computed and
// printed in blocks, so that memory does not grow with the length of a range. Some methods can fail
// at one abscissa, which makes all values undefined; those are first run over all abscissas.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/number_argument.h"
#include "cli/point_list.h"
#include "cli/point_table.h"
#include "graph/approx_failure.h"
#include "graph/file_lines.h"
#include "interp/approximation.h"
#include "interp/method_table.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr std::size_t kBlock = 4096;

struct Arguments {
    std::array<std::string, kWholeParameters.size()> whole;  ///< as given, by parameter
    std::array<std::string, kRealParameters.size()> real;
    std::vector<std::string> at;
    std::string range;
    std::string file;
    ApproxParameters parameters;
    PointList abscissas;
};

/// The option of a parameter: "--approx-val" for `approx_val`; the method itself is "--method".
std::string OptionName(std::string_view parameter) {
    if (parameter == kWholeParameters[0].name) return "--method";
    std::string name = "--" + std::string(parameter);
    std::replace(name.begin(), name.end(), '_', '-');
    return name;
}

void ReadWhole(const std::string& name, const std::string& text, std::int64_t first,
               std::int64_t last, std::int32_t& number) {
    if (text.empty()) return;
    const auto whole = ParseWhole(text, first, last);
    if (!whole)
        WrongUsage(name, "a whole number from " + std::to_string(first) + " to " +
                             std::to_string(last) + " expected");
    number = static_cast<std::int32_t>(*whole);
}

void ReadReal(const std::string& name, const std::string& text, double& number) {
    if (text.empty()) return;
    const auto real = ParseNumber(text);
    if (!real) WrongUsage(name, "a number expected, got " + text);
    number = *real;
}

void ReadArguments(Arguments& arguments) {
    ApproxParameters& parameters = arguments.parameters;
    for (std::size_t i = 0; i < kWholeParameters.size(); ++i) {
        const auto& [name, field, lowest, highest] = kWholeParameters[i];
        ReadWhole(OptionName(name), arguments.whole[i], lowest, highest, parameters.*field);
    }
    for (std::size_t i = 0; i < kRealParameters.size(); ++i)
        ReadReal(OptionName(kRealParameters[i].name), arguments.real[i],
                 parameters.*kRealParameters[i].field);
    for (const std::string& text : arguments.at) {
        const std::optional<WorldPoint> point = ParsePoint(text, false);
        if (!point) WrongUsage("--at", "a number expected, got " + text);
        arguments.abscissas.single.push_back(*point);
    }
    if (arguments.range.empty()) return;
    arguments.abscissas.range = ParseRange(arguments.range);
    if (!arguments.abscissas.range) WrongUsage("--range", "A,B,N with N of 1 or more expected");
}

/// The check that the windows make too: the number of points limits the number of terms.
bool HasGoodTerms(const Arguments& arguments, const PointTable& table) {
    if (HasGoodTermCount(arguments.parameters, table.x.size())) return true;
    ShowOnStandardError(TermCountBox(1));
    return false;
}

/// Called with each block of values; false stops the computation.
using TakeBlock = bool (*)(std::span<const double> x, std::span<const double> y);

void ForEachBlock(Approximation& approximation, const PointList& abscissas, TakeBlock take) {
    std::array<double, kBlock> x{};
    std::array<double, kBlock> y{};
    const std::int64_t total = CountOf(abscissas);
    for (std::int64_t start = 0; start < total; start += static_cast<std::int64_t>(kBlock)) {
        const std::size_t count = static_cast<std::size_t>(
            std::min<std::int64_t>(static_cast<std::int64_t>(kBlock), total - start));
        for (std::size_t i = 0; i < count; ++i)
            x[i] = PointAt(abscissas, start + static_cast<std::int64_t>(i)).x;
        EvaluateApproximation(approximation, {x.data(), count}, {y.data(), count});
        if (!take({x.data(), count}, {y.data(), count})) return;
    }
}

bool PrintBlock(std::span<const double> x, std::span<const double> y) {
    std::string lines;
    for (std::size_t i = 0; i < x.size(); ++i)
        lines += FormatGeneral17(x[i]) + '\t' + FormatGeneral17(y[i]) + '\n';
    return WriteOutNow(lines);
}

void TellFailure(const Diagnostic& diagnostic) {
    if (diagnostic.box) ShowOnStandardError(OwnBox(diagnostic));
    std::fputs(StandardErrorText(diagnostic).c_str(), stderr);
}

ExitStatus Run(Arguments& arguments) {
    const std::optional<PointTable> table = ReadTable(arguments.file);
    if (!table || !HasGoodTerms(arguments, *table)) return ExitStatus::Rejected;
    if (CountOf(arguments.abscissas) == 0) {
        for (const double x : table->x)
            arguments.abscissas.single.push_back({x, 0.0});
    }
    Approximation approximation = SetUpApproximation(table->x, table->y, arguments.parameters);
    if (MayFailAtAValue(approximation))
        ForEachBlock(approximation, arguments.abscissas,
                     [](std::span<const double>, std::span<const double>) { return true; });
    if (approximation.failure) TellFailure(*approximation.failure);
    ForEachBlock(approximation, arguments.abscissas, PrintBlock);
    return ExitStatus::Done;
}

std::string CodeOf(const MethodRow& row) {
    return std::to_string(static_cast<std::int32_t>(row.method));
}

/// What a parameter means to the methods that have it: "Bias (method 3), left boundary value (10)".
template <typename Asks>
std::string MeaningOf(Asks asks) {
    std::string text;
    for (const MethodRow& row : MethodRows()) {
        for (const MethodParameter& parameter : row.form.parameters) {
            if (!asks(parameter)) continue;
            text += text.empty() ? "" : ", ";
            text +=
                std::string(parameter.meaning) + (text.find('(') == text.npos ? " (method " : " (");
            text += CodeOf(row) + ")";
        }
    }
    if (!text.empty()) text[0] = static_cast<char>(std::toupper(text[0]));
    return text;
}

void AddParameters(CLI::App& command, Arguments& arguments) {
    const ApproxParameters defaults;
    const std::string range = "0 to " + std::to_string(kMethodCount - 1);
    command
        .add_option("--method", arguments.whole[0],
                    "The method, " + range + ", in the order of the menu (docs/methods.md).")
        ->required()
        ->type_name("CODE");
    for (std::size_t i = 1; i < kWholeParameters.size(); ++i) {
        const auto field = kWholeParameters[i].field;
        const std::string meaning =
            MeaningOf([field](const MethodParameter& asked) { return asked.whole == field; });
        command
            .add_option(OptionName(kWholeParameters[i].name), arguments.whole[i],
                        meaning + "; default " + std::to_string(defaults.*field) + ".")
            ->type_name("N");
    }
    for (std::size_t i = 0; i < kRealParameters.size(); ++i) {
        const auto field = kRealParameters[i].field;
        const std::string meaning =
            MeaningOf([field](const MethodParameter& asked) { return asked.real == field; });
        command
            .add_option(OptionName(kRealParameters[i].name), arguments.real[i],
                        meaning + "; default " + FormatShortest(defaults.*field) + ".")
            ->type_name("D");
    }
}

}  // namespace

void AddInterpolateCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(
        tool, "interpolate", "Join the points of a file by a method; prints x and y per abscissa.");
    const auto arguments = std::make_shared<Arguments>();
    AddParameters(*command, *arguments);
    command
        ->add_option("--at", arguments->at,
                     "An abscissa (default: those of the points); may be repeated.")
        ->type_name("X")
        ->allow_extra_args(false);
    command->add_option("--range", arguments->range, "N abscissas from A to B.")
        ->type_name("A,B,N");
    command->add_option("FILE", arguments->file, "The point file.")->required();
    command->callback([arguments, &status] {
        ReadArguments(*arguments);
        status = Run(*arguments);
    });
}

}  // namespace kalvex
