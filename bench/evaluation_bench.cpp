// Evaluation at 1,920 points: the program over blocks, the same with result records, muParser point
// by point, and a plain tree walk. All four compute the same values; that is made sure first.
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "tree_walk.h"

namespace kalvex {
namespace {

constexpr std::size_t kPoints = 1920;

std::string PowerSum() {
    std::string text = "x^19";
    for (int power = 18; power >= 0; --power) {
        text += "+" + std::to_string(power + 2);
        if (power > 0) text += "*x^" + std::to_string(power);
    }
    return text;
}

std::string Horner() {
    std::string text = "2";
    for (int coefficient = 3; coefficient <= 21; ++coefficient) {
        text = "(" + text + ")*x+" + std::to_string(coefficient);
    }
    return text;
}

struct Row {
    std::string name;
    std::string text;
};

std::vector<Row> Rows() {
    return {{"x^3-3*x+1", "x^3-3*x+1"},
            {"abs(frac(x)-0.5)*int(x)", "abs(frac(x)-0.5)*int(x)"},
            {"power sum of 20 terms", PowerSum()},
            {"Horner, degree 19", Horner()},
            {"x^2-4", "x^2-4"},
            {"(x^2-1)/(x^2+1)", "(x^2-1)/(x^2+1)"},
            {"sin(x)/x", "sin(x)/x"},
            {"exp(0-x^2)*cos(5*x)", "exp(0-x^2)*cos(5*x)"},
            {"ln(abs(x)+1)+atg(x)", "ln(abs(x)+1)+atg(x)"},
            {"sin(x^2)+cos(3*x)*sh(x/4)", "sin(x^2)+cos(3*x)*sh(x/4)"},
            {"exp(sin(x))", "exp(sin(x))"}};
}

std::vector<double> Abscissas() {
    std::vector<double> xs(kPoints);
    for (std::size_t i = 0; i < kPoints; ++i) {
        xs[i] = -10.0 + 20.0 * static_cast<double>(i) / (kPoints - 1);
    }
    return xs;
}

double Fraction(double x) {
    return x - std::floor(x);
}
double Whole(double x) {
    return std::floor(x);
}

void Prepare(mu::Parser& parser, double& x, const std::string& text) {
    parser.DefineVar("x", &x);
    parser.DefineFun("frac", Fraction);
    parser.DefineFun("int", Whole);
    // The language's own names for what muParser has under others.
    parser.DefineFun("atg", static_cast<double (*)(double)>(std::atan));
    parser.DefineFun("sh", static_cast<double (*)(double)>(std::sinh));
    parser.SetExpr(text);
}

void BlocksBench(benchmark::State& state, const std::string& text) {
    const CompiledExpression expression = CompileExpression(Widen(text));
    const std::vector<double> xs = Abscissas();
    std::vector<double> values(kPoints);
    std::vector<std::int32_t> errors(kPoints);
    for (auto _ : state) {
        EvaluateInto(expression, xs, 0.0, values, errors);
        benchmark::DoNotOptimize(values.data());
    }
}

void RecordsBench(benchmark::State& state, const std::string& text) {
    const CompiledExpression expression = CompileExpression(Widen(text));
    const std::vector<double> xs = Abscissas();
    for (auto _ : state)
        benchmark::DoNotOptimize(EvaluateAt(expression, xs));
}

void MuParserBench(benchmark::State& state, const std::string& text) {
    double x = 0.0;
    mu::Parser parser;
    Prepare(parser, x, text);
    const std::vector<double> xs = Abscissas();
    std::vector<double> values(kPoints);
    for (auto _ : state) {
        for (std::size_t i = 0; i < kPoints; ++i) {
            x = xs[i];
            values[i] = parser.Eval();
        }
        benchmark::DoNotOptimize(values.data());
    }
}

void TreeWalkBench(benchmark::State& state, const std::string& text) {
    const auto tree = bench::ParseTree(Widen(text));
    const std::vector<double> xs = Abscissas();
    std::vector<double> values(kPoints);
    for (auto _ : state) {
        for (std::size_t i = 0; i < kPoints; ++i)
            values[i] = bench::WalkTree(*tree, xs[i], 0.0);
        benchmark::DoNotOptimize(values.data());
    }
}

bool AreClose(double a, double b) {
    return std::fabs(a - b) <= 1e-9 * std::fmax(1.0, std::fmax(std::fabs(a), std::fabs(b)));
}

void RequireEqualValues(const std::string& text) {
    double x = 0.0;
    mu::Parser parser;
    Prepare(parser, x, text);
    const auto tree = bench::ParseTree(Widen(text));
    const auto results = EvaluateAt(CompileExpression(Widen(text)), Abscissas());
    const std::vector<double> xs = Abscissas();
    for (std::size_t i = 0; i < kPoints; ++i) {
        x = xs[i];
        const double walked = bench::WalkTree(*tree, x, 0.0);
        if (AreClose(results[i].value, walked) && AreClose(parser.Eval(), walked)) continue;
        std::fprintf(stderr, "%s differs at x = %g\n", text.c_str(), x);
        std::exit(1);
    }
}

}  // namespace
}  // namespace kalvex

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const kalvex::Row& row : kalvex::Rows()) {
        kalvex::RequireEqualValues(row.text);
        const auto add = [&row](const char* method, auto run) {
            benchmark::RegisterBenchmark((row.name + " / " + method).c_str(), run, row.text);
        };
        add("blocks", kalvex::BlocksBench);
        add("records", kalvex::RecordsBench);
        add("muParser", kalvex::MuParserBench);
        add("tree walk", kalvex::TreeWalkBench);
    }
    benchmark::RunSpecifiedBenchmarks();
}
